#include "desktop/forms/welcome.h"

#include "desktop/forms/own_picture.h"
#include "desktop/places.h"
#include "ui/forms/form_keys.h"
#include "ui/forms/widgets.h"

#include <QCheckBox>
#include <QDir>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace orvel {

namespace {

constexpr const char* Purpose =
    "ORVELSUITE assesses how far a plant protection product and its metabolites move through soil into groundwater: it "
    "edits substances, scenarios and weather, runs the leaching engine over the FOCUS and EFSA scenarios, and turns "
    "its "
    "output into leachate tables with the 80th percentile, balances, soil concentrations, charts and the report.";
constexpr const char* About_Installations =
    "It works in an installation: a directory of yours with the engine, scenarios, weather and your pesticide files. "
    "There is none yet. A new one has demonstration data, with which a first assessment takes a few minutes.";
constexpr int Text_Width = 80; // in characters

QLabel* Paragraph(const char* text)
{
    auto* label = new QLabel(text);
    label->setWordWrap(true);
    label->setMinimumWidth(label->fontMetrics().averageCharWidth() * Text_Width);
    return label;
}

} // namespace

Welcome::Welcome(std::vector<std::filesystem::path> parts, Ask_Function ask, const std::filesystem::path& suggested)
    : Parts(std::move(parts)),
      Ask(std::move(ask))
{
    setObjectName("Welcome");
    setWindowTitle("ORVELSUITE");
    setWindowIcon(Own_Picture("orvelsuite"));
    auto* sign = new QLabel;
    sign->setPixmap(Own_Picture("orvelsuite").pixmap(QSize(64, 64)));
    auto* place = Named(new QLineEdit(QString::fromStdString(suggested.string())), "Place");
    auto* label = new QLabel("&Directory:");
    label->setBuddy(place);
    auto* choose = Push_Button("Choose_Place", "&Choose ...", this, [this, place] {
        const auto chosen = QFileDialog::getExistingDirectory(this, "Directory of the new installation", place->text());
        if (!chosen.isEmpty())
            place->setText(chosen);
    });
    auto* guide = Named(new QCheckBox("&Show me the way through a first assessment"), "Guide");
    guide->setChecked(true);
    auto* make = Push_Button("Make", "&Make an installation", this, &Welcome::Make);
    auto* open = Push_Button("Open", "&Open an installation ...", this, &Welcome::Open_Existing);
    auto* end = Push_Button("Done", "E&xit", this, &QDialog::reject);

    auto* head = new QHBoxLayout;
    head->addWidget(sign, 0, Qt::AlignTop);
    head->addWidget(Paragraph(Purpose), 1);
    auto* row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(place, 1);
    row->addWidget(choose);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(make);
    buttons->addWidget(open);
    buttons->addStretch(1);
    buttons->addWidget(end);
    auto* all = new QVBoxLayout(this);
    all->setSpacing(all->spacing() * 2);
    all->addLayout(head);
    all->addWidget(Paragraph(About_Installations));
    all->addLayout(row);
    all->addWidget(guide);
    all->addLayout(buttons);
    Use_Form_Keys(*this);
}

void Welcome::Make()
{
    const auto place = findChild<QLineEdit*>("Place")->text();
    const Hourglass waiting;
    const auto made = Installation_In(place.toStdString(), Parts, Ask);
    if (!made)
        return;
    Chosen = *made;
    Guided = findChild<QCheckBox*>("Guide")->isChecked();
    accept();
}

void Welcome::Open_Existing()
{
    const auto chosen = QFileDialog::getExistingDirectory(this, "Directory of an installation", QDir::homePath());
    if (chosen.isEmpty())
        return;
    if (!Is_Installation(chosen.toStdString())) {
        Ask({"ORVELSUITE", Bytes_Of(chosen) + " is no installation of ORVELSUITE: it has no focus/c_apples.sze."});
        return;
    }
    Chosen = chosen.toStdString();
    accept();
}

} // namespace orvel
