#include "scenario/forms/save_as.h"

#include "core/files.h"
#include "core/forms/widgets.h"
#include "files/broken_line.h"
#include "files/file_messages.h"

#include <QFileDialog>

namespace {

QString Ending_Of(Document_Kind kind)
{
    return kind == Document_Kind::Scenario ? "sze" : "cli";
}

bool May_Write(Session& session, Document_Kind kind, const std::filesystem::path& target)
{
    if (const auto field = Broken_Field(session, kind); field && session.Ask(Broken_Line_Question(*field)) != Button::Yes)
        return false;
    const Message replace{std::string(Saving_Input_File), "File already exists. Replace?", Icon::Question, {Button::Yes, Button::No}, Button::No};
    return !std::filesystem::exists(target) || session.Ask(replace) == Button::Yes;
}

} // namespace

bool Save_As(Session& session, Document_Kind kind, const QString& caption, const std::filesystem::path& directory, QWidget* parent)
{
    QFileDialog dialog(parent, caption, QString::fromStdString(directory.string()), "*." + Ending_Of(kind));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setOption(QFileDialog::DontConfirmOverwrite); // asked below, in the words of this program
    dialog.setDefaultSuffix(Ending_Of(kind));
    if (!session.Program.PSM_File.starts_with('*'))
        dialog.selectFile(Shown(session.Program.PSM_File));
    if (dialog.exec() != QDialog::Accepted)
        return false;

    const std::filesystem::path target = dialog.selectedFiles().value(0).toStdString();
    if (Kind_Of(target) != kind) {
        session.Ask({std::string(Saving_Input_File), "The name of this file must end in ." + Ending_Of(kind).toStdString() + "."});
        return false;
    }
    if (!May_Write(session, kind, target) || !Save_Document(session, target))
        return false;
    session.Program.PSM_File = Name_Of(target.filename()).value_or(target.filename().string());
    (kind == Document_Kind::Scenario ? session.Program.SZE_Changed : session.Program.CLI_Changed) = false;
    return true;
}
