#pragma once

#include "files/forms/notes_under_edit.h"
#include "substance/guidance_check.h"

#include <functional>
#include <optional>
#include <QDialog>

class QLabel;
class QTableWidget;

namespace orvel {

class Byte_Edit;

// What the guidance says against a document, and the reasons why it was kept.
class Guidance_Window : public QDialog, public Notes_Under_Edit {
    Q_OBJECT

public:
    struct Access {
        std::function<std::vector<Guidance_Finding>()> Check;
        std::function<bool(const Guidance_Answer&)> Keep; // false: it could not be, and the user has been told
    };
    explicit Guidance_Window(Access access, QWidget* parent = nullptr);

    void Take_Over_Notes(Document_Notes& notes) const override;

private:
    void Lay_Out();
    void Show_Findings();
    void Show_Answer();
    std::optional<Guidance_Answer> Typed() const; // nothing if no finding is selected
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
