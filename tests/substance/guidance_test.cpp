#include "substance/guidance.h"

#include "core/error.h"
#include "core/files.h"
#include "core/json_reader.h"
#include "core/text.h"
#include "files/pesticide_example.h"
#include "substance/guidance_check.h"
#include "substance/pathway.h"
#include "substance/value_sheet.h"
#include "temporary_directory.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace orvel {

namespace {

// A rule file with one rule, whose members stand on a line of their own.
std::string With_Rule(const std::string& members)
{
    return "{\"schema\": \"orvel-guidance 1\", \"rules\": [\n{" + members + "}]}";
}

const std::string Head = R"("id": "X", "severity": "warning", "text": "t", "source": "s", )";

std::string Refusal_Of(const std::string& text)
{
    try {
        Parse_Guidance(text);
        return {};
    } catch (const File_Error& error) {
        return error.what();
    }
}

bool Holds(const std::string& limits, std::string_view value)
{
    const auto guidance = Parse_Guidance(With_Rule(Head + R"("compare": "Hv", )" + limits));
    return guidance.Rules.at(0).Demand.Limits.Hold(value);
}

std::vector<Guidance_Finding> Findings_Of(const Pesticide_Document& document, const std::string& rule,
                                          const Document_Notes& notes = {})
{
    return Check_Guidance(Parse_Guidance(With_Rule(Head + rule)), Facts_Of(document), notes);
}

std::vector<std::string> Values_Of_Findings(const Pesticide_Document& document, const std::string& rule)
{
    std::vector<std::string> values;
    for (const auto& finding : Findings_Of(document, rule))
        values.push_back(Value_Text(finding));
    return values;
}

// Two substances, A1 formed of the active one.
std::unique_ptr<Pesticide_Document> Document()
{
    auto document = Example_Document();
    Update_Pathway(*document);
    return document;
}

} // namespace

TEST(Guidance_File, A_Damaged_One_Is_Told_With_Line_And_Column)
{
    EXPECT_EQ(Refusal_Of("{\"schema\": \"orvel-guidance 1\"}"), "Line 1, column 1: The member \"rules\" is missing.");
    EXPECT_EQ(Refusal_Of("{\n \"schema\": \"orvel-guidance 9\"}"),
              "Line 2, column 12: These rules are of another version: \"orvel-guidance 9\", not \"orvel-guidance 1\".");
    const auto refusal = [](const std::string& members) { return Refusal_Of(With_Rule(members)); };
    EXPECT_EQ(refusal(Head + R"("compare": "Koc[*]", "least": 1)"), "");
    EXPECT_EQ(refusal(R"("id": "X")"), "Line 2, column 1: The member \"severity\" is missing.");
    EXPECT_EQ(refusal(R"("severity": "bad")"),
              "Line 2, column 14: There is no severity \"bad\": information, warning, error or refusal.");
    EXPECT_EQ(
        refusal(Head + R"("compare": "Koc[*]")"),
        "Line 2, column 1: There is no limit: \"least\", \"most\", \"above\", \"below\", \"one_of\" or \"none_of\".");
    EXPECT_EQ(refusal(R"("compare": "Kox[*]")"), "Line 2, column 13: There is no field Kox[1].");
    EXPECT_EQ(refusal(R"("compare": "Koc")"), "Line 2, column 13: There is no field Koc.");
    EXPECT_EQ(refusal(R"("compare": "DT50")"), "Line 2, column 13: There is no field DT50.");
    EXPECT_EQ(refusal(R"x("compare": "Source(Kox[*])")x"), "Line 2, column 13: There is no field Kox[1].");
    EXPECT_EQ(refusal(Head + R"("compare": "Hv", "least": "1")").substr(0, 7), "Line 2,");
    EXPECT_EQ(refusal(R"("leats": 1)"), "Line 2, column 11: There is no member \"leats\" here.");
    EXPECT_EQ(refusal(R"("one_of": [])"), "Line 2, column 12: The list of values is empty.");
    EXPECT_EQ(refusal(R"("tolerance": -1)"), "Line 2, column 15: A tolerance is not below 0.");
    EXPECT_EQ(refusal(Head + R"("compare": "Hv", "least": 1, "when": [{"compare": "Koc[*]", "most": 0}])"),
              "Line 2, column 101: A condition has no more [*] than the rule's own \"compare\".");
    const std::string rule = "{" + Head + R"("compare": "Hv", "least": 1})";
    EXPECT_EQ(Refusal_Of("{\"schema\": \"orvel-guidance 1\", \"rules\": [" + rule + ",\n" + rule + "]}"),
              "Line 2, column 8: The rule \"X\" stands twice.");
    EXPECT_EQ(Refusal_Of("{\"schema\": \"orvel-guidance 1\", \"rules\": [], \"crops\": [\n{\"crops\": [\"Maize\"], "
                         "\"interception\": [1, 2]}]}"),
              "Line 2, column 38: The interception has five figures: BBCH 00-09, 10-19, 20-39, 40-89 and 90-99.");
}

