#include "records/archive.h"

#include "core/sha256.h"
#include "core/system/lock.h"
#include "core/write_from.h"
#include "full_disk.h"
#include "records/archive_reader.h"
#include "records/archived_run.h"
#include "records/zip_file.h"
#include "records/zip_maker.h"

namespace orvel {

namespace fs = std::filesystem;

using Archive_Test = Archived_Run_Test;

TEST_F(Archive_Test, Holds_Inputs_Records_Outputs_Engine_And_Report_With_Their_Digests)
{
    const auto archived = Archive(Home / "a.zip");
    const auto manifest = Archive_Reader(Home / "a.zip").Manifest();

    EXPECT_EQ(archived.Notes, std::vector<std::string>());
    EXPECT_EQ(archived.Runs, 2U);
    std::vector<std::string> names;
    for (const auto& file : manifest.Files)
        names.push_back(file.Name);
    const std::string begin = "focus/gr\xFCn_-_test.run/Maize.run/Hamburg_-_(H).run/";
    for (const std::string name : {"orvel401.exe", "focus/H_maize.sze", "focus/H_01.cli", "focus/c_apples.sze",
                                   "focus/gr\xFCn_-_test.run/report.html"})
        EXPECT_NE(std::ranges::find(names, name), names.end()) << name;
    for (const std::string name : {"orvel.inp", "p.psm", "run.json", "echo.orv", "chem.orv", "plot.orv", "Wasser.orv"})
        EXPECT_NE(std::ranges::find(names, begin + name), names.end()) << name;
    EXPECT_TRUE(std::ranges::is_sorted(names));
    EXPECT_EQ(manifest.Runs[0].Pesticide, "gr\xFCn test");
    EXPECT_EQ(manifest.Runs[0].Check, "ok");
    EXPECT_EQ(manifest.Files.back(), (Recorded_File{"orvel401.exe", fs::file_size(Home / "orvel401.exe"),
                                                    Sha256_Of_File(Home / "orvel401.exe")}));
}

TEST_F(Archive_Test, Holds_The_Notes_Of_The_Pesticide_File)
{
    Put(Home / "gr\u00FCn test.notes.json", "{\"schema\": \"orvel-notes 1\"}");
    Put(Home / "other.notes.json", "{}");

    Archive(Home / "a.zip");
    const auto manifest = Archive_Reader(Home / "a.zip").Manifest();

    std::vector<std::string> names;
    for (const auto& file : manifest.Files)
        names.push_back(file.Name);
    EXPECT_NE(std::ranges::find(names, "gr\xFCn test.notes.json"), names.end());
    EXPECT_EQ(std::ranges::find(names, "other.notes.json"), names.end());
}

TEST_F(Archive_Test, The_Same_Content_Gives_The_Same_Bytes)
{
    Archive(Home / "a.zip");
    fs::last_write_time(Hamburg() / "echo.orv", fs::file_time_type::clock::now() + std::chrono::hours(1));
    fs::last_write_time(Hamburg(), fs::file_time_type::clock::now() + std::chrono::hours(1));
    Archive(Home / "b.zip");

    EXPECT_EQ(Sha256_Of_File(Home / "a.zip"), Sha256_Of_File(Home / "b.zip"));
}

TEST_F(Archive_Test, Stored_Tables_And_Files_Of_The_User_Are_Left_Out)
{
    Archive(Home / "a.zip");
    for (const auto* name : {"year.orv", "MBalance.orv", "notes.txt", ".orvel-save-abcdef"})
        Put(Hamburg() / name, "no part of the run");
    Archive(Home / "b.zip");

    EXPECT_EQ(Sha256_Of_File(Home / "a.zip"), Sha256_Of_File(Home / "b.zip"));
}

TEST_F(Archive_Test, One_Crop_Or_All_Are_Taken)
{
    fs::copy(Pesticide_Place() / "Maize.run", Pesticide_Place() / "Apples.run", fs::copy_options::recursive);

    EXPECT_EQ(Archive(Home / "a.zip").Runs, 4U);
    EXPECT_EQ(Archive(Home / "a.zip", "Apples").Runs, 2U);
    EXPECT_EQ(Archive_Reader(Home / "a.zip").Manifest().Report, "focus/gr\xFCn_-_test.run/Apples.run/report.html");
    EXPECT_NE(Told([&] { Archive(Home / "a.zip", "Corn"); }).find("There are no simulations of Corn"),
              std::string::npos);
}

TEST_F(Archive_Test, A_Missing_Input_Is_Told_And_Stands_In_The_Manifest)
{
    fs::remove(Home / "focus" / "H_01.cli");

    const auto archived = Archive(Home / "a.zip");

    ASSERT_EQ(archived.Notes.size(), 4U); // each run is changed, and lacks the input
    EXPECT_EQ(archived.Notes[1], "focus/gr\xFCn_-_test.run/Maize.run/Hamburg_-_(H).run: The input ../../../H_01.cli is "
                                 "missing, and so it is in the archive.");
    const auto manifest = Archive_Reader(Home / "a.zip").Manifest();
    EXPECT_EQ(manifest.Runs[0].Check, "changed");
    EXPECT_EQ(manifest.Runs[0].Missing, std::vector<std::string>{"../../../H_01.cli"});
}

TEST_F(Archive_Test, A_Changed_Output_And_A_Run_That_Failed_Are_Archived_With_Their_State)
{
    Put(Hamburg() / "chem.orv", "another");
    Run_Record record = Read_Run_Record(Pesticide_Place() / "Maize.run" / "Porto_-_(O).run").value();
    record.Verdict = Verdict::Failed;
    record.Reason = "It took longer than 5 s.";
    Put(Pesticide_Place() / "Maize.run" / "Porto_-_(O).run" / "run.json", Format_Run_Record(record));

    const auto notes = Archive(Home / "a.zip").Notes;

    ASSERT_EQ(notes.size(), 2U);
    EXPECT_EQ(notes[0], "focus/gr\xFCn_-_test.run/Maize.run/Hamburg_-_(H).run: changed: chem.orv has changed.");
    EXPECT_EQ(notes[1], "focus/gr\xFCn_-_test.run/Maize.run/Porto_-_(O).run: failed: It took longer than 5 s.");
}

TEST_F(Archive_Test, A_Run_At_Work_Is_Refused_And_Nothing_Is_Written)
{
    const auto lock = Lock::Take(Hamburg());

    EXPECT_NE(Told([&] { Archive(Home / "a.zip"); }).find("is at work"), std::string::npos);
    EXPECT_FALSE(fs::exists(Home / "a.zip"));
}

TEST_F(Archive_Test, A_Run_Behind_A_Link_Is_Refused)
{
    fs::rename(Hamburg(), Home / "elsewhere");
    fs::create_directory_symlink(Home / "elsewhere", Hamburg());

    EXPECT_NE(Told([&] { Archive(Home / "a.zip"); }).find("is a link"), std::string::npos);
}

TEST_F(Archive_Test, A_Stop_Leaves_The_Old_Archive)
{
    Put(Home / "a.zip", "old");
    const auto stop_while_packing = [](const std::string&, double share) { return share < 0.8; };

    EXPECT_THROW(Make_Archive(The_Session, Focus(), "gr\xFCn test", "", Home / "a.zip", stop_while_packing),
                 Zip_Stopped);
    EXPECT_EQ(Read_Whole(Home / "a.zip"), "old");
    EXPECT_EQ(List_Files(Home.Path(), ".orvel-save-*").size(), 0U);
}

TEST(Zip_File, A_File_That_Changes_While_It_Is_Packed_Is_Told_And_Nothing_Is_Written)
{
    Temporary_Directory place;
    Write_Whole(place / "input", "as it was verified");
    const Zip_Item item{.Name = "input", .Bytes = {}, .File = place / "input", .Size = 18, .Sha256 = Sha256("another")};

    try {
        Write_Whole_From(place / "a.zip", [&](File_Handle& to) { Write_Zip(to, {item}); });
        FAIL() << "written";
    } catch (const File_Error& error) {
        EXPECT_EQ(error.what(), "The file " + (place / "input").string() + " was changed while it was read.");
    }
    EXPECT_EQ(List_Files(place.Path(), "*").size(), 1U);
}

TEST(Zip_File, Any_Bytes_And_Names_Come_Back)
{
    Temporary_Directory place;
    std::string large(3'000'000, 'x');
    for (std::size_t i = 0; i < large.size(); i += 7)
        large[i] = static_cast<char>(i);
    Write_Whole(place / "large", large);
    const std::vector<Zip_Item> items = {
        {.Name = "files/Kremsm\u00FCnster (K), a b.run", .Bytes = std::string("a\0b", 3)},
        {.Name = "empty", .Bytes = ""},
        {.Name = "large", .Bytes = {}, .File = place / "large", .Size = large.size(), .Sha256 = Sha256(large)}};
    Write_Whole_From(place / "a.zip", [&](File_Handle& to) { Write_Zip(to, items); });

    Zip_Reader reader(place / "a.zip");

    ASSERT_EQ(reader.Entries().size(), 3U);
    EXPECT_EQ(reader.Entries()[0].Name, items[0].Name);
    const std::vector<std::string> expected = {items[0].Bytes, "", large};
    for (std::size_t i = 0; i < expected.size(); ++i) {
        std::string bytes;
        reader.Read(i, [&](std::string_view block) { bytes += block; });
        EXPECT_EQ(bytes, expected[i]);
    }
}

TEST(Zip_File, A_Full_Disk_Is_Told_With_The_Systems_Reason_And_Leaves_The_Old_File)
{
    Temporary_Directory place;
    Write_Whole(place / "a.zip", "old");
    std::string bytes;
    for (int i = 0; i < 20'000; ++i)
        bytes += Sha256(std::to_string(i)); // packs badly

    try {
        const Full_Disk full(10'000);
        Write_Whole_From(place / "a.zip", [&](File_Handle& to) { Write_Zip(to, {{.Name = "a", .Bytes = bytes}}); });
        FAIL() << "written";
    } catch (const File_Error& error) {
        EXPECT_STREQ(error.what(), "Cannot write the archive: File too large.");
    }
    EXPECT_EQ(Read_Whole(place / "a.zip"), "old");
    EXPECT_EQ(List_Files(place.Path(), "*").size(), 1U);
}

// The archive reader: one good archive made by hand, and what is changed in it.
class Archive_Reader_Test : public testing::Test {
protected:
    Archive_Reader_Test()
    {
        Manifest.Files = {{"a.txt", 5, Sha256("hello")}};
        Manifest.Runs = {{"focus/p.run", "p", "c", "l", "ok", "", {}}};
    }

    std::vector<Made_Entry> Entries() const
    {
        return {{"archive.json", Format_Manifest(Manifest)}, {"files/a.txt", "hello"}};
    }

    // What reading the whole archive tells; nothing if it is taken.
    static std::string Told(const std::string& bytes)
    {
        try {
            auto archive = Archive_Reader::Of_Bytes(bytes);
            for (std::size_t i = 0; i < archive.Manifest().Files.size(); ++i)
                archive.Read(i, [](std::string_view) {});
            return {};
        } catch (const File_Error& error) {
            return error.what();
        }
    }
    static std::string Told(const std::vector<Made_Entry>& entries) { return Told(Made_Zip(entries)); }

    Archive_Manifest Manifest;
};

TEST_F(Archive_Reader_Test, A_Good_Archive_Is_Taken)
{
    EXPECT_EQ(Told(Entries()), "");
    EXPECT_EQ(Parse_Manifest(Format_Manifest(Manifest)), Manifest);
}

TEST_F(Archive_Reader_Test, Names_That_Lead_Elsewhere_Are_Refused)
{
    for (const std::string name : {"../a.txt", "files/../../a.txt", "/etc/a.txt", "files//a.txt", "files/./a.txt",
                                   "C:a.txt", "files\\..\\a.txt", "files/a\nb", "..", ""}) {
        auto entries = Entries();
        entries[1].Name = name;
        EXPECT_NE(Told(entries), "") << name;
        EXPECT_FALSE(Is_Safe_Name(name)) << name;
    }
    auto entries = Entries();
    entries[1].Name = "files/../../a.txt";
    EXPECT_EQ(Told(entries), "The file is not laid out: its entry files/../../a.txt would lie outside of the directory "
                             "that it is laid out in.");
    Manifest.Files[0].Name = "../a.txt";
    EXPECT_NE(Told(Entries()), "");
    Manifest.Files[0].Name = "a.txt";
    Manifest.Runs[0].Directory = "../p.run";
    EXPECT_NE(Told(Entries()).find("the run ../p.run would lie outside"), std::string::npos);
}

TEST_F(Archive_Reader_Test, Links_Directories_And_Encrypted_Files_Are_Refused)
{
    auto entries = Entries();
    entries[1].Mode = 0120777;
    EXPECT_NE(Told(entries).find("files/a.txt is no ordinary file."), std::string::npos);
    entries = Entries();
    entries.push_back({"files/d/", "", 040755});
    EXPECT_NE(Told(entries), "");
    entries = Entries();
    entries[1].Flags = 1;
    EXPECT_NE(Told(entries).find("files/a.txt is encrypted."), std::string::npos);
    entries = Entries();
    entries[1].Method = 12;
    EXPECT_NE(Told(entries).find("packed in a way that this program does not know"), std::string::npos);
}

TEST_F(Archive_Reader_Test, Names_That_Stand_There_Twice_Are_Refused)
{
    auto entries = Entries();
    entries.push_back(entries[1]);
    EXPECT_EQ(Told(entries), "The file is no whole archive: A name stands there twice.");

    Manifest.Files.push_back(Manifest.Files[0]);
    EXPECT_NE(Told(Entries()).find("named there twice"), std::string::npos);
}

TEST_F(Archive_Reader_Test, An_Entry_Holds_What_The_Manifest_Says_No_More_And_No_Less)
{
    auto entries = Entries();
    entries[1].Bytes = "hallo";
    EXPECT_NE(Told(entries).find("is not the one that was archived"), std::string::npos);
    entries[1].Bytes = "hello!";
    EXPECT_NE(Told(entries).find("has another size than its manifest says"), std::string::npos);
    entries = Entries();
    entries.pop_back();
    EXPECT_NE(Told(entries).find("the file a.txt of its manifest is missing"), std::string::npos);
    entries = Entries();
    entries.push_back({"files/b.txt", "more"});
    EXPECT_NE(Told(entries).find("does not name the entry files/b.txt"), std::string::npos);
}

TEST_F(Archive_Reader_Test, A_File_That_Says_That_It_Unpacks_To_Gigabytes_Is_Refused)
{
    Manifest.Files[0].Size = 4'000'000'000;
    auto entries = Entries();
    entries[1].Says_Size = 4'000'000'000;
    entries[1].Method = 8;
    EXPECT_NE(Told(entries).find("unpacks to more than it can hold"), std::string::npos);
}

TEST_F(Archive_Reader_Test, A_Cut_File_And_One_Without_Or_With_A_Damaged_Manifest_Have_Their_Sentence)
{
    const std::string whole = Made_Zip(Entries());
    for (std::size_t size = 1; size < whole.size(); size += 7)
        EXPECT_NE(Told(whole.substr(0, size)).find("no whole archive"), std::string::npos) << size;
    EXPECT_EQ(Told({{"files/a.txt", "hello"}}), "The file is no archive of an assessment: it has no archive.json.");
    EXPECT_EQ(Told({{"archive.json", "{"}}), "The file, archive.json, line 1, column 1: This is not JSON.");
    EXPECT_NE(Told({{"archive.json", "{\"schema\": 2}"}}).find("a schema that this program does not know"),
              std::string::npos);
}

} // namespace orvel
