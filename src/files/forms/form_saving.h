#pragma once

#include "core/session.h"
#include "files/document_kind.h"
#include "files/watched_file.h"

#include <filesystem>
#include <QDialog>

class QLineEdit;

namespace orvel {

class Directory_Files;

// The save dialog of all documents. It is accepted when the document is written; the session's file name is then that
// of the file.
class Form_Saving : public QDialog {
    Q_OBJECT

public:
    // `opened` is what the document was opened from; the user is asked before somebody else's change of it is lost.
    Form_Saving(Session& session, Document_Kind kind, const std::filesystem::path& directory, QWidget* parent = nullptr,
                const Watched_File* opened = nullptr);

    const std::filesystem::path& Save_Target() const { return Target; } // where the document was written

private:
    void Lay_Out(const std::filesystem::path& directory);
    void Save();
    bool Name_Is_Usable(const std::string& name);
    std::string Question() const;
    bool May_Write();

    Session& The_Session;
    const Document_Type& Type;
    const Watched_File* Opened;
    std::filesystem::path Target;
    Directory_Files* Files = nullptr;
    QLineEdit* TextSave = nullptr;
};

} // namespace orvel
