#pragma once

#include "substance/substance_view.h"

#include <array>
#include <QGroupBox>

class QFormLayout;
class QRadioButton;

namespace orvel {

class Number_Edit;

// Volatilisation of the active substance: each quantity at two temperatures, and the source of the Henry constant.
class Volatilisation_Box : public QGroupBox {
    Q_OBJECT

public:
    explicit Volatilisation_Box(const Active_Entry& entry, QWidget* parent = nullptr);

    void Take(Active_Entry& entry) const; // reads the controls into the entry
    void Show_Entry(const Active_Entry& entry);
    void Show_Pairs(const Volatilisation& pairs);
    void Show_Method(Application_Method method);
    void Show_Minor(bool visible); // Text_vol3 and Text_vol4

private:
    using Pair = std::array<Number_Edit*, 2>;
    void Lay_Out();
    Pair Add_Pair(const QString& caption, const QString& name, const QString& label_name,
                  std::array<double, 2> Volatilisation::*values);
    Number_Edit* Add_Number(const QString& caption, const QString& name, const QString& label_name);
    void Show_View();

    Volatilisation Pairs;
    Application_Method Method;
    QFormLayout* Rows = nullptr;
    QRadioButton *Option_hen1 = nullptr, *Option_hen2 = nullptr;
    Pair S_Temperatur{}, Text_vol0{}, Text_vol1{}, Text_vol2{};
    Number_Edit *Text_vol3 = nullptr, *Text_vol4 = nullptr;
};

} // namespace orvel
