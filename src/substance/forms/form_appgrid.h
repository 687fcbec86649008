#pragma once

#include "substance/application_grid.h"
#include "ui/forms/entries_under_edit.h"

#include <QDialog>

namespace orvel {

class Number_Grid;
class Text_Grid_Model;

// Every single application of the location under edit.
class Form_appgrid : public QDialog, public Entries_Under_Edit {
    Q_OBJECT

public:
    // As many rows as Text_naps says. On acceptance the applications are stored and their pattern is determined.
    Form_appgrid(Session& session, const std::string& text_naps, Application_Method method, QWidget* parent = nullptr);

    void Take_Over_Entries(Session& session) const override;

private:
    void Lay_Out();
    void Show_Grid(const Application_Grid& grid);
    Application_Grid Grid() const;
    void Take_Same_Fractions();
    void Done();

    Session& The_Session;
    Application_Method Method;
    const Application_Grid At_First;
    Text_Grid_Model* Model = nullptr;
    Number_Grid* AppGrid = nullptr;
};

} // namespace orvel
