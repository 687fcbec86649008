#pragma once

#include "substance/half_lives.h"

#include <array>
#include <QGroupBox>

class QFormLayout;
class QRadioButton;

namespace orvel {

class Number_Edit;

// A first-order rate with its two half-lives: the selected one is editable, and the other two are updated when it is
// left.
class Rate_Box : public QGroupBox {
    Q_OBJECT

public:
    // Control names, in the order rate, DT 50, DT 90.
    using Names = std::array<const char*, 3>;
    Rate_Box(const QString& caption, const Names& options, const Names& fields, QWidget* parent = nullptr);

    // Shows a rate with its half-lives; the rate becomes editable.
    void Show_Rate(const Rate_Texts& texts);

    void Select_Rate(); // for typing

    // What the user has made of it so far.
    struct State {
        Rate_Texts Texts;
        std::size_t Option = 0; // the one that can be edited
        bool operator==(const State&) const = default;
    };
    State Present() const;
    void Show_State(const State& state);

    // The three fields, as they will be when text that is still being typed is left.
    Rate_Texts Entered() const;

    // Below the three fields.
    void Add_Row(const QString& label, QWidget* field);

private:
    void Enable_Chosen();
    void Leave(Rate_Field field);
    Rate_Texts Texts() const;
    void Show_Texts(const Rate_Texts& texts);

    QFormLayout* Rows = nullptr;
    std::array<QRadioButton*, 3> Options{};
    std::array<Number_Edit*, 3> Fields{};
};

} // namespace orvel
