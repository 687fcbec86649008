#pragma once

#include "core/session.h"
#include "evaluation/utility_table.h"

#include <array>
#include <filesystem>
#include <optional>
#include <QDialog>
#include <QTimer>

class QComboBox;
class QLabel;
class QLayout;
class QListWidget;
class QPushButton;

namespace orvel {

class Path_Label;
class Series_Choice;

// The input and output files of any directory, and the tables and diagrams of a single run there.
class inout_sel : public QDialog {
    Q_OBJECT

public:
    inout_sel(Session& session, QWidget* parent = nullptr);

private:
    void Lay_Out();
    QLayout* Directory_Lists();
    QLayout* File_Lists();
    QLayout* Buttons();
    QListWidget* List(const QString& name, const QString& purpose);

    void Go_To(const std::filesystem::path& directory);
    void Step_Into();
    void List_Files_Of_Directory();
    void Show_Chosen(const QListWidget& list);
    void Show_Utility_Table(Utility utility);
    void Tick();
    void Echo_Click();
    void Grafik_Click();
    std::vector<std::string> Commands() const;

    Session& The_Session;
    std::filesystem::path Directory;
    std::optional<int> Utility_At_Work;  // its process id
    std::filesystem::path Utility_Place; // its directory: the user may have gone to another one
    QComboBox* Laufwerk = nullptr;
    Path_Label* Pfad = nullptr;
    QLabel* Nachricht = nullptr;
    QListWidget* Verzeichnisliste = nullptr;
    std::array<QListWidget*, 4> Files{}; // File_psm, File_sze, File_cli, File_orv
    Series_Choice* Series = nullptr;
    QPushButton *S_Jaehrlich = nullptr, *S_Monatlich = nullptr, *S_Taeglich = nullptr, *s_Echo = nullptr,
                *Grafik = nullptr, *Befehl = nullptr;
    QTimer Timer1;
};

} // namespace orvel
