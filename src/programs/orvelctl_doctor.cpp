#include "programs/orvelctl_doctor.h"

#include "desktop/doctor.h"
#include "runs/start_up.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

namespace orvel {

namespace {

int Do_Doctor(Session& session, bool json)
{
    Find_Engine(session.Program);
    const auto findings = Examine(session.Program);
    std::cout << (json ? Findings_Json(findings) : Findings_Text(findings));
    if (!Would_Spoil_A_Run(findings))
        return std::cout.flush() ? Done : Refused;
    Tell("Doctor", "A fault was found that would spoil a run.");
    return Refused;
}

} // namespace

void Add_Doctor_Command(CLI::App& app, Command& command)
{
    auto* doctor = app.add_subcommand("doctor", "What of the installation or this computer could spoil a run");
    const auto json = std::make_shared<bool>(false);
    doctor->add_flag("--json", *json, "Print it as JSON");
    doctor->callback([=, &command] { command = [=](Session& session) { return Do_Doctor(session, *json); }; });
}

} // namespace orvel
