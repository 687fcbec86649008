#include "documents/unsaved_copy.h"

#include "core/files.h"
#include "documents/documents.h"
#include "documents/left_copies.h"
#include "recording_user.h"
#include "small_installation.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace orvel {

namespace fs = std::filesystem;

namespace {

// Editors of one pesticide file, one after the other or at a time.
class Unsaved_Copy_Test : public testing::Test {
protected:
    Unsaved_Copy_Test()
    {
        The_Session.Ask = [this](const Message& message) { return The_User(message); };
        EXPECT_TRUE(Open_Document(The_Session, File));
    }

    Unsaved_Copy Editor() const { return {Place, Document_Kind::Pesticide, File}; }

    // An editor that is gone before it saved a new molar mass.
    void Lose_A_Change(double molar_mass)
    {
        Unsaved_Copy copy = Editor();
        copy.Begin(The_Session);
        The_Session.Pesticide.Molmass[1] = molar_mass;
        EXPECT_TRUE(copy.Keep(The_Session));
        EXPECT_TRUE(Open_Document(The_Session, File));
    }

    Small_Installation Installation;
    const fs::path File = Installation / "test.psm", Place = Installation / "state/unsaved";
    std::unique_ptr<Session> Owned = std::make_unique<Session>();
    Session& The_Session = *Owned;
    Recording_User The_User;
};

} // namespace

TEST_F(Unsaved_Copy_Test, Nothing_Is_Kept_Of_A_Document_That_Was_Not_Changed)
{
    auto copy = Editor();
    copy.Begin(The_Session);
    EXPECT_TRUE(copy.Keep(The_Session));
    EXPECT_FALSE(fs::exists(Place));
}

TEST_F(Unsaved_Copy_Test, A_Lost_Change_Is_Offered_With_Its_Differences_And_Taken)
{
    Lose_A_Change(512);

    auto copy = Editor();
    const auto offer = copy.Offer(The_Session);
    ASSERT_TRUE(offer);
    EXPECT_TRUE(offer->Text.starts_with("test.psm was under edit when the program ended. A copy of 20")) << offer->Text;
    EXPECT_NE(offer->Text.find("\r\nMolmass[1]: 0 in the file, 512 in the copy\r\n"), std::string::npos) << offer->Text;
    Document_Notes notes;
    EXPECT_TRUE(copy.Take(The_Session, notes));
    EXPECT_EQ(The_Session.Pesticide.Molmass[1].Number(), 512);
    EXPECT_EQ(The_Session.Program.PSM_File, "test.psm");
    EXPECT_TRUE(The_User.Messages.empty());
}

TEST_F(Unsaved_Copy_Test, An_Offered_Copy_Stays_Until_Its_Editor_Ends)
{
    Lose_A_Change(512);
    {
        auto copy = Editor();
        copy.Begin(The_Session);
        ASSERT_TRUE(copy.Offer(The_Session));
        Document_Notes notes;
        copy.Take(The_Session, notes); // and the program ends again
    }
    EXPECT_TRUE(Open_Document(The_Session, File));
    auto copy = Editor();
    EXPECT_TRUE(copy.Offer(The_Session));
    copy.End();
    EXPECT_FALSE(Editor().Offer(The_Session));
    EXPECT_TRUE(fs::is_empty(Place));
}

TEST_F(Unsaved_Copy_Test, A_Copy_Is_Offered_To_One_Editor_At_A_Time)
{
    Lose_A_Change(512);
    auto first = Editor(), second = Editor();
    ASSERT_TRUE(first.Offer(The_Session));
    EXPECT_FALSE(second.Offer(The_Session));
    Document_Notes notes;
    ASSERT_TRUE(first.Take(The_Session, notes));
    EXPECT_FALSE(second.Offer(The_Session)) << "as long as the first one lives";
    first.End();
    EXPECT_TRUE(fs::is_empty(Place));
}

TEST_F(Unsaved_Copy_Test, A_Copy_That_Is_Left_For_Later_Outlives_Other_Changes)
{
    Lose_A_Change(512);
    {
        auto copy = Editor();
        copy.Begin(The_Session);
        const auto offer = copy.Offer(The_Session);
        ASSERT_TRUE(offer);
        EXPECT_EQ(offer->Buttons.back(), Button::Cancel) << "a box that is closed deletes nothing";
        copy.Leave_Offered();
        The_Session.Pesticide.Molmass[1] = 300;
        EXPECT_TRUE(copy.Keep(The_Session));
        copy.End();
    }
    EXPECT_TRUE(Open_Document(The_Session, File));
    auto copy = Editor();
    const auto offer = copy.Offer(The_Session);
    ASSERT_TRUE(offer);
    EXPECT_NE(offer->Text.find("512 in the copy"), std::string::npos) << offer->Text;
}

