#pragma once

#include "recording_user.h"
#include "runs/single_run.h"
#include "small_installation.h"

#include <gtest/gtest.h>
#include <memory>

namespace orvel {

// A directory with what a single run needs.
class Single_Run_Fixture : public testing::Test {
protected:
    Single_Run_Fixture()
    {
        The_Session.Ask = [this](const Message& message) { return The_User(message); };
        The_Session.Program.App_Path = Place.Path();
        The_Session.Program.Engine_Exe = "orvel401.exe";
        std::filesystem::copy_file(Place / "focus/H_maize.sze", Place / "H_maize.sze");
        Write_Whole(Place / "one.cli", "Title\r\n");
        Write_Whole(Place / "two.cli", "Title\r\n");
    }

    Single_Run_Entry Entry()
    {
        return {.Pesticide = "test.psm",
                .Scenario = "H_maize.sze",
                .Climates = {"one.cli"},
                .Start_Day = "1",
                .End_Day = "31",
                .Years = "3",
                .Start_Month_Index = 0,
                .End_Month_Index = 11};
    }

    Small_Installation Place;
    Recording_User The_User;
    std::unique_ptr<Session> Owned = std::make_unique<Session>();
    Session& The_Session = *Owned;
};

} // namespace orvel
