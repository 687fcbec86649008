#include "evaluation/forms/series_window.h"

#include "core/run_name.h"
#include "evaluation/forms/series_choice.h"
#include "ui/forms/command_box.h"
#include "ui/forms/form_keys.h"
#include "ui/forms/widgets.h"

#include <QHBoxLayout>

namespace orvel {

Series_Window::Series_Window(Session& session, const std::filesystem::path& run_directory, QWidget* parent)
    : QDialog(parent),
      The_Session(session),
      Run(run_directory)
{
    setObjectName("Series_Window");
    setWindowTitle("Daily diagram: " + Shown(Run_Title(run_directory)));
    Series = new Series_Choice;
    Series->Show_Run(Run);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(Push_Button("Grafik", "S&how Diagram", this, &Series_Window::Show_Diagram));
    buttons->addWidget(Command_Button(this, [this] { return std::vector{Series->Command(The_Session, Run)}; }));
    buttons->addStretch(1);
    buttons->addWidget(Push_Button("OK", "&Done", this, &QDialog::accept));
    auto* all = new QVBoxLayout(this);
    all->addWidget(Series);
    all->addStretch(1);
    all->addLayout(buttons);
    Use_Form_Keys(*this);
}

void Series_Window::Show_Diagram()
{
    Series->Show_Diagram(The_Session, Run, false, this);
}

} // namespace orvel
