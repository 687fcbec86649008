#pragma once

#include "core/session.h"
#include "files/watched_file.h"
#include "ui/forms/entries_under_edit.h"

#include <filesystem>
#include <QDialog>

class QLineEdit;

namespace orvel {

class Byte_Edit;
class Climate_Model;
class Number_Grid;

// The editor of the session's climate table.
class Klima : public QDialog, public Entries_Under_Edit {
    Q_OBJECT

public:
    // `directory` is that of the open file.
    Klima(Session& session, std::filesystem::path directory, QWidget* parent = nullptr);

    void lade_klimadatei();
    void Take_Over_Entries(Session& session) const override;
    void done(int result) override;

    // The session's document is now one with changes that were not saved before.
    void Show_Unsaved();

private:
    void Lay_Out();
    void Show_Cell();
    void Append_Day();
    void Save();
    void Grafik_Click();

    Session& The_Session;
    std::filesystem::path Directory;
    Watched_File On_Disk;
    Climate_Model* Model = nullptr;
    Number_Grid* Grid1 = nullptr;
    QLineEdit* Text1 = nullptr;
    Byte_Edit* Cli_Title = nullptr;
};

} // namespace orvel
