#pragma once

#include "substance/plant_surface.h"
#include "ui/forms/entries_under_edit.h"
#include "ui/forms/entry_boxes.h"

#include <QDialog>

namespace orvel {

// The fate of the substance on the plant surface.
class Plant_App : public QDialog, public Entries_Under_Edit {
    Q_OBJECT

public:
    // The method is the one chosen in the form of the active substance.
    Plant_App(Session& session, Application_Method method, QWidget* parent = nullptr);

    void Take_Over_Entries(Session& session) const override;

private:
    void Lay_Out(bool filtration);
    Plant_Entry Entry() const;
    void Done();

    Session& The_Session;
    const Plant_Entry At_First;
    Entry_Boxes Boxes;
};

} // namespace orvel
