#pragma once

#include <QDialog>
#include <string>
#include <vector>

class QListWidget;

namespace orvel {

enum class Location_Kind { Leaching, Soil };

// Selects the locations for which the pesticide document holds applications: the leaching locations, or the soil zones
// recommended for a crop. The dialog itself changes nothing.
class andere_Standorte : public QDialog {
    Q_OBJECT

public:
    // The entries of the list of the substance form are selected.
    andere_Standorte(Location_Kind kind, const std::vector<std::string>& list, QWidget* parent = nullptr);

    std::vector<std::string> Loc_Available() const; // offered
    std::vector<std::string> Loc_Selected() const;  // the selected ones of these, in the same order

private:
    void Lay_Out(Location_Kind kind);
    void Show_Names_Whole();
    QWidget* Crops();
    void Offer(const std::vector<std::string>& names, const std::vector<std::string>& selected);

    QListWidget *Location = nullptr, *Crop = nullptr;
};

} // namespace orvel
