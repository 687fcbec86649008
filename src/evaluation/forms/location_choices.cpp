#include "evaluation/forms/location_choices.h"

#include "core/locations.h"
#include "ui/forms/form_keys.h"
#include "ui/forms/widgets.h"

#include <algorithm>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>

namespace orvel {

Location_Choices::Location_Choices(const Overview_Settings& settings, QWidget* parent)
    : QDialog(parent),
      Settings(settings)
{
    setObjectName("Location_Choices");
    setWindowTitle("Locations that count");
    Lay_Out();
    Show_Choice();
}

void Location_Choices::Lay_Out()
{
    Name = Named(new QComboBox, "Choice_Name");
    Name->setEditable(true);
    Name->setInsertPolicy(QComboBox::NoInsert);
    Name->setAccessibleName("Name of the choice");
    for (const auto& choice : Settings.Choices)
        Name->addItem(Shown(choice.Name));
    Name->setCurrentText(Shown(Settings.Chosen));
    connect(Name, &QComboBox::activated, this, &Location_Choices::Show_Choice);
    auto* label = new QLabel("&Name:");
    label->setBuddy(Name);
    List = Named(new QListWidget, "Choice_Locations");
    List->setAccessibleName("Locations");
    for (const auto& location : Locations) {
        auto* item = new QListWidgetItem(Shown(location.Name), List);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        item->setCheckState(Qt::Unchecked);
    }
    List->setMinimumHeight(fontMetrics().lineSpacing() * 20);

    auto* named = new QHBoxLayout;
    named->addWidget(label);
    named->addWidget(Name, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(Push_Button("Keep", "&Keep", this, &Location_Choices::Keep));
    buttons->addWidget(Push_Button("Remove", "&Remove", this, &Location_Choices::Remove));
    buttons->addStretch(1);
    buttons->addWidget(Push_Button("Done", "&Done", this, &QDialog::accept));
    auto* all = new QVBoxLayout(this);
    all->addLayout(named);
    all->addWidget(List, 1);
    all->addLayout(buttons);
    Use_Form_Keys(*this);
}

void Location_Choices::Show_Choice()
{
    Settings.Chosen = Bytes_Of(Name->currentText());
    const auto codes = Chosen_Codes(Settings);
    for (int row = 0; row < List->count(); ++row) {
        const std::string code(Locations[static_cast<std::size_t>(row)].Code);
        const bool counts = std::ranges::find(codes, code) != codes.end();
        List->item(row)->setCheckState(counts ? Qt::Checked : Qt::Unchecked);
    }
}

void Location_Choices::Keep()
{
    Location_Choice choice{.Name = Bytes_Of(Name->currentText().trimmed()), .Codes = {}};
    for (int row = 0; row < List->count(); ++row) {
        if (List->item(row)->checkState() == Qt::Checked)
            choice.Codes.emplace_back(Locations[static_cast<std::size_t>(row)].Code);
    }
    if (choice.Name.empty() || choice.Codes.empty())
        return;
    Settings.Chosen = choice.Name;
    const auto known = std::ranges::find(Settings.Choices, choice.Name, &Location_Choice::Name);
    if (known != Settings.Choices.end()) {
        *known = std::move(choice);
        return;
    }
    Name->addItem(Shown(choice.Name));
    Settings.Choices.push_back(std::move(choice));
}

void Location_Choices::Remove()
{
    const std::string name = Bytes_Of(Name->currentText());
    std::erase_if(Settings.Choices, [&](const Location_Choice& choice) { return choice.Name == name; });
    Name->removeItem(Name->findText(Shown(name)));
    Name->setCurrentText({});
    Show_Choice();
}

} // namespace orvel
