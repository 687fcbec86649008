#pragma once

#include "core/message.h"
#include "core/session.h"
#include "plans/sweep.h"

#include <QDialog>

class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace orvel {

// Makes a plan that varies one run: shifts of its applications, and factors on fields.
class Sweep_Form : public QDialog {
    Q_OBJECT

public:
    Sweep_Form(const Program_State& program, Ask_Function ask, QWidget* parent);

    const std::string& Plan() const { return Made; } // UTF-8; once the form was accepted

private:
    void Lay_Out();
    QLayout* Field_And_Factors();
    void Fill_Locations();
    void Fill_Fields();
    void Add_Factor();
    void Make();
    Sweep_Order Run() const;   // without what is varied
    Sweep_Order Order() const; // throws File_Error

    const Program_State& Program;
    Ask_Function Ask;
    std::string Made;
    QComboBox *Modus = nullptr, *Pesticide = nullptr, *Crop_List = nullptr, *Location = nullptr, *Field = nullptr;
    QLineEdit *Shift = nullptr, *Factors = nullptr;
    QPlainTextEdit* Varied = nullptr;
};

} // namespace orvel
