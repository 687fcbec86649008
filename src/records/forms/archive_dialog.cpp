#include "records/forms/archive_dialog.h"

#include "records/archive.h"
#include "records/forms/work_in_window.h"
#include "ui/forms/widgets.h"

#include <QFileDialog>

namespace orvel {

namespace {

constexpr const char* Title = "Archive";

// Empty if the user gave none.
std::filesystem::path Chosen_File(const std::string& proposed, QWidget* parent)
{
    QFileDialog dialog(parent, "Archive simulations", {}, "Archive (*.zip)");
    dialog.setObjectName("Save_Archive");
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix("zip");
    dialog.selectFile(Shown(proposed));
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0).toStdString() : std::string();
}

} // namespace

void Archive_In_Window(Session& session, const Mode& mode, const std::string& pesticide, const std::string& crop,
                       QWidget* parent)
{
    const auto file = Chosen_File(Archive_File_Name(pesticide, crop), parent);
    if (file.empty())
        return;
    Archived_Assessment archived;
    const bool done = Do_In_Window(parent, session.Ask, Title, [&](const Progress& progress) {
        archived = Make_Archive(session, mode, pesticide, crop, file, progress);
    });
    if (done)
        session.Ask(Archive_Message(archived));
}

} // namespace orvel
