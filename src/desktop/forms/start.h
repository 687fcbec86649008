#pragma once

#include "core/session.h"
#include "desktop/forms/update_fetch.h"
#include "runs/mode.h"
#include "runs/start_up.h"

#include <QWidget>

class QGroupBox;
class QLabel;
class QLayout;
class QPushButton;
class QToolButton;

namespace orvel {

class Help_Assistant;

// The main window: the three kinds of document and the four kinds of run. Closing it ends the program.
class Start : public QWidget {
    Q_OBJECT

public:
    // Start_Up has been called for the session; `dropped` is what the program did not leave pending.
    explicit Start(Session& session, std::optional<Dropped_Batch> dropped = {});

protected:
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Lay_Out();
    QLayout* Banner();
    QLayout* Pictures();
    QLayout* Documents();
    QLayout* Foot();
    QWidget* Dropped_Row();
    void Put_Back();
    QPushButton* Unsaved();
    void Show_Unsaved();
    QLabel* Version_Label(const QString& name, const std::string& caption);
    void Activate();
    void Open_Pesticide();
    void Open_Scenario();
    void Open_Climate();
    void Open_Single_Run();
    void Open_Runs(Mode_Kind kind);
    void Open_FOCUS();
    void Open_EFSA();
    void Open_EFSA_T4();
    void Release_Notes();
    void Open_Archives();
    void Open_Documents(const std::string& mask, const QString& caption, const std::filesystem::path& directory);

    Session& The_Session;
    const std::optional<Dropped_Batch> Dropped;
    Help_Assistant* Assistant = nullptr;
    Update_Fetch Update;
    QToolButton *Image1 = nullptr, *Image2 = nullptr, *Image3 = nullptr, *Image4 = nullptr;
    QPushButton *Command1 = nullptr, *Command2 = nullptr, *Command6 = nullptr, *Command3 = nullptr, *Command4 = nullptr,
                *Unsaved_Button = nullptr;
    QLabel *Aktuelle_ORVEL_Version = nullptr, *Aktuelle_ORVELSUITE_Version = nullptr;
    QGroupBox* Nachricht = nullptr;
    QLabel* Dropped_Note = nullptr;
    QPushButton* Put_Back_Button = nullptr;
    bool Protected_In_Vain = false; // protecting failed once; do not try again
};

} // namespace orvel
