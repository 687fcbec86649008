#pragma once

#include "core/session.h"
#include "scenario/horizon_grid.h"
#include "ui/forms/entries_under_edit.h"

#include <optional>
#include <QDialog>

class QLabel;

namespace orvel {

class Number_Grid;
class Profile_View;
class Text_Grid_Model;

// The soil horizon table with the profile beside it.
class form_soil_hor : public QDialog, public Entries_Under_Edit {
    Q_OBJECT

public:
    explicit form_soil_hor(Session& session, QWidget* parent = nullptr);

    void Take_Over_Entries(Session& session) const override;

    // After acceptance: the sum of the thicknesses (cm) if it differs from the core depth.
    std::optional<double> New_Depth() const { return Sum; }

private:
    void Lay_Out();
    Horizon_Grid Entered() const;
    void Show_Profile();
    void Done();

    Session& The_Session;
    Horizon_Grid Loaded;
    std::optional<double> Sum;
    Text_Grid_Model* Model = nullptr;
    Number_Grid* Grid_nhor = nullptr;
    Profile_View* Profile = nullptr;
    QLabel* Caption = nullptr;
};

} // namespace orvel
