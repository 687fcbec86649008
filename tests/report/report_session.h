#pragma once

#include "core/files.h"
#include "files/pesticide_file.h"
#include "recording_user.h"
#include "report/report.h"
#include "tables/leachate_run.h"

#include <gtest/gtest.h>

namespace orvel {

// An installation with finished runs of the substances "P & <Q>" and "M", made up so that the percentile of a run with
// factor f is f times 22.5 ug/L for the first one: the fluxes 1 to 26 g/ha times f in 100 L/m2 give concentrations that
// rise from year to year, 23 f and 22 f are the fourth and fifth highest of the years 7 to 26, and the second substance
// has none.
class Report_Session : public testing::Test {
protected:
    Report_Session()
    {
        The_Session.Program.App_Path = Installation.Path();
        The_Session.Program.Engine_Exe = "orvel401.exe";
        The_Session.Program.Aktuelle_ORVEL_Version = "ORVEL 4.01";
        The_Session.Ask = std::ref(The_User);
        Write_Whole(Installation / "orvel401.exe", "abc");
        std::filesystem::last_write_time(Installation / "orvel401.exe",
                                         std::filesystem::file_time_type::clock::now() - std::chrono::hours(1));
        Write_Pesticide(Installation.Path(), 1);
    }

    static std::filesystem::path Run_Of(const std::string& crop, const std::string& location,
                                        const std::string& mode = "focus")
    {
        return mode + "/demo.run/" + crop + ".run/" + location + ".run";
    }

    // One application a year on 1 November at both locations.
    static void Write_Pesticide(const std::filesystem::path& directory, double rate)
    {
        const auto document = std::make_unique<Pesticide_Document>();
        Reset_PSM(*document);
        document->App_Mode = 0;
        document->App_Method = 1.0;
        document->App_Loc_Count = 3;
        document->App_Location[1] = "Hamburg (H)";
        document->App_Location[2] = "Kremsm\xFCnster (K)";
        for (const std::size_t block : {0U, 1U, 2U}) {
            document->App_Count[block] = 26.0;
            for (std::int16_t year = 1; year <= 26; ++year)
                document->Applications[block][static_cast<std::size_t>(year)] = {1, 11, year, rate};
        }
        Write_Whole(directory / "demo.psm", Format_PSM(*document));
    }

    std::filesystem::path Add_Run(const std::string& crop, const std::string& location, int factor,
                                  const std::vector<std::string>& names = {"P & <Q>", "M"},
                                  const std::string& mode = "focus")
    {
        Leachate_Run run({.Names = names});
        auto fluxes = Rising(26);
        for (int& flux : fluxes)
            flux *= factor;
        run.Write_Water(26);
        run.Write_Chem(".orv", fluxes, fluxes);
        run.Write_Chem("_A1.orv", std::vector<int>(26, 0), std::vector<int>(26, 0));
        const auto place = Installation / Run_Of(crop, location, mode);
        std::filesystem::create_directories(place);
        for (const auto& entry : std::filesystem::directory_iterator(run.Path()))
            std::filesystem::copy_file(entry.path(), place / entry.path().filename());
        Write_Pesticide(place, 1);
        Write_Whole(place / "H_test.sze", "scenario");
        Write_Whole(place / "orvel.inp", "control of " + location);
        return place;
    }

    std::vector<Summary_Request> Requests(const std::string& crop = "all",
                                          const std::vector<std::string>& codes = {}) const
    {
        return Request_Summaries(The_Session, Mode_Of(Mode_Kind::Focus), "demo", crop, codes);
    }
    Report Gather(const std::string& crop = "all", const std::vector<std::string>& codes = {}) const
    {
        return Gather_Report(The_Session, Requests(crop, codes), 0);
    }

    Temporary_Directory Installation;
    std::unique_ptr<Session> Owned = std::make_unique<Session>();
    Session& The_Session = *Owned;
    Recording_User The_User;
};

} // namespace orvel
