// An assessment by the programs that ship, from mark to removal, at places of every kind: each step works, or tells a
// sentence with exit 1 and leaves nothing half, so that it works once the place does.
#include "core/shell_line.h"
#include "programs/shell.h"

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>

namespace orvel {

namespace fs = std::filesystem;

namespace {

struct Bad_Place {
    std::string Name; // as the test and the shim name it; empty: none
    std::string Room = "0";
};

// An installation in a directory of some name, in which one run is done.
class Installation_At {
public:
    explicit Installation_At(const fs::path& directory, std::string pesticide = "demo_D")
        : Home(directory),
          Pesticide(std::move(pesticide))
    {
        static const Temporary_Directory made; // once for all
        static const int laid_out = Shell(std::string(ORVELCTL) + " init " + (made / "template").string()).Code;
        EXPECT_EQ(laid_out, 0);
        fs::copy(made / "template", Home, fs::copy_options::recursive);
        if (Pesticide != "demo_D")
            fs::copy_file(Home / "demo_D.psm", Home / (Pesticide + ".psm"));
    }

    Outcome Orvelctl(const std::string& arguments, const Bad_Place& place = {}) const
    {
        const std::string bad =
            place.Name.empty()
                ? std::string()
                : "ASAN_OPTIONS=\"$ASAN_OPTIONS:verify_asan_link_order=0\" LD_PRELOAD=" + Shell_Word(PLACE_SHIM) +
                      " PLACE_IS=" + place.Name + " PLACE_ROOM=" + place.Room +
                      " PLACE_ROOT=" + Shell_Word(Home.string()) + " ";
        return Shell(bad + ORVELCTL + " -C " + Shell_Word(Home.string()) + " " + arguments);
    }

    std::string Mark() const
    {
        return "mark --mode focus --pesticide " + Shell_Word(Pesticide + ".psm") +
               " --crop 'Winter cereals' --location 'Hamburg (H)'";
    }
    static std::string Start() { return "start --mode focus --wait"; }
    std::string Tables() const { return "tables " + Shell_Word(Run().string()); }
    static std::string Overview() { return "overview --mode focus"; }
    std::string Save() const
    {
        return "overview --mode focus --to " + Shell_Word((Home / (Pesticide + ".html")).string());
    }
    std::string Archive() const
    {
        return "archive --mode focus --pesticide " + Shell_Word(Pesticide) + " --to " + Shell_Word(File().string());
    }

    std::string Restore() const
    {
        return "restore " + Shell_Word(File().string()) + " " + Shell_Word((Home / "restored").string());
    }

    fs::path File() const { return Home / (Pesticide + ".zip"); }
    // The only run, wherever the names of its levels put it.
    fs::path Run(const fs::path& below = "focus") const
    {
        for (const auto& entry : fs::recursive_directory_iterator(Home / below)) {
            if (entry.path().filename() == "Hamburg_-_(H).run" &&
                entry.path().string().find("/bin/") == std::string::npos)
                return entry.path();
        }
        return Home / below / "no run";
    }
    // Files that a save or a mark began and did not end.
    std::vector<fs::path> Halves() const
    {
        std::vector<fs::path> halves;
        for (const auto& entry : fs::recursive_directory_iterator(Home)) {
            const std::string name = entry.path().filename().string();
            if (name.starts_with(".orvel-save-") || name.starts_with("marked-") || name.ends_with(".part"))
                halves.push_back(entry.path());
        }
        return halves;
    }

