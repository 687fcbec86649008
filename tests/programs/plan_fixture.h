#pragma once

#include "core/files.h"
#include "core/system/file_identity.h"
#include "shell.h"
#include "temporary_directory.h"

#include <gtest/gtest.h>
#include <map>

namespace orvel {

namespace fs = std::filesystem;

// Plans by the shipped programs and the real engine, and what lies in their directories.

class Orvelctl_Plan : public ::testing::Test {
protected:
    // One installation serves all tests: nothing of it is changed.
    static void SetUpTestSuite()
    {
        Home = std::make_unique<Temporary_Directory>();
        ASSERT_EQ(std::system((std::string(ORVELCTL) + " init " + Installation()).c_str()), 0);
    }
    static void TearDownTestSuite() { Home.reset(); }
    static std::string Installation() { return (*Home / "home").string(); }

    Outcome Do(const std::string& words, const std::string& before = "")
    {
        return Shell("cd '" + Place.Path().string() + "' && " + before + " " + ORVELCTL + " -C '" + App + "' " + words);
    }

    void Put(const std::string& name, const std::string& bytes) { Write_Whole(Place / name, bytes); }

    // A plan of so many runs, whose sorption grows from row to row.
    void Put_Plan(int rows)
    {
        std::string plan = "id,mode,pesticide,crop,location,psm.Koc[1],#row\n";
        for (int row = 1; row <= rows; ++row)
            plan += "run " + std::to_string(row) + ",focus,demo_A.psm,Winter cereals,Hamburg (H)," +
                    std::to_string(20 + row) + "," + std::to_string(row) + "\n";
        Put("plan.csv", plan);
    }

    std::string Results_Of(const std::string& directory)
    {
        const auto results = Do("plan results " + directory);
        EXPECT_EQ(results.Code, 0) << results.Told;
        return results.Printed;
    }

    // A program of this name before all others on the PATH.
    void Put_Program(const std::string& name, const std::string& script)
    {
        fs::create_directories(Place / "bin");
        Put("bin/" + name, "#!/bin/sh\n" + script);
        fs::permissions(Place / "bin" / name, fs::perms::owner_all);
    }
    std::string With_Programs() const { return "env PATH='" + (Place / "bin").string() + "':/usr/bin:/bin"; }

    // What the box of a wrong plan of one row says; `columns` and `cells` follow the five of a good row.
    std::string Told_Of(const std::string& row, const std::string& columns = "")
    {
        Put("wrong.csv", "id,mode,pesticide,crop,location" + columns + "\n" + row + "\n");
        const auto told = Do("plan run wrong.csv --to wrong --wait");
        EXPECT_EQ(told.Code, 1);
        EXPECT_FALSE(fs::exists(Place / "wrong")) << row;
        return told.Told;
    }

    static inline std::unique_ptr<Temporary_Directory> Home;
    Temporary_Directory Place;
    std::string App = Installation();
    const std::string Good = "a,focus,demo_A.psm,Winter cereals,Hamburg (H)";
};

inline std::vector<std::string> Names_In(const fs::path& directory)
{
    return List_Files(directory, "*");
}

inline std::vector<std::string> Lines_Of(const std::string& text)
{
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < text.size();) {
        const auto end = text.find('\n', at);
        lines.push_back(text.substr(at, end - at));
        at = end + 1;
    }
    return lines;
}

inline std::string Cell(const std::string& line, int number)
{
    std::size_t at = 0;
    for (int i = 1; i < number; ++i)
        at = line.find(',', at) + 1;
    return line.substr(at, line.find(',', at) - at);
}

// The files that tell of complete runs.
inline std::map<fs::path, File_Identity> Complete_Runs(const fs::path& directory)
{
    std::map<fs::path, File_Identity> complete;
    std::error_code ignored;
    for (const auto& entry : fs::recursive_directory_iterator(directory / "runs", ignored)) {
        if (entry.path().filename() == "result.csv" && Read_Whole(entry.path()).find(",complete,") != std::string::npos)
            complete.emplace(entry.path(), *Identity_Of(entry.path().parent_path() / "run.json"));
    }
    return complete;
}

} // namespace orvel
