#pragma once

#include "core/session.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// acceptance.json of an installation: which engines gave what was expected of them when they were tried here. An engine
// is known by its digest, so that another one of the same name is not accepted. Texts are bytes of Windows-1252.

constexpr std::string_view Acceptance_Name = "acceptance.json";

struct Acceptance {
    std::string Engine, Engine_Sha256;     // its file name
    std::string Expected, Expected_Sha256; // the file of what was expected
    std::string Date;                      // "2026-05-31"
    bool operator==(const Acceptance&) const = default;
};

// All of them; none if there is no such file. Throws File_Error for one that cannot be read or understood.
std::vector<Acceptance> Read_Acceptances(const std::filesystem::path& app_path);

// That of an engine with this digest.
std::optional<Acceptance> Acceptance_Of(const std::filesystem::path& app_path, std::string_view engine_sha256);

// Keeps an acceptance in place of the one before of this engine; or takes the one before away. Throw File_Error.
void Keep_Acceptance(const std::filesystem::path& app_path, const Acceptance& acceptance);
void Withdraw_Acceptance(const std::filesystem::path& app_path, std::string_view engine_sha256);

// "accepted on 2026-05-31 against expected.csv", "not accepted here".
std::string Acceptance_Text(const std::optional<Acceptance>& acceptance);

// The same of an engine of an installation by its digest; a damaged acceptance.json is told.
std::string Acceptance_Text(const std::filesystem::path& app_path, std::string_view engine_sha256);

// The same of the engine that was found in the installation; empty without one.
std::string Acceptance_Of_Installed(const Program_State& program);

} // namespace orvel
