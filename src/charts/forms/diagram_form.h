#pragma once

#include "charts/chart.h"
#include "core/message.h"

#include <filesystem>
#include <QDialog>
#include <string>

class QHBoxLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace orvel {

class Chart_View;

// The base of all diagram forms: the diagram, its texts as labels, and buttons that copy, print and save it. A form
// adds its choices above the buttons.
class Diagram_Form : public QDialog {
    Q_OBJECT

public:
    Diagram_Form(const QString& name, Ask_Function ask, QWidget* parent);

    // The run that the diagram is of: it begins the name proposed for its picture.
    void Name_Run(const std::filesystem::path& run_directory);

    // Adds a button that shows the line with which orvelctl gives the same figures.
    void Offer_Command(const std::string& line);

protected:
    void Show_Chart(Chart chart);
    const Chart& Shown_Chart() const;
    Chart_View& View() { return *Diagramm; }
    QVBoxLayout& Choices() { return *Above; }

    void Add_Button(QPushButton* button); // after the common buttons

    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

    // Where a form shows the key of its chart.
    QLabel* Key = nullptr;

private:
    void Kopieren();
    void Drucken();
    void Speichern();

    void Show_Texts(const Chart& chart);
    void Keep_Texts_Apart();

    Ask_Function Ask;
    std::string Run;
    QLabel *Diagrammtitel = nullptr, *Legende = nullptr, *Name_x_Achse = nullptr;
    QVBoxLayout* Above = nullptr;
    QHBoxLayout* Buttons = nullptr;
    Chart_View* Diagramm = nullptr;
};

} // namespace orvel