TEST(Guidance_File, One_Of_The_Users_Own_Extends_And_Replaces_Or_Stands_Alone)
{
    const auto shipped = Parse_Guidance(Shipped_Guidance());
    const auto own = [&](const std::string& begin) {
        return Parse_Guidance("{" + begin + R"("schema": "orvel-guidance 1", "name": "own", "rules": [
            {"id": "P1.1", "severity": "error", "text": "t", "source": "s", "compare": "Hv", "least": 1},
            {"id": "OWN", "severity": "error", "text": "t", "source": "s", "compare": "Hv", "least": 1}]})",
                              shipped);
    };

    const auto extended = own("");
    ASSERT_EQ(extended.Rules.size(), shipped.Rules.size() + 1);
    EXPECT_EQ(extended.Rules.back().Id, "OWN");
    const auto replaced = std::ranges::find(extended.Rules, "P1.1", &Guidance_Rule::Id);
    EXPECT_EQ(replaced->Severity, Severity::Error);
    EXPECT_EQ(extended.Names.back(), "own");
    const auto alone = own("\"stands_alone\": true, ");
    EXPECT_EQ(alone.Rules.size(), 2U);
    EXPECT_TRUE(alone.Crops.empty());
}

TEST(Guidance_File, That_Of_The_Installation_Counts_With_All_Its_Others_And_The_Users_Own)
{
    const Temporary_Directory place;
    const auto ids = [&](const std::filesystem::path& own = {}) {
        std::vector<std::string> found;
        for (const auto& rule : Read_Guidance(place.Path(), own).Rules)
            found.push_back(rule.Id);
        return found;
    };
    const auto rule = [](const std::string& id) {
        return R"({"schema": "orvel-guidance 1", "rules": [{"id": ")" + id +
               R"(", "severity": "error", "text": "t", "source": "s", "compare": "Hv", "least": 1}]})";
    };
    EXPECT_GT(ids().size(), 40U); // the program's own

    Write_Whole(place / "guidance.json", rule("A"));
    Write_Whole(place / "guidance-uk.json", rule("C"));
    Write_Whole(place / "guidance-at.json", rule("B"));
    Write_Whole(place / "mine", rule("D"));
    EXPECT_EQ(ids(place / "mine"), (std::vector<std::string>{"A", "B", "C", "D"}));

    Write_Whole(place / "guidance-uk.json", "{\n]");
    try {
        ids();
        ADD_FAILURE() << "taken";
    } catch (const File_Error& error) {
        EXPECT_EQ(error.what(), (place / "guidance-uk.json").string() + ", line 2, column 1: This is not JSON.");
    }
}

TEST(Guidance_File, What_Is_Not_Confirmed_Says_So_And_No_Rule_Lacks_Text_Or_Source)
{
    const auto shipped = Parse_Guidance(Shipped_Guidance());
    for (const auto& rule : shipped.Rules) {
        EXPECT_FALSE(rule.Text.empty()) << rule.Id;
        EXPECT_FALSE(rule.Source.empty()) << rule.Id;
        EXPECT_NE(rule.Severity, Severity::Refusal) << rule.Id; // what comes with the program never blocks
    }
    Guidance_Finding finding{.Source = "paper"};
    EXPECT_EQ(Source_Text(finding), "paper (source not confirmed)");
    finding.Confirmed = true;
    EXPECT_EQ(Source_Text(finding), "paper");
}

