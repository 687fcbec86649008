#include "engine/output/echo.h"

#include "core/files.h"
#include "core/text.h"
#include "temporary_directory.h"

#include <gtest/gtest.h>

namespace orvel::engine {

namespace {

constexpr std::string_view Not_Completed =
    " *** ERROR 99: RUN NOT COMPLETED (ENGINE STILL AT WORK OR STOPPED FROM OUTSIDE) ***\r\n";

} // namespace

TEST(Echo, Ends_In_The_Line_Of_Error_99_Until_It_Is_Finished)
{
    Temporary_Directory directory;
    Echo echo(directory.Path());
    const auto bytes = [&directory] { return Read_Whole(directory / "echo.orv"); };
    EXPECT_TRUE(bytes().ends_with(Not_Completed));

    echo.Text = " one\r\n";
    echo.Flush();
    EXPECT_TRUE(bytes().ends_with(" one\r\n" + std::string(Not_Completed)));

    echo.Text = " two\r\n";
    echo.Finish(Completed_Line);
    EXPECT_TRUE(bytes().ends_with(" one\r\n two\r\n *** SIMULATION COMPLETED ***\r\n"));
    EXPECT_FALSE(Contains(bytes(), "ERROR"));
}

TEST(Echo, Is_Locked_As_Long_As_It_Lives)
{
    Temporary_Directory directory;
    {
        Echo echo(directory.Path());
        EXPECT_TRUE(Is_Locked(directory / "echo.orv"));
        EXPECT_THROW(Echo second(directory.Path()), Engine_Failure);
    }
    EXPECT_FALSE(Is_Locked(directory / "echo.orv"));
}

TEST(Echo, Begins_Anew)
{
    Temporary_Directory directory;
    Write_Whole(directory / "echo.orv", std::string(100000, 'x'));
    Echo echo(directory.Path());
    echo.Finish(Completed_Line);

    EXPECT_LT(Read_Whole(directory / "echo.orv").size(), 300U);
}

TEST(Echo, A_Users_Text_Is_Tamed)
{
    EXPECT_EQ(Sanitize("An ERROR in WATR"), "An error in watr");
    EXPECT_EQ(Sanitize("E R R O R *** PARAMETERS OF x"), "e r r o r *** parameters of x");
    EXPECT_EQ(Sanitize("TOTAL COMPARTMENTS IN CORE"), "total compartments in core");
    EXPECT_EQ(Sanitize("a\tb\x1f"), "a b ");
    EXPECT_EQ(Sanitize("M\xFCller"), "M\xFCller");
}

TEST(Echo, Notes_Never_Hold_The_Word_For_A_Failed_Run)
{
    Findings findings;
    findings.Tell(Note::Value_Clamped, "ERROR of the user");
    findings.Tell(Note::Value_Clamped, "ERROR of the user"); // told once
    findings.Error(Fault::Scenario_Unreadable, "x.sze is short");
    std::string notes, errors;
    Put_Notes(notes, findings);
    Put_Errors(errors, findings);

    EXPECT_EQ(notes, " NOTE 13: error of the user\r\n");
    EXPECT_EQ(errors, " *** ERROR 31: x.sze is short ***\r\n");
}

TEST(Echo, Frequencies_Are_Read_With_And_Without_Blanks)
{
    EXPECT_EQ(Frequency_Of(Variant(" DAY")), Frequency::Day);
    EXPECT_EQ(Frequency_Of(Variant("MNTH")), Frequency::Month);
    EXPECT_EQ(Frequency_Of(Variant("YEAR")), Frequency::Year);
    EXPECT_EQ(Frequency_Of(Variant("else")), Frequency::Year);
    EXPECT_EQ(Frequency_Word(Frequency::Month), "MNTH");
}

} // namespace orvel::engine
