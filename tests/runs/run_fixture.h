#pragma once

#include "complete_output.h"
#include "core/files.h"
#include "files/pesticide_file.h"
#include "files/scenario_file.h"
#include "recording_user.h"
#include "runs/mode.h"
#include "runs/run_control.h"
#include "temporary_directory.h"

#include <algorithm>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace orvel {

inline const Mode& Focus()
{
    return Mode_Of(Mode_Kind::Focus);
}
inline const Mode& Tier_2()
{
    return Mode_Of(Mode_Kind::Efsa);
}
inline const Mode& Tier_4()
{
    return Mode_Of(Mode_Kind::Efsa_T4);
}

inline const Crop* const Apples = Crop_Named("Apples");
inline const Crop* const Winter_Cereals = Crop_Named("Winter cereals");
inline const Crop* const Maize = Crop_Named("Maize");
inline const Crop* const Individual_Crop = Crop_Named("Individual crop");

// A combination with the given options.
inline Run_Choice Chosen(const Mode& mode, const Crop* crop, std::string_view location,
                         std::string_view pesticide = "t.psm", const Run_Options& options = {})
{
    Run_Choice choice = Choose_Run(mode, pesticide, crop, location);
    choice.Options = options;
    return choice;
}

// An installation small enough to see through: three mode directories, an engine of one line, and whatever a test adds.
class Run_Test : public testing::Test {
protected:
    Run_Test()
    {
        The_Session.Program.App_Path = Home.Path();
        The_Session.Program.Engine_Exe = "orvel401.exe";
        The_Session.Program.Engine_Version = 4.01;
        The_Session.Ask = [this](const Message& message) { return The_User(message); };
        for (const auto* mode : {&Focus(), &Tier_2(), &Tier_4()}) {
            std::filesystem::create_directory(Home / mode->Directory);
            Put(Home / mode->Directory / mode->Probe_File, "probe\r\n");
        }
        Put(Home / "Haude.dat", "haude\r\n");
        Engine("exit 0");
    }

    static void Put(const std::filesystem::path& file, std::string_view bytes)
    {
        std::ofstream stream(file, std::ios::binary);
        stream << bytes;
        ASSERT_TRUE(stream.flush()) << file;
    }

    // An engine that is a shell script.
    void Engine(const std::string& script)
    {
        Put(Home / "orvel401.exe", "#!/bin/sh\n" + script + "\n");
        std::filesystem::permissions(Home / "orvel401.exe", std::filesystem::perms::owner_all);
    }

    // An engine that works well: runs the script, then leaves the complete output of so many years.
    void Good_Engine(int years = 26, const std::string& script = "true")
    {
        const auto model = Home / ("output of " + std::to_string(years));
        Put_Complete_Output(model, years);
        Engine(script + "\ncp '" + model.string() + "'/*.orv .");
    }

    // A pesticide file with one application a year at Hamburg.
    void Pesticide(const std::string& name, const std::function<void(Pesticide_Document&)>& change = {})
    {
        auto document = std::make_unique<Pesticide_Document>();
        Reset_PSM(*document);
        document->App_Loc_Count = 2;
        document->App_Mode = 0;
        document->App_Count[0] = 0;
        document->App_Location[1] = "Hamburg (H)";
        for (std::size_t a = 1; a <= 26; ++a)
            document->Applications[1][a] = {
                .App_Day = 5, .App_Month = 11, .App_Year = static_cast<std::int16_t>(a), .App_Rate = 0.75};
        if (change)
            change(*document);
        Put(Home / Path_Of(name), Format_PSM(*document));
    }

    // A scenario file with one crop and one horizon.
    static void Scenario(const std::filesystem::path& file, const std::function<void(Scenario_Document&)>& change = {})
    {
        Scenario_Document document;
        Reset_SZE(document);
        document.SZE_Crop_Count = 1;
        document.Crops.assign(1, {.SZE_Rot_Crop_No = 3});
        document.SZE_Rot_Count = 1;
        document.Rotation.assign(1, {.SZE_Rot_Crop_Index = 1});
        if (change)
            change(document);
        Put(file, Format_SZE(document));
    }

    // Climate files of a location for as many years as a run can have.
    void Climates(const std::string& code)
    {
        for (int year = 1; year <= 66; ++year)
            Put(Home / "focus" / (code + (year < 10 ? "_0" : "_") + std::to_string(year) + ".cli"), "climate\r\n");
    }

    // The combination that most tests run.
    Run_Choice Maize_At_Hamburg()
    {
        Pesticide("test.psm");
        Scenario(Home / "focus" / "H_maize.sze");
        Climates("H");
        return Chosen(Focus(), Maize, "Hamburg (H)", "test.psm");
    }

    Temporary_Directory Home;
    std::unique_ptr<Session> Held = std::make_unique<Session>();
    Session& The_Session = *Held;
    Recording_User The_User;
};

} // namespace orvel
