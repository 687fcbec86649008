#pragma once

#include "core/session.h"

#include <filesystem>
#include <QDialog>

class Climate_Model;
class QLineEdit;
class QTableView;

// The editor of the session's climate table. Its grid is what is saved.
class Klima : public QDialog {
    Q_OBJECT

public:
    // `directory` is that of the file shown.
    Klima(Session& session, std::filesystem::path directory, QWidget* parent = nullptr);

    void lade_klimadatei();

    void done(int result) override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Lay_Out();
    void Show_Cell();
    void Save();
    void Grafik_Click();
    void Copy();
    void Paste();

    Session& Shared;
    std::filesystem::path Directory;
    Climate_Model* Model = nullptr;
    QTableView* Grid1 = nullptr;
    QLineEdit *Text1 = nullptr, *Cli_Title = nullptr;
};
