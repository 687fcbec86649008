#pragma once

#include "core/session.h"
#include "files/forms/notes_under_edit.h"
#include "files/watched_file.h"
#include "substance/forms/sources.h"

#include <filesystem>
#include <memory>
#include <QDialog>

class QHBoxLayout;

namespace orvel {

class Pathway_View;
class Undo_Keys;

// The editor of the pesticide document: its degradation scheme, with access to the substance and transformation forms.
class Form_PSM_1 : public QDialog, public Notes_Under_Edit {
    Q_OBJECT

public:
    // `directory` is where the save dialog opens.
    Form_PSM_1(Session& session, const std::filesystem::path& directory, QWidget* parent = nullptr);

    void reject() override; // asks before discarding changes

    // The session's document is now one with changes that were not saved before, and so are the notes.
    void Show_Unsaved(Document_Notes notes);
    void Take_Over_Notes(Document_Notes& notes) const override;

private:
    struct State {
        Pesticide_Document Document;
        Per_Substance<std::string> Captions;
        bool operator==(const State& other) const { return Document == other.Document; }
    };

    void Lay_Out();
    void Show_Scheme();
    void Show_Changed(const std::string& what);
    void Edit_Substance(int i);
    void Edit_Transformation(int t);
    bool Save();
    void Save_And_Exit();
    void Check_Guidance_Rules();

    Session& The_Session;
    std::filesystem::path Directory;
    Watched_File On_Disk;
    std::unique_ptr<const Pesticide_Document> Opened; // or saved last
    Edited_Notes Notes;
    Per_Substance<std::string> Captions;
    Pathway_View* View = nullptr;
    QHBoxLayout* Buttons = nullptr;
    Undo_Keys* History = nullptr;
};

} // namespace orvel
