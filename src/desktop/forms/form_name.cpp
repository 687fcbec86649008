#include "desktop/forms/form_name.h"

#include "core/version.h"
#include "desktop/forms/installation_check.h"
#include "records/forms/work_in_window.h"
#include "runs/start_up.h"
#include "ui/forms/path_label.h"
#include "ui/forms/widgets.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace orvel {

namespace {

constexpr int Path_Columns = 60; // of the installation's path

} // namespace

Form_name::Form_name(const Session& session, QWidget* parent) : QDialog(parent)
{
    setObjectName("Form_name");
    setWindowTitle("ORVELSUITE");
    const auto& program = session.Program;
    auto* rows = new QFormLayout;
    const auto add = [&](const QString& caption, const QString& text) {
        auto* label = new QLabel(text);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
        rows->addRow(caption, label);
    };
    add("Program:", Shown(Program_Text));
    add("Engine:", Shown(program.Aktuelle_ORVEL_Version));
    add("Engine file:", program.Engine_Exe.empty() ? "none found" : QString::fromStdString(program.Engine_Exe));
    const std::string scenarios = Scenario_Version(program, Mode_Of(Mode_Kind::Focus));
    add("Scenario data:", scenarios.empty() ? "none found" : Shown("version " + scenarios));
    auto* place = new Path_Label("Installation");
    place->Show(program.App_Path);
    rows->addRow("Installation:", place);

    auto* ok = Push_Button("OK", "&OK", this, &QDialog::accept);
    ok->setDefault(true);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(
        Push_Button("Check_Installation", "&Check the installation", this, [this, &session] { Check(session); }));
    buttons->addStretch(1);
    buttons->addWidget(ok);
    auto* all = new QVBoxLayout(this);
    all->addLayout(rows);
    all->addLayout(buttons);
    resize(fontMetrics().averageCharWidth() * Path_Columns, sizeHint().height());
}

void Form_name::Check(const Session& session)
{
    std::vector<Finding> findings;
    const Program_State program = session.Program;
    if (Do_In_Window(this, session.Ask, "Check the installation",
                     [&](const Progress&) { findings = Examine(program); }))
        Installation_Check(findings, this).exec();
}

} // namespace orvel
