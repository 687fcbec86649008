#pragma once

#include "core/session.h"
#include "scenario/erosion.h"
#include "ui/forms/entries_under_edit.h"

#include <array>
#include <QDialog>

namespace orvel {

class Number_Edit;

// The factors of the erosion equation.
class Form_eros : public QDialog, public Entries_Under_Edit {
    Q_OBJECT

public:
    explicit Form_eros(Session& session, QWidget* parent = nullptr);

    void Take_Over_Entries(Session& session) const override;

private:
    void Show_Texts(const Erosion_Texts& texts);
    Erosion_Texts Texts() const;
    void Done();

    Session& The_Session;
    const Erosion_Texts At_First;
    std::array<Number_Edit*, 5> Factors{}; // Text1_er to Text5_er
};

} // namespace orvel