TEST(Guidance_Limits, Include_Least_And_Most_And_Exclude_Above_And_Below)
{
    EXPECT_TRUE(Holds("\"least\": 1, \"most\": 2", "1"));
    EXPECT_TRUE(Holds("\"least\": 1, \"most\": 2", " 2 "));
    EXPECT_FALSE(Holds("\"least\": 1, \"most\": 2", "2.001"));
    EXPECT_FALSE(Holds("\"above\": 1", "1"));
    EXPECT_FALSE(Holds("\"below\": 1", "1"));
    EXPECT_TRUE(Holds("\"above\": 1, \"below\": 3", "2"));
    EXPECT_TRUE(Holds("\"one_of\": [2, \"H\"]", "2.0"));
    EXPECT_TRUE(Holds("\"one_of\": [2, \"H\"]", "H"));
    EXPECT_FALSE(Holds("\"one_of\": [2, \"H\"]", "K"));
    EXPECT_FALSE(Holds("\"none_of\": [54000], \"tolerance\": 0.01", "54412"));
    EXPECT_TRUE(Holds("\"none_of\": [54000], \"tolerance\": 0.01", "54541"));
    EXPECT_TRUE(Holds("\"least\": 10, \"tolerance\": 0.01", "9.9"));
    EXPECT_FALSE(Holds("\"least\": 10, \"tolerance\": 0.01", "9.8"));
}

TEST(Guidance_Limits, A_Text_That_Is_No_Number_Is_Within_No_Size)
{
    EXPECT_FALSE(Holds("\"least\": 0", "abc"));
    EXPECT_FALSE(Holds("\"most\": 0", ""));
    EXPECT_FALSE(Holds("\"most\": 100", "1D2"));
    EXPECT_TRUE(Holds("\"none_of\": [1]", "abc"));
}

TEST(Guidance_Check, Takes_The_Substances_Of_The_Scheme_Alone)
{
    const auto document = Document();
    for (int i = 1; i <= Substances; ++i)
        document->Plant_Uptake[static_cast<std::size_t>(i)] = 0.5;

    EXPECT_EQ(Values_Of_Findings(*document, R"("compare": "Plant_Uptake[*]", "most": 0)"),
              (std::vector<std::string>{"Plant_Uptake[1] = 0.5", "Plant_Uptake[2] = 0.5"}));
    EXPECT_EQ(Values_Of_Findings(*document, R"("compare": "Plant_Uptake[2]", "most": 0)"),
              std::vector<std::string>{"Plant_Uptake[2] = 0.5"});
}

TEST(Guidance_Check, Conditions_Are_Those_Of_The_Same_Indices)
{
    const auto document = Document();
    document->Koc[1] = 10;
    document->Koc[2] = 20;
    document->Fr_Exp[1] = 2;
    document->Fr_Exp[2] = 2;

    EXPECT_EQ(Values_Of_Findings(*document,
                                 R"("compare": "Fr_Exp[*]", "most": 1, "when": [{"compare": "Koc[*]", "above": 15}])"),
              std::vector<std::string>{"Fr_Exp[2] = 2"});
    EXPECT_TRUE(Values_Of_Findings(*document,
                                   R"("compare": "Fr_Exp[*]", "most": 1, "when": [{"compare": "Years", "above": 0}])")
                    .empty()); // no run, no years
}

TEST(Guidance_Check, Many_Applications_With_One_Value_Are_One_Finding)
{
    const auto document = Document();
    document->App_Mode = 0;
    document->App_Count[1] = 3;
    for (std::int16_t n = 1; n <= 3; ++n)
        document->Applications[1][static_cast<std::size_t>(n)] = {1, 5, n, 1.0, 30};
    document->Applications[1][3].App_Depth = 40;

    EXPECT_EQ(Values_Of_Findings(*document, R"("compare": "Incorporation[*][*]", "most": 20)"),
              (std::vector<std::string>{"Incorporation[1][1] = 30 cm and 1 more", "Incorporation[1][3] = 40 cm"}));
}

