#pragma once

#include "substance/plant_surface.h"
#include "ui/forms/entry_boxes.h"

#include <QDialog>

namespace orvel {

// The fate of the substance on the plant surface.
class Plant_App : public QDialog {
    Q_OBJECT

public:
    // The method is the one chosen in the form of the active substance.
    Plant_App(Session& session, Application_Method method, QWidget* parent = nullptr);

private:
    void Lay_Out(bool filtration);
    Plant_Entry Entry() const;
    void Done();

    Session& The_Session;
    Entry_Boxes Boxes;
};

} // namespace orvel
