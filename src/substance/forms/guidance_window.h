#pragma once

#include "substance/guidance_check.h"

#include <functional>
#include <QDialog>

class QLabel;
class QTableWidget;

namespace orvel {

class Byte_Edit;

// What the guidance says against a document, and the reasons why it was kept.
class Guidance_Window : public QDialog {
    Q_OBJECT

public:
    struct Access {
        std::function<std::vector<Guidance_Finding>()> Check;
        std::function<bool(const Guidance_Answer&)> Keep; // false: it could not be, and the user has been told
    };
    explicit Guidance_Window(Access access, QWidget* parent = nullptr);

private:
    void Lay_Out();
    void Show_Findings();
    void Show_Answer();
    void Keep_Answer();
    int Row() const; // -1 for none

    Access The_Access;
    std::vector<Guidance_Finding> Findings;
    QLabel *Summary = nullptr, *Finding_Text = nullptr;
    QTableWidget* Grid = nullptr;
    Byte_Edit *Answer = nullptr, *Answered_By = nullptr;
    QPushButton* Keep = nullptr;
};

} // namespace orvel