TEST_F(Unsaved_Copy_Test, A_Copy_Whose_Editor_Lives_Is_Nobody_Elses)
{
    auto living = Editor();
    living.Begin(The_Session);
    The_Session.Pesticide.Molmass[1] = 512;
    ASSERT_TRUE(living.Keep(The_Session));
    EXPECT_TRUE(Open_Document(The_Session, File));

    EXPECT_FALSE(Editor().Offer(The_Session));
    Lose_A_Change(600); // beside it
    auto next = Editor();
    const auto offer = next.Offer(The_Session);
    ASSERT_TRUE(offer);
    EXPECT_NE(offer->Text.find("600 in the copy"), std::string::npos) << offer->Text;
}

TEST_F(Unsaved_Copy_Test, A_Copy_Of_What_Was_Saved_After_All_Goes_Unseen)
{
    Lose_A_Change(512);
    The_Session.Pesticide.Molmass[1] = 512;
    ASSERT_TRUE(Save_Document(The_Session, File));

    EXPECT_FALSE(Editor().Offer(The_Session));
    EXPECT_TRUE(fs::is_empty(Place));
}

TEST_F(Unsaved_Copy_Test, Another_File_Of_The_Same_Name_Is_Another_Document)
{
    Lose_A_Change(512);
    fs::create_directory(Installation / "other");
    fs::copy_file(File, Installation / "other/test.psm");

    EXPECT_FALSE(Unsaved_Copy(Place, Document_Kind::Pesticide, Installation / "other/test.psm").Offer(The_Session));
}

TEST_F(Unsaved_Copy_Test, A_Number_That_No_File_Can_Hold_Keeps_The_Copy_Of_Before)
{
    auto copy = Editor();
    copy.Begin(The_Session);
    The_Session.Pesticide.Molmass[1] = 512;
    ASSERT_TRUE(copy.Keep(The_Session));
    The_Session.Pesticide.Henry[0] = 1e308;
    The_Session.Pesticide.Henry[0] *= 10;

    EXPECT_FALSE(copy.Keep(The_Session));
    EXPECT_TRUE(copy.Has_Copy());
}

TEST_F(Unsaved_Copy_Test, Notes_Are_Copied_And_Offered_With_The_Document)
{
    Document_Notes notes;
    {
        auto copy = Editor();
        copy.Begin(The_Session);
        Set_Note(notes, "Molmass[1]", {.Source = "Report 12"});
        EXPECT_TRUE(copy.Keep(The_Session, notes)); // and the program ends
    }
    auto copy = Editor();
    const auto offer = copy.Offer(The_Session);
    ASSERT_TRUE(offer);
    EXPECT_NE(offer->Text.find("\r\nMolmass[1], source:  in the file, Report 12 in the copy\r\n"), std::string::npos)
        << offer->Text;
    Document_Notes taken;
    ASSERT_TRUE(copy.Take(The_Session, taken));
    ASSERT_NE(Note_Of(taken, "Molmass[1]"), nullptr);
    EXPECT_EQ(Note_Of(taken, "Molmass[1]")->Source, "Report 12");
}

TEST_F(Unsaved_Copy_Test, A_Copy_Of_Notes_That_Were_Saved_After_All_Goes_Unseen)
{
    Document_Notes notes;
    Set_Note(notes, "Molmass[1]", {.Source = "Report 12"});
    {
        auto copy = Editor();
        copy.Begin(The_Session);
        EXPECT_TRUE(copy.Keep(The_Session, notes));
    }
    EXPECT_FALSE(Editor().Offer(The_Session, notes));
    EXPECT_TRUE(fs::is_empty(Place));
}

