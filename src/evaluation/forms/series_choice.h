#pragma once

#include "core/session.h"
#include "evaluation/period_choice.h"
#include "output/parameter_list.h"
#include "tables/forms/taegliches_diagramm_neu.h"

#include <array>
#include <QWidget>

class QCheckBox;
class QComboBox;
class QGroupBox;

namespace orvel {

// The choice of a series for the daily diagram: one of the run's series, a period of months, as a rate or cumulated.
class Series_Choice : public QWidget {
    Q_OBJECT

public:
    explicit Series_Choice(QWidget* parent = nullptr);

    // Fills the lists for a run directory. Parameter and period stay what they were, if the run has them; else its
    // first parameter and the whole simulation are chosen. Without a plot.orv there is no period to choose.
    void Show_Run(const std::filesystem::path& run_directory);
    // The same with the columns that its plot.orv has, and no others. False: it has none that can be shown.
    bool Show_Columns(const std::filesystem::path& run_directory);
    void Clear();

    // Opens the daily diagram of the chosen series.
    void Show_Diagram(const Session& session, const std::filesystem::path& run_directory, bool single_run,
                      QWidget* parent) const;
    // The line with which orvelctl prints it.
    std::string Command(const Session& session, const std::filesystem::path& run_directory) const;

private:
    QGroupBox* Series_Box();
    QGroupBox* Period_Box();
    Daily_Choice Choice(const std::filesystem::path& run_directory, const std::filesystem::path& calendar) const;
    Period Chosen_Period() const;
    void Show_Period(const Period& period);
    void Show_Items(std::vector<Parameter_Item> items);
    void Show_Years(const Plot_Head& head);

    std::vector<Parameter_Item> Items;
    int Years = 0;
    QComboBox* Parameter = nullptr;
    QCheckBox* Cumulative = nullptr;
    std::array<QComboBox*, 4> Zeitintervall{}; // start and end month, start and end year
};

} // namespace orvel
