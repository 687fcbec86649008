#pragma once

#include "core/session.h"
#include "scenario/erosion.h"

#include <array>
#include <QDialog>

namespace orvel {

class Number_Edit;

// The factors of the erosion equation.
class Form_eros : public QDialog {
    Q_OBJECT

public:
    explicit Form_eros(Session& session, QWidget* parent = nullptr);

private:
    void Show_Texts(const Erosion_Texts& texts);
    Erosion_Texts Texts() const;
    void Done();

    Session& The_Session;
    std::array<Number_Edit*, 5> Factors{}; // Text1_er to Text5_er
};

} // namespace orvel