    const fs::path Home;
    const std::string Pesticide;
};

bool Is_Sentence(const std::string& told)
{
    const auto end = told.find_last_not_of(" \r\n");
    return end != std::string::npos && (told[end] == '.' || told.substr(0, end + 1).ends_with("ORVEL.INP"));
}

// From mark to removal, all of it works.
void Do_All(const Installation_At& place)
{
    for (const auto& step : {place.Mark(), place.Start()}) {
        const auto done = place.Orvelctl(step);
        ASSERT_EQ(done.Code, 0) << step << ": " << done.Told;
    }
    const auto tables = place.Orvelctl(place.Tables());
    EXPECT_EQ(tables.Code, 0) << tables.Told;
    EXPECT_NE(tables.Printed.find("80 Perc.("), std::string::npos);
    EXPECT_TRUE(fs::exists(place.Run() / "year.orv"));
    const auto overview = place.Orvelctl(place.Overview());
    EXPECT_EQ(overview.Code, 0) << overview.Told;
    EXPECT_NE(overview.Printed.find("Hamburg (H)\t1 of 1"), std::string::npos) << overview.Printed;
    for (const auto& step : {place.Save(), place.Archive(), place.Restore()}) {
        const auto done = place.Orvelctl(step);
        EXPECT_EQ(done.Code, 0) << step << ": " << done.Told << done.Printed;
    }

    const auto removed = place.Orvelctl(place.Mark() + " --replace");
    EXPECT_EQ(removed.Code, 0) << removed.Told;
    EXPECT_FALSE(fs::exists(place.Run() / "run.json"));
    EXPECT_TRUE(fs::exists(place.Run("focus/bin/0001") / "run.json") || !fs::is_empty(place.Home / "focus/bin"));
    EXPECT_TRUE(place.Halves().empty());
}

class Any_Path : public testing::TestWithParam<std::string> {};

class Bad_Place_Test : public testing::TestWithParam<Bad_Place> {};

} // namespace

TEST_P(Any_Path, An_Assessment_Goes_From_Mark_To_Removal)
{
    const Temporary_Directory at;
    constexpr std::size_t Longest = 196; // with ".psm", ".run" and what stands before it, a name of 200

    Do_All(Installation_At(at / GetParam(), GetParam().substr(0, Longest)));
}

INSTANTIATE_TEST_SUITE_P(Names, Any_Path,
                         testing::Values("two  blanks, \u00DCbung \u00E4\u00F6\u00FC\u00DF",
                                         "a & b % c ; d ' e $HOME ( f ) # g", "-C", std::string(200, 'n')));

TEST(Any_Place, An_Installation_Is_Reached_By_A_Link)
{
    const Temporary_Directory at;
    fs::create_directory(at / "real");
    fs::create_directory_symlink(at / "real", at / "link");

    Do_All(Installation_At(at / "link"));
}

// Each step is tried at the bad place first and then, the place being good again, once more.
TEST_P(Bad_Place_Test, Each_Step_Works_Or_Tells_A_Sentence_And_Works_Once_The_Place_Does)
{
    const Temporary_Directory at;
    const Installation_At place(at / "installation");
    const auto attempt = [&](const std::string& step, const std::string& then) {
        const auto tried = place.Orvelctl(step, GetParam());
        EXPECT_TRUE(tried.Code == 0 || (tried.Code == 1 && Is_Sentence(tried.Told)))
            << step << ": " << tried.Code << ", " << tried.Told;
        EXPECT_TRUE(place.Halves().empty()) << step << ": " << place.Halves().front();
        const auto done = place.Orvelctl(then);
        EXPECT_EQ(done.Code, 0) << then << ": " << done.Told;
        return tried;
    };
    const bool is_full = GetParam().Name == "FULL";

    EXPECT_EQ(attempt(place.Mark(), place.Mark()).Code, 1);
    // The engine of a full disk begins, fails and says so; nothing begins at the other places.
    EXPECT_EQ(attempt(place.Start(), place.Start() + (is_full ? " --failed" : "")).Code, 1);
    ASSERT_EQ(place.Orvelctl("verify " + Shell_Word(place.Run().string())).Code, 0);
    attempt(place.Tables(), place.Tables());
    for (const char* table : {"year.orv", "period.orv"})
        fs::remove(place.Run() / table);
    attempt(place.Overview(), place.Overview());
    EXPECT_EQ(attempt(place.Save(), place.Save()).Code, is_full ? 0 : 1);
    EXPECT_EQ(attempt(place.Archive(), place.Archive()).Code, 1);
    const auto restored = place.Orvelctl(place.Restore());
    EXPECT_EQ(restored.Code, 0) << restored.Told;
    EXPECT_EQ(attempt(place.Mark() + " --replace", place.Mark() + " --replace").Code, 1);
    EXPECT_FALSE(fs::exists(place.Run() / "run.json"));
}

INSTANTIATE_TEST_SUITE_P(Places, Bad_Place_Test,
                         testing::Values(Bad_Place{"READ_ONLY"}, Bad_Place{"FULL", "100000"},
                                         Bad_Place{"WITHOUT_LOCKS"}),
                         [](const auto& named) { return named.param.Name; });

} // namespace orvel
