#pragma once

#include "charts/chart.h"
#include "core/message.h"

#include <QDialog>

class QHBoxLayout;
class QPushButton;
class QVBoxLayout;

namespace orvel {

class Chart_View;

// The base of all diagram forms: the diagram, and buttons that copy, print and save it. A form adds its choices above
// the buttons.
class Diagram_Form : public QDialog {
    Q_OBJECT

public:
    Diagram_Form(const QString& name, Ask_Function ask, QWidget* parent);

protected:
    void Show_Chart(Chart chart);
    const Chart& Shown_Chart() const;
    Chart_View& View() { return *Diagramm; }
    QVBoxLayout& Choices() { return *Above; }

    void Add_Button(QPushButton* button); // after the common buttons

private:
    void Kopieren();
    void Drucken();
    void Speichern();

    Ask_Function Ask;
    QVBoxLayout* Above = nullptr;
    QHBoxLayout* Buttons = nullptr;
    Chart_View* Diagramm = nullptr;
};

} // namespace orvel
