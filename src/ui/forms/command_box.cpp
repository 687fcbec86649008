#include "ui/forms/command_box.h"

#include "ui/forms/form_keys.h"
#include "ui/forms/text_output.h"
#include "ui/forms/widgets.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

namespace orvel {

void Show_Command(QWidget* parent, const std::vector<std::string>& lines)
{
    QDialog box(parent);
    box.setObjectName("Copy_As_Command");
    box.setWindowTitle("Copy as command");
    QStringList shown;
    for (const auto& line : lines)
        shown << QString::fromStdString(line);
    auto* text = Fixed_Pitch_Text("Commands", "What does the same on a command line");
    text->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    text->setPlainText(shown.join("\n"));
    text->setMinimumSize(box.fontMetrics().averageCharWidth() * 90, box.fontMetrics().lineSpacing() * 7);
    auto* label = new QLabel("On a command line the same is done by:");
    label->setBuddy(text);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(Push_Button("Kopieren", "&Copy", &box, [text] { Copy_Text(text->toPlainText()); }));
    buttons->addStretch(1);
    buttons->addWidget(Push_Button("Done", "&Done", &box, &QDialog::accept));
    auto* all = new QVBoxLayout(&box);
    all->addWidget(label);
    all->addWidget(text, 1);
    all->addLayout(buttons);
    Use_Form_Keys(box);
    box.exec();
}

QPushButton* Command_Button(QWidget* parent, std::function<std::vector<std::string>()> lines)
{
    auto* button = Push_Button("Befehl", "Copy as comma&nd", parent,
                               [parent, lines = std::move(lines)] { Show_Command(parent, lines()); });
    button->setToolTip("The lines that do the same on a command line");
    return button;
}

} // namespace orvel
