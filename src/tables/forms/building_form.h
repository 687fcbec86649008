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

constexpr int Columns_Shown = 92; // of a text, as long as the form keeps its first size

// A form that builds what it shows out of big files, behind its first paint: with a message and a bar, the buttons off,
// and closing it stops the work.
class Building_Form : public QDialog {
    Q_OBJECT

public:
    void done(int result) override;

protected:
    Building_Form(const QString& name, QWidget* parent, int columns_shown = Columns_Shown);

    virtual void Build(const Progress& progress) = 0;
    virtual void Show_Built() = 0; // not called if the user stopped the work

    void Add_Page(QWidget* page);
    void Show_Page(std::size_t page);

    // A button of the row below, in the order of the calls; off during the work.
    template <class Handler> QPushButton* Add_Button(const QString& name, const QString& caption, Handler handler)
    {
        auto* button = New_Button(name, caption);
        connect(button, &QPushButton::clicked, this, handler);
        return button;
    }
    void Add_Done(); // the last button

    void Note(const std::string& sentence); // below the pages; none for an empty one

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

// A progress that gives the windows a turn to paint themselves, but not the user.
bool Stay_Painted(const std::string& message, double share);

} // namespace orvel