TEST(Guidance_Check, An_Answer_Holds_For_The_Value_That_It_Was_Given_For)
{
    const auto document = Document();
    document->Hv = 5;
    Document_Notes notes;
    Set_Answer(notes, {.Rule = "X", .Field = "Hv", .Value = "5", .Text = "kept", .By = "M", .Date = "2026-11-22"});
    const std::string rule = R"("compare": "Hv", "least": 10)";

    EXPECT_TRUE(Has_Open_Finding(Findings_Of(*document, rule)));
    const auto answered = Findings_Of(*document, rule, notes);
    EXPECT_FALSE(Has_Open_Finding(answered));
    EXPECT_EQ(Answer_Text(answered.at(0)), "kept (M, 2026-11-22)");
    document->Hv = 6;
    const auto changed = Findings_Of(*document, rule, notes);
    EXPECT_TRUE(Has_Open_Finding(changed));
    EXPECT_TRUE(changed.at(0).Is_Outdated);
}

TEST(Guidance_Facts, Say_What_Follows_From_The_Fields)
{
    const auto document = Document();
    document->Degradation[1][1].Deg_Rate = 0.03;
    document->Degradation[1][5].Deg_Rate = 0.01;
    document->Degradation[1][5].Deg_Q10 = 2.2;
    document->Henry_Flag = 0;
    document->Henry = {3, 0};
    document->Vap_Press = {0.01, 0};
    document->Solubility = {2, 0};
    document->Molmass[1] = 300;
    Update_Pathway(*document);

    const auto facts = Facts_Of(*document);

    EXPECT_EQ(facts.Find("Total_Rate[1]")->Value, "0.04");
    EXPECT_EQ(facts.Find("DT50[1]")->Value, "17.3"); // ln 2 / 0.04, as the editor shows it
    EXPECT_EQ(facts.Find("Formation[1][1]")->Value, "0.75");
    EXPECT_EQ(facts.Find("Formation[1][5]"), nullptr); // to CO2
    EXPECT_EQ(facts.Find("Distinct_Q10")->Value, "2");
    EXPECT_EQ(facts.Find("Henry_Ratio[0]")->Value, "2"); // 3 over 0.01 * 300 / 2
    EXPECT_EQ(facts.Find("Henry_Ratio[1]"), nullptr);
    EXPECT_EQ(facts.Find("Metabolite[2]")->Value, "1");
    EXPECT_EQ(facts.Find("Koc[3]"), nullptr);
}

TEST(Value_Sheet, Has_A_Row_A_Value_With_Unit_And_Source_And_One_For_Applications_That_Are_Alike)
{
    const auto document = Document();
    document->App_Mode = 0;
    document->App_Count[1] = 3;
    for (std::int16_t n = 1; n <= 3; ++n)
        document->Applications[1][static_cast<std::size_t>(n)] = {1, 5, static_cast<std::int16_t>(n + 1),
                                                                  n == 3 ? 2.0 : 1.0};
    document->Koc[1] = 120;
    Document_Notes notes;
    Set_Note(notes, "Koc[1]", {.Source = "study 12", .Checked_By = "M"});

    const auto rows = Sheet_Of(*document, notes);
    const auto row = [&](std::string_view parameter) {
        const auto found = std::ranges::find(rows, parameter, &Sheet_Row::Parameter);
        return found == rows.end() ? std::string("none") : found->Value + "|" + found->Unit + "|" + found->Note.Source;
    };

    EXPECT_EQ(row("Koc[1]"), "120|L/kg|study 12");
    EXPECT_EQ(row("Koc[0]"), "none"); // not in use
    EXPECT_EQ(row("Koc[3]"), "none"); // not formed
    EXPECT_EQ(row("Met_Present[1]"), "none");
    EXPECT_EQ(row("Applications[1][1 to 3].App_Day"), "1||");
    EXPECT_EQ(row("Applications[1][1 to 3].App_Year"), "2 to 4||");
    EXPECT_EQ(row("Applications[1][1 to 2].App_Rate"), "1|kg/ha|");
    EXPECT_EQ(row("Applications[1][3].App_Rate"), "2|kg/ha|");
    const auto csv = Sheet_Csv(rows);
    EXPECT_TRUE(csv.starts_with("\xEF\xBB\xBFParameter,Substance,Value,Unit,Source,Comment,Checked by,Date\r\n"));
    EXPECT_NE(csv.find("\r\nKoc[1],Alpha,120,L/kg,study 12,,M,\r\n"), std::string::npos);
}

} // namespace orvel
