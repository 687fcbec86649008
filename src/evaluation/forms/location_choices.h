#pragma once

#include "report/overview_settings.h"

#include <QDialog>

class QComboBox;
class QListWidget;

namespace orvel {

// Named choices of the locations that count, such as those of an authority.
class Location_Choices : public QDialog {
    Q_OBJECT

public:
    explicit Location_Choices(const Overview_Settings& settings, QWidget* parent = nullptr);

    const Overview_Settings& Chosen() const { return Settings; }

private:
    void Lay_Out();
    void Show_Choice();
    void Keep();
    void Remove();

    Overview_Settings Settings;
    QComboBox* Name = nullptr;
    QListWidget* List = nullptr;
};

} // namespace orvel
