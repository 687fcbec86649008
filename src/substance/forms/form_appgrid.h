#pragma once

#include "substance/application_grid.h"

#include <QDialog>

namespace orvel {

class Number_Grid;
class Text_Grid_Model;

// Every single application of the location under edit.
class Form_appgrid : public QDialog {
    Q_OBJECT

public:
    // As many rows as Text_naps says. On acceptance the applications are stored and their pattern is determined.
    Form_appgrid(Session& session, const std::string& text_naps, Application_Method method, QWidget* parent = nullptr);

private:
    void Lay_Out();
    void Show_Grid(const Application_Grid& grid);
    Application_Grid Grid() const;
    void Take_Same_Fractions();
    void Done();

    Session& The_Session;
    Application_Method Method;
    Text_Grid_Model* Model = nullptr;
    Number_Grid* AppGrid = nullptr;
};

} // namespace orvel
