#pragma once

#include "substance/plant_surface.h"

#include <QDialog>

class QFormLayout;

namespace orvel {

class Number_Edit;

// The fate of the substance on the plant surface.
class Plant_App : public QDialog {
    Q_OBJECT

public:
    // The method is the one chosen in the form of the active substance.
    Plant_App(Session& session, Application_Method method, QWidget* parent = nullptr);

private:
    void Lay_Out(bool filtration);
    void Done();

    Session& The_Session;
    Number_Edit *S_plt_dk = nullptr, *S_plt_washoff = nullptr, *S_plt_filtr = nullptr, *S_plt_penet = nullptr,
                *S_plt_photo = nullptr;
    Number_Edit *S_RefRad = nullptr, *S_dlam = nullptr, *S_Hv = nullptr;
};

} // namespace orvel
