#pragma once

#include "core/files.h"
#include "evaluation/forms/overview_window.h"
#include "orvelctl_program.h"
#include "runs/start_up.h"
#include "temporary_directory.h"
#include "window_test.h"

#include <algorithm>
#include <cstdlib>
#include <QLabel>
#include <QTreeView>
#include <sstream>

namespace orvel {

namespace fs = std::filesystem;

// An installation with nine finished runs, and what its overview shows.

inline constexpr int First_Location = 3; // column
inline constexpr int Patience = 180'000; // ms, for nine runs on a busy machine or under sanitizers

class Overview_Window_Test : public Window_Test {
protected:
    static void SetUpTestSuite()
    {
        Place = new Temporary_Directory;
        ASSERT_EQ(Orvelctl("init " + Installation().string()), 0);
    }
    static void TearDownTestSuite() { delete Place; }

    Overview_Window_Test()
    {
        The_Session.Program.App_Path = Installation();
        Start_Up(The_Session);
    }

    static fs::path Installation() { return Place->Path() / "installation"; }
    static fs::path Run(const std::string& location)
    {
        return Installation() / "focus/demo_D.run/Winter_-_cereals.run" / (location + ".run");
    }

    static QString Cell(const QWidget& window, int row, int column, const QModelIndex& parent = {})
    {
        const auto* model = Find<QTreeView>(window, "Table")->model();
        return model->index(row, column, parent).data().toString();
    }

    // The texts of a row's location cells.
    static QStringList Cells(const QWidget& window, int row)
    {
        QStringList cells;
        for (int column = 0; column < 9; ++column)
            cells << Cell(window, row, First_Location + column);
        return cells;
    }

    static bool All_Are_Figures(const QStringList& cells)
    {
        return std::ranges::all_of(cells, [](const QString& cell) { return cell.contains('.'); });
    }

    // Nine finished runs, once for all tests that need them.
    static void Nine_Runs()
    {
        if (fs::exists(Run("Hamburg_-_(H)") / "run.json"))
            return;
        const std::string at = "-C " + Installation().string();
        ASSERT_EQ(Orvelctl(at + " mark --mode focus --pesticide demo_D.psm --crop 'Winter cereals' --all"), 0);
        ASSERT_EQ(Orvelctl(at + " start --mode focus --wait"), 0);
    }

    // Shows a window and waits for what it finds.
    static void Settle(Overview_Window& window)
    {
        window.show();
        const auto* status = Find<QLabel>(window, "Status");
        ASSERT_TRUE(
            QTest::qWaitFor([&] { return !status->text().isEmpty() && !status->text().endsWith("..."); }, Patience));
    }

    static inline Temporary_Directory* Place = nullptr;
};
// The concentration of the percentile row at 1 m of the stored period table, by words.
inline QString Stored_Percentile(const fs::path& run)
{
    std::istringstream lines(Read_Whole(run / "period.orv"));
    for (std::string line; std::getline(lines, line);) {
        if (line.find("80 Perc.(") != std::string::npos)
            return QString::fromStdString(line).trimmed().section('\t', -1).trimmed();
    }
    return {};
}

inline void Leave_Picture(QWidget& window, const QString& name)
{
    if (const char* place = std::getenv("ORVEL_PICTURES"))
        window.grab().save(QString(place) + "/" + name + ".png");
}

} // namespace orvel