TEST_F(Unsaved_Copy_Test, A_Place_That_Takes_No_Copy_Is_A_Trouble_Until_It_Does)
{
    fs::create_directories(Place.parent_path());
    Write_Whole(Place, "a file");
    auto copy = Editor();
    copy.Begin(The_Session);
    EXPECT_TRUE(copy.Keep(The_Session));
    EXPECT_EQ(copy.Trouble(), "") << "nothing to copy, no trouble";

    The_Session.Pesticide.Molmass[1] = 512;
    EXPECT_FALSE(copy.Keep(The_Session));
    EXPECT_NE(copy.Trouble().find(Place.string()), std::string::npos) << copy.Trouble();
    EXPECT_NE(copy.Trouble().find("Not a directory"), std::string::npos) << copy.Trouble();

    fs::remove(Place);
    EXPECT_TRUE(copy.Keep(The_Session));
    EXPECT_EQ(copy.Trouble(), "");
}

TEST_F(Unsaved_Copy_Test, A_Copy_That_Somebody_Cleaned_Away_Is_Made_Again)
{
    auto copy = Editor();
    copy.Begin(The_Session);
    The_Session.Pesticide.Molmass[1] = 512;
    ASSERT_TRUE(copy.Keep(The_Session));
    fs::remove_all(Installation / "state");

    The_Session.Pesticide.Molmass[1] = 513;
    EXPECT_TRUE(copy.Keep(The_Session)) << copy.Trouble();
    EXPECT_FALSE(Editor().Offer(The_Session)) << "its editor lives";
    copy.End();
    EXPECT_TRUE(fs::is_empty(Place));
}

TEST_F(Unsaved_Copy_Test, A_User_Without_A_Home_Has_No_Copies_And_Is_Told)
{
    Unsaved_Copy copy({}, Document_Kind::Pesticide, File);
    copy.Begin(The_Session);
    The_Session.Pesticide.Molmass[1] = 512;
    EXPECT_FALSE(copy.Keep(The_Session));
    EXPECT_EQ(copy.Trouble(), "There is no home directory.");
}

TEST_F(Unsaved_Copy_Test, A_Left_Copy_Is_Listed_Whatever_Became_Of_Its_Document)
{
    EXPECT_TRUE(Left_Copies(Place).empty());
    Lose_A_Change(512);
    auto left = Left_Copies(Place);
    ASSERT_EQ(left.size(), 1u);
    EXPECT_EQ(left[0].Document, File);
    EXPECT_EQ(left[0].Kind, Document_Kind::Pesticide);
    EXPECT_TRUE(Has_Document(left[0]));
    EXPECT_EQ(State_Text(left[0]), "saved without these changes");

    fs::rename(File, Installation / "moved.psm");
    EXPECT_FALSE(Has_Document(left[0]));
    EXPECT_EQ(State_Text(left[0]), "deleted or moved");

    auto copy = Editor();
    Document_Notes notes;
    New_Document(The_Session, Document_Kind::Pesticide);
    The_Session.Program.PSM_File = "test.psm";
    ASSERT_TRUE(copy.Take_Left(The_Session, notes, left[0].Copy));
    EXPECT_EQ(The_Session.Pesticide.Molmass[1].Number(), 512);
    EXPECT_EQ(The_Session.Program.PSM_File, "test.psm");
    EXPECT_TRUE(Left_Copies(Place).empty()) << "its editor lives";
    Delete_Left(left[0]);
    EXPECT_TRUE(fs::exists(left[0].Copy)) << "nobody takes it away from a living editor";
    copy.End();
    EXPECT_TRUE(fs::is_empty(Place));
}

TEST_F(Unsaved_Copy_Test, A_Left_Copy_Of_A_New_Document_Says_So_And_One_That_Was_Saved_Is_None)
{
    {
        Unsaved_Copy copy(Place, Document_Kind::Scenario, Installation / "*.sze");
        copy.Begin(The_Session);
        The_Session.Scenario.SZE_Title = "Mine";
        ASSERT_TRUE(copy.Keep(The_Session));
    }
    Lose_A_Change(512);
    fs::remove(File);
    auto left = Left_Copies(Place);
    ASSERT_EQ(left.size(), 2u);
    const auto fresh = std::ranges::find(left, Document_Kind::Scenario, &Left_Copy::Kind);
    ASSERT_NE(fresh, left.end());
    EXPECT_EQ(State_Text(*fresh), "new, never saved");
    Delete_Left(*fresh);
    left = Left_Copies(Place);
    ASSERT_EQ(left.size(), 1u);

    fs::copy_file(left[0].Copy, File);
    EXPECT_TRUE(Left_Copies(Place).empty());
}

} // namespace orvel
