#include "substance/forms/substance_fields.h"

#include "substance/forms/form_hor.h"
#include "substance/forms/kin_sorption.h"
#include "substance/forms/koc_ph.h"
#include "ui/forms/leave_guard.h"
#include "ui/forms/number_edit.h"
#include "ui/forms/widgets.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>

namespace orvel {

namespace {

constexpr int Active = 1;
constexpr int Name_Columns = 26;

// The captions differ between the two forms.
struct Captions {
    const char *Name_Control, *Name, *Molmass, *Moisture, *PH, *Kinetics, *Horizons;
};
constexpr Captions Of_Active = {"Text_AS",
                                "&Name:",
                                "&Mol Mass [g/mol]:",
                                "Increase of sorption when soil is air dried (-)",
                                "&ph-dependent sorption",
                                "kine&tic sorption",
                                "&Edit numbers"};
constexpr Captions Of_Metabolite = {"metcom",
                                    "&Name of Metabolite:",
                                    "&Molmass [g/mol]:",
                                    "&relative sorption increase when soil is air dried (-)",
                                    "&pH-dependent Sorption",
                                    "Kine&tic Sorption",
                                    "&Enter data"};

const Captions& Captions_For(int i)
{
    return i == Active ? Of_Active : Of_Metabolite;
}

QHBoxLayout* Side_By_Side(std::initializer_list<QWidget*> widgets)
{
    auto* row = new QHBoxLayout;
    for (auto* widget : widgets)
        row->addWidget(widget);
    row->addStretch(1);
    return row;
}

} // namespace

Substance_Fields::Substance_Fields(Session& session, int i, QDialog& form)
    : QObject(&form),
      The_Session(session),
      Substance(i),
      Form(form)
{
    Lay_Out_General();
    Lay_Out_Sorption();
    Lay_Out_Depth();
    Show_Entry(Load_Substance(The_Session.Pesticide, Substance));
    Show_Notes();
}

void Substance_Fields::Lay_Out_General()
{
    const auto& captions = Captions_For(Substance);
    General_Group = new QGroupBox("Substance");
    auto& rows = *(Rows_Of_General = new QFormLayout(General_Group));
    rows.addRow(captions.Name, Name = Named(new Byte_Edit, captions.Name_Control));
    Name->setMinimumWidth(Name->fontMetrics().averageCharWidth() * Name_Columns);
    for (const auto& field : std::span(Number_Fields_Of_Substance).first(First_Sorption_Field))
        Boxes.Add(rows, field, field.Control == "Text_mol" ? captions.Molmass : "");
}

void Substance_Fields::Lay_Out_Sorption()
{
    const auto& captions = Captions_For(Substance);
    Sorption_Group = new QGroupBox("Sorption");
    auto& rows = *(Rows_Of_Sorption = new QFormLayout(Sorption_Group));
    Option_koc1 = Named(new QRadioButton("&Direct Input"), "Option_koc1");
    Option_koc2 = Named(new QRadioButton("Calculated &with KOC"), "Option_koc2");
    auto* ways = new QButtonGroup(this);
    ways->addButton(Option_koc1);
    ways->addButton(Option_koc2);
    connect(ways, &QButtonGroup::idClicked, this, &Substance_Fields::Show_View);
    rows.addRow(Side_By_Side({new QLabel("Kf-Value"), Option_koc1, Option_koc2}));
    for (const auto& field : std::span(Number_Fields_Of_Substance).subspan(First_Sorption_Field))
        Boxes.Add(rows, field, field.Control == "Text_KOC_MOI" ? captions.Moisture : "");
    auto* ph = Push_Button("Command2", captions.PH, this, &Substance_Fields::Edit_PH);
    auto* kinetics = Push_Button("Command3", captions.Kinetics, this, &Substance_Fields::Edit_Kinetics);
    rows.addRow(Side_By_Side({ph, kinetics}));
    rows.addRow(label_pH = Named(new QLabel("pH dependent Sorption considered!"), "label_pH"));
    rows.addRow(Label_kinSorp = Named(new QLabel("kin. Sorption"), "Label_kinSorp"));
    rows.addRow(Label_Sorption = Named(new QLabel("Moisture dependent Sorption considered!"), "Label_Sorption"));
}

void Substance_Fields::Lay_Out_Depth()
{
    Depth_Group = new QGroupBox("Dependence on depth");
    auto& rows = *(Rows_Of_Depth = new QFormLayout(Depth_Group));
    auto* modes = new QButtonGroup(this);
    constexpr std::array<const char*, 3> captions = {"&Standard values (Tier 1)", "Constant degradation with depth",
                                                     "Indi&vidual"};
    for (std::size_t mode = 0; mode < captions.size(); ++mode) {
        tiefenabhaengig[mode] = Named(new QRadioButton(captions[mode]), QString("tiefenabhaengig_%1").arg(mode));
        modes->addButton(tiefenabhaengig[mode], static_cast<int>(mode));
        rows.addRow(tiefenabhaengig[mode]);
    }
    connect(modes, &QButtonGroup::idClicked, this, &Substance_Fields::Choose_Depth);
    Text_nhor = Named(new Number_Edit, "Text_nhor");
    auto* label = Named(new QLabel("Number of &Horizons"), "Label1_4");
    label->setBuddy(Text_nhor);
    rows.addRow(label, Text_nhor);
    Guard = new Leave_Guard(Form, [this](QWidget&) { Leave_Horizons(); });
    Guard->Watch(*Text_nhor);
    Guard->Let_Pass({"Command_hor", "Command_ok1", "Command_cancel"});
    Command_hor = Push_Button("Command_hor", Captions_For(Substance).Horizons, this, &Substance_Fields::Edit_Horizons);
    rows.addRow(QString(), Command_hor);
    rows.addRow(Check_Hydrolysis = Named(new QCheckBox("De&gradation in liquid phase only"), "Check_Hydrolysis"));
}

Substance_Entry Substance_Fields::Entry() const
{
    Substance_Entry entry{.Name = Name->Typed(),
                          .Text_nhor = Text_nhor->Typed(),
                          .Kd_Direct = Option_koc1->isChecked(),
                          .Liquid_Only = Check_Hydrolysis->isChecked(),
                          .Kf_Enabled = Kf_Enabled};
    Boxes.Read(Number_Fields_Of_Substance, entry);
    for (std::size_t mode = 0; mode < tiefenabhaengig.size(); ++mode) {
        if (tiefenabhaengig[mode]->isChecked())
            entry.Depth_Mode = static_cast<int>(mode);
    }
    return entry;
}

void Substance_Fields::Show_Entry(const Substance_Entry& entry)
{
    Entry_Boxes::Show_Text(*Name, entry.Name);
    Boxes.Show(Number_Fields_Of_Substance, entry);
    Entry_Boxes::Show_Text(*Text_nhor, entry.Text_nhor);
    (entry.Kd_Direct ? Option_koc1 : Option_koc2)->setChecked(true);
    tiefenabhaengig.at(static_cast<std::size_t>(entry.Depth_Mode))->setChecked(true);
    Check_Hydrolysis->setChecked(entry.Liquid_Only);
    Kf_Enabled = entry.Kf_Enabled;
    Show_View();
}

void Substance_Fields::Show_View()
{
    const auto view = View_Of_Sorption(Entry());
    Rows_Of_Sorption->setRowVisible(Boxes["Text_koc0"], view.Koc_Visible);
    Rows_Of_Sorption->setRowVisible(Boxes["Text_koc1"], view.Koc_Visible);
    Rows_Of_Depth->setRowVisible(Text_nhor, view.Horizons_Visible);
    Rows_Of_Depth->setRowVisible(Command_hor, view.Command_hor_Visible);
    Option_koc1->setEnabled(view.Kf_Enabled);
    Option_koc2->setEnabled(view.Kf_Enabled);
}

// Only the metabolite form shows the note on moisture.
void Substance_Fields::Show_Notes()
{
    const auto notes = Notes_Of(The_Session.Pesticide, Substance);
    Rows_Of_Sorption->setRowVisible(label_pH, notes.label_pH);
    Rows_Of_Sorption->setRowVisible(Label_kinSorp, notes.Label_kinSorp);
    Rows_Of_Sorption->setRowVisible(Label_Sorption, notes.Label_Sorption && Substance != Active);
}

void Substance_Fields::Show_Minor(bool visible)
{
    for (const char* field : {"Text_koc4", "Text_koc5", "text_kdoc"})
        Rows_Of_Sorption->setRowVisible(Boxes[field], visible);
}

void Substance_Fields::Choose_Depth(int mode)
{
    auto entry = Entry();
    Choose_Depth_Mode(entry, mode);
    Show_Entry(entry);
}

// Only a typed number resets the table of depth-dependent values.
bool Substance_Fields::Leave_Horizons()
{
    if (!Text_nhor->isModified())
        return true;
    Text_nhor->setModified(false);
    auto entry = Entry();
    if (const auto refusal = Leave_Number_Of_Horizons(The_Session.Pesticide, entry)) {
        Guard->Refuse(The_Session.Ask, *refusal);
        Text_nhor->setModified(true); // leaving it again is refused again
        return false;
    }
    Show_Entry(entry);
    return true;
}

std::optional<Substance_Entry> Substance_Fields::Entered()
{
    if (!Leave_Horizons())
        return std::nullopt;
    return Entry();
}

void Substance_Fields::Edit_PH()
{
    KOC_PH form(The_Session, Substance, Boxes["Text_koc0"]->Typed(), &Form);
    if (form.exec() != QDialog::Accepted)
        return;
    auto entry = Entry();
    entry.Text_koc0 = form.Text_koc0();
    Show_Entry(entry);
    Show_Notes();
}

void Substance_Fields::Edit_Kinetics()
{
    if (kin_Sorption(The_Session, Substance, &Form).exec() == QDialog::Accepted)
        Show_Notes();
}

void Substance_Fields::Edit_Horizons()
{
    if (Leave_Horizons())
        Form_hor(The_Session, Substance, Horizons_Typed(Entry()), &Form).exec();
}

} // namespace orvel
