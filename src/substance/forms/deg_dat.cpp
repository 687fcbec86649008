#include "substance/forms/deg_dat.h"

#include "substance/forms/rate_box.h"
#include "substance/forms/sources.h"
#include "substance/pathway.h"
#include "substance/pathway_picture.h"
#include "ui/forms/done_cancel.h"
#include "ui/forms/number_edit.h"
#include "ui/forms/undo_history.h"
#include "ui/forms/widgets.h"

#include <QButtonGroup>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QRadioButton>

namespace orvel {

deg_dat::deg_dat(Session& session, QWidget* parent) : QDialog(parent), The_Session(session)
{
    const int t = The_Session.Editor.Transformation_Index;
    setObjectName("deg_dat");
    setWindowTitle(Shown(Transformation_Caption(t)));
    Lay_Out();
    const auto entry = Load_Transformation(The_Session.Pesticide, t);
    Soil->Show_Rate(entry.Soil);
    Soil->Select_Rate();
    Photolysis->Show_Rate(entry.Photolysis);
    Photolysis->setVisible(Shows_Photolysis(t));
    Text13->setText(Shown(entry.Reference_Radiation));
    Korrektur[static_cast<std::size_t>(Recognise_Correction(entry.Correction))]->setChecked(true);
    Show_Correction(entry.Correction, Enabled_On_Activation(entry.Correction));
    Show_Sources(*this, Arrow_Of(t).Source, Arrow_Of(t).Row);
    At_First = Present();
    Keep_History(
        *this, [this] { return Present(); }, [this](const State& state) { Show_State(state); });
}

deg_dat::State deg_dat::Present() const
{
    return {.Soil = Soil->Present(),
            .Photolysis = Photolysis->Present(),
            .Reference_Radiation = Text13->Typed(),
            .Preset = Preset(),
            .Texts = Correction_Typed(),
            .Enabled = Enabled};
}

void deg_dat::Show_State(const State& state)
{
    Soil->Show_State(state.Soil);
    Photolysis->Show_State(state.Photolysis);
    Text13->setText(Shown(state.Reference_Radiation));
    Korrektur.at(static_cast<std::size_t>(state.Preset))->setChecked(true);
    Show_Correction(state.Texts, state.Enabled);
}

void deg_dat::Lay_Out()
{
    Soil = new Rate_Box("Biodegradation in soil", {"Option1", "Option2", "Option3"}, {"Text1", "Text2", "Text3"});
    auto* rates = new QVBoxLayout;
    rates->addWidget(Soil);
    rates->addWidget(Photolysis_Box());
    rates->addStretch(1);
    auto* boxes = new QHBoxLayout;
    boxes->addLayout(rates, 1);
    boxes->addWidget(Correction_Box(), 1);
    auto* all = new QVBoxLayout(this);
    all->addLayout(boxes, 1);
    all->addWidget(Done_And_Cancel(*this, The_Session.Ask, &deg_dat::Done, "Command1", "&OK"));
}

Rate_Box* deg_dat::Photolysis_Box()
{
    Photolysis =
        Named(new Rate_Box("Soil photolysis", {"Option8", "Option7", "Option6"}, {"Text10", "Text11", "Text12"}),
              "Photolysis");
    Text13 = Named(new Number_Edit, "Text13");
    Photolysis->Add_Row(QString::fromUtf8("Reference radiation (W/m²)"), Text13);
    return Photolysis;
}

QGroupBox* deg_dat::Correction_Box()
{
    auto* group = new QGroupBox("Rate correction in soil");
    auto* rows = new QFormLayout(group);
    auto* presets = new QButtonGroup(this);
    constexpr std::array<const char*, 3> captions = {"&Recommended correction", "&No correction",
                                                     "&Individual correction"};
    for (std::size_t i = 0; i < Korrektur.size(); ++i) {
        Korrektur[i] = Named(new QRadioButton(captions[i]), QString("Korrektur_%1").arg(i));
        presets->addButton(Korrektur[i], static_cast<int>(i));
        rows->addRow(Korrektur[i]);
    }
    rows->addRow(QString::fromUtf8("&Temp. during study (°C): "), Text4 = Named(new Number_Edit, "Text4"));
    rows->addRow("&Q10-Value", Text8 = Named(new Number_Edit, "Text8"));
    rows->addRow(Option4 = Named(new QRadioButton("rel. moisture during study"), "Option4"),
                 Text6 = Named(new Number_Edit("% FC"), "Text6"));
    rows->addRow(Option5 = Named(new QRadioButton("abs. moisture during study"), "Option5"),
                 Text5 = Named(new Number_Edit("Vol %"), "Text5"));
    rows->addRow("&Moisture exponent", Text7 = Named(new Number_Edit, "Text7"));
    rows->addRow("rel. deg. at neq. &sites:", Text9 = Named(new Number_Edit, "Text9"));
    Text6->setAccessibleName(Option4->text());
    Text5->setAccessibleName(Option5->text());
    auto* moistures = new QButtonGroup(this);
    moistures->addButton(Option4);
    moistures->addButton(Option5);

    connect(presets, &QButtonGroup::idClicked, this,
            [this](int preset) { Choose_Preset(static_cast<Correction>(preset)); });
    connect(Option4, &QRadioButton::clicked, this, [this] { Choose_Moisture_Option(true); });
    connect(Option5, &QRadioButton::clicked, this, [this] { Choose_Moisture_Option(false); });
    connect(Text5, &QLineEdit::editingFinished, this, &deg_dat::Leave_Moistures);
    connect(Text6, &QLineEdit::editingFinished, this, &deg_dat::Leave_Moistures);
    return group;
}

Correction_Texts deg_dat::Correction_Typed() const
{
    return {.Temperature = Text4->Typed(),
            .Q10 = Text8->Typed(),
            .Moisture_Abs = Text5->Typed(),
            .Moisture_Rel = Text6->Typed(),
            .Moisture_Exp = Text7->Typed(),
            .Neq = Text9->Typed(),
            .By_Relative_Moisture = Option4->isChecked()};
}

void deg_dat::Show_Correction(const Correction_Texts& texts, const Correction_Enabled& enabled)
{
    Text4->setText(Shown(texts.Temperature));
    Text8->setText(Shown(texts.Q10));
    Text5->setText(Shown(texts.Moisture_Abs));
    Text6->setText(Shown(texts.Moisture_Rel));
    Text7->setText(Shown(texts.Moisture_Exp));
    Text9->setText(Shown(texts.Neq));
    (texts.By_Relative_Moisture ? Option4 : Option5)->setChecked(true);
    Enabled = enabled;
    for (auto* field : {Text4, Text8, Text7})
        field->setEnabled(enabled.Conditions);
    Text5->setEnabled(enabled.Moisture_Abs);
    Text6->setEnabled(enabled.Moisture_Rel);
    Option4->setEnabled(enabled.Moisture_Options);
    Option5->setEnabled(enabled.Moisture_Options);
}

Correction deg_dat::Preset() const
{
    std::size_t chosen = 0;
    while (!Korrektur.at(chosen)->isChecked())
        ++chosen;
    return static_cast<Correction>(chosen);
}

void deg_dat::Choose_Preset(Correction preset)
{
    auto texts = Correction_Typed();
    const auto enabled = Choose_Correction(texts, preset);
    Show_Correction(texts, enabled);
}

void deg_dat::Choose_Moisture_Option(bool relative)
{
    auto texts = Correction_Typed();
    const auto enabled = Choose_Moisture(texts, relative, Preset());
    Show_Correction(texts, enabled);
}

// Only a typed moisture clears the other one.
void deg_dat::Leave_Moistures()
{
    Leave_Moisture(*Text5, Leave_Absolute_Moisture);
    Leave_Moisture(*Text6, Leave_Relative_Moisture);
}

void deg_dat::Leave_Moisture(Number_Edit& field, void (*leave)(Correction_Texts&))
{
    if (!field.isModified())
        return;
    field.setModified(false);
    auto texts = Correction_Typed();
    leave(texts);
    Text5->setText(Shown(texts.Moisture_Abs));
    Text6->setText(Shown(texts.Moisture_Rel));
}

// With what is still being typed.
Transformation_Entry deg_dat::Entry() const
{
    auto correction = Correction_Typed();
    if (Text5->isModified())
        Leave_Absolute_Moisture(correction);
    if (Text6->isModified())
        Leave_Relative_Moisture(correction);
    return {Soil->Entered(), Photolysis->Entered(), Text13->Typed(), correction};
}

void deg_dat::Take_Over_Entries(Session& session) const
{
    if (Present() != At_First)
        Store_Half_Typed(session, Entry());
}

void deg_dat::Done()
{
    Accept_Transformation(The_Session, Entry());
    accept();
}

} // namespace orvel
