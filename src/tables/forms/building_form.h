#pragma once

#include "core/progress.h"

#include <QDialog>
#include <QPushButton>
#include <vector>

class QHBoxLayout;
class QLabel;
class QProgressBar;
class QStackedWidget;

namespace orvel {

constexpr int Table_Columns = 102; // of a text, at the form's initial size

// A form that builds its content from big files after its first paint, with a message, a progress bar and the buttons
// disabled; closing it stops the work.
class Building_Form : public QDialog {
    Q_OBJECT

public:
    void done(int result) override;

protected:
    Building_Form(const QString& name, QWidget* parent, int columns_shown = Table_Columns);

    virtual void Build(const Progress& progress) = 0;
    virtual void Show_Built() = 0; // not called if the user stopped the work

    void Add_Page(QWidget* page);
    void Show_Page(std::size_t page);

    // Adds a button to the row below, in the order of the calls; disabled during the work.
    template <class Handler> QPushButton* Add_Button(const QString& name, const QString& caption, Handler handler)
    {
        auto* button = New_Button(name, caption);
        connect(button, &QPushButton::clicked, this, handler);
        return button;
    }
    void Add_Done(); // the last button

    void Note(const std::string& sentence); // shown below the pages; an empty one is not shown

    void showEvent(QShowEvent* event) override;

private:
    QPushButton* New_Button(const QString& name, const QString& caption);
    void Run_Build();
    bool Show_Progress(const std::string& text, double share);
    void Set_Busy(bool busy);

    std::vector<QPushButton*> Buttons;
    QStackedWidget* Pages = nullptr;
    QHBoxLayout* Row = nullptr;
    QLabel* Nachricht = nullptr;
    QProgressBar* Waiting = nullptr;
    bool Built = false;
    bool Stopped = false;
    bool Busy = false;
};

// A progress callback that lets windows repaint but does not process user input.
bool Stay_Painted(const std::string& message, double share);

} // namespace orvel
