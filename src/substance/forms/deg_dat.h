#pragma once

#include "substance/forms/rate_box.h"
#include "substance/transformation.h"
#include "ui/forms/entries_under_edit.h"

#include <array>
#include <QDialog>

class QGroupBox;
class QRadioButton;

namespace orvel {

class Number_Edit;

// One arrow of the degradation scheme, selected by Transformation_Index: its rate in soil with the study conditions,
// and, for the active substance, its soil photolysis.
class deg_dat : public QDialog, public Entries_Under_Edit {
    Q_OBJECT

public:
    explicit deg_dat(Session& session, QWidget* parent = nullptr);
    ~deg_dat() override { hide(); } // a box left by closing the form still needs it

    void Take_Over_Entries(Session& session) const override;

private:
    void Lay_Out();
    Rate_Box* Photolysis_Box();
    QGroupBox* Correction_Box();

    struct State {
        Rate_Box::State Soil, Photolysis;
        std::string Reference_Radiation;
        Correction Preset = Correction::Recommended;
        Correction_Texts Texts;
        Correction_Enabled Enabled;
        bool operator==(const State&) const = default;
    };
    State Present() const;
    Transformation_Entry Entry() const;
    void Show_State(const State& state);

    Correction_Texts Correction_Typed() const;
    void Show_Correction(const Correction_Texts& texts, const Correction_Enabled& enabled);
    Correction Preset() const;
    void Choose_Preset(Correction preset);
    void Choose_Moisture_Option(bool relative);
    void Leave_Moisture(Number_Edit& field, void (*leave)(Correction_Texts&));
    void Leave_Moistures();
    void Done();

    Session& The_Session;
    Rate_Box *Soil = nullptr, *Photolysis = nullptr;
    std::array<QRadioButton*, 3> Korrektur{};
    Number_Edit *Text4 = nullptr, *Text8 = nullptr, *Text5 = nullptr, *Text6 = nullptr, *Text7 = nullptr,
                *Text9 = nullptr, *Text13 = nullptr;
    QRadioButton *Option4 = nullptr, *Option5 = nullptr;
    Correction_Enabled Enabled;
    State At_First;
};

} // namespace orvel
