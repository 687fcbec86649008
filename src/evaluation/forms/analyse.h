#pragma once

#include "jobs/run_tree.h"
#include "runs/mode.h"

#include <QDialog>

class QComboBox;
class QFormLayout;
class QLabel;
class QLayout;
class QPushButton;

namespace orvel {

class Help_Assistant;
class Series_Choice;

// Picks one finished simulation of a mode and opens its tables and diagrams.
class Analyse : public QDialog {
    Q_OBJECT

public:
    Analyse(Session& session, const Mode& mode, QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void Lay_Out();
    QLayout* Lists();
    QLayout* Buttons();
    void Add_ERC(QFormLayout& rows);
    void Attach_Help();

    void Pestizidverzeichnis_Click();
    void Kulturverzeichnis_Click();
    void Szenarioverzeichnis_Click();
    void Select(const std::filesystem::path& run);
    void Look_For_Failure();
    void Report_Failure();

    void Liste_Click();
    void Konzentration_Click();
    void Balance_Click();
    void Echo_Click();
    void Zusammenfassung_Click();
    void Grafik_Click();
    void Command();

    std::filesystem::path Run_Directory() const; // empty if none is chosen

    Session& The_Session;
    const Mode& The_Mode;
    Help_Assistant* Assistant = nullptr;
    QComboBox *Pestizidverzeichnis = nullptr, *Kulturverzeichnis = nullptr, *Szenarioverzeichnis = nullptr,
              *ERC = nullptr;
    QLabel *Label1 = nullptr, *Label4 = nullptr, *Label6 = nullptr, *Datum = nullptr;
    Series_Choice* Series = nullptr;
    QPushButton *Liste = nullptr, *Grafik = nullptr, *Konzentration = nullptr, *Balance = nullptr, *Echo = nullptr,
                *Zusammenfassung = nullptr;
    QPushButton* OK = nullptr;
    bool Failed = false; // the chosen simulation failed, and the user has not seen the report yet
};

} // namespace orvel
