#include "runs/guidance_of_run.h"

#include "runs/mark.h"
#include "runs/run_fixture.h"
#include "runs/selection.h"
#include "substance/pathway.h"

#include <map>

namespace orvel {

namespace {

// A document, its notes and a run, all of which the shipped rules accept: the active substance and its metabolite A1 at
// Hamburg in maize, 1 May to 1 October.
struct Subject {
    Subject()
    {
        auto& d = *Document;
        Reset_PSM(d);
        d.App_Mode = 0;
        d.App_Method = 1;
        d.App_Loc_Count = 2;
        d.App_Count.fill(0);
        d.App_Count[1] = 26;
        d.App_Location[1] = "Hamburg (H)";
        for (std::int16_t year = 1; year <= 26; ++year)
            d.Applications[1][static_cast<std::size_t>(year)] = {
                .App_Day = 1, .App_Month = 6, .App_Year = year, .App_Rate = 1};
        d.Degradation[1][1].Deg_Rate = 0.03;
        d.Degradation[2][4].Deg_Rate = 0.03;
        d.Henry_Flag = 1;
        d.Vap_Press = {1e-7, 4e-7};
        d.Solubility = {100, 200};
        for (const std::size_t i : {1U, 2U}) {
            d.Molmass[i] = 300;
            d.Plant_Uptake[i] = 0;
            d.Fr_Exp[i] = 0.85;
            d.Koc[i] = 100;
        }
        Set_Note(Notes, "Koc[2]", {.Source = "study 2"});
        Reset_SZE(Scenario);
        Scenario.SZE_Dispersion_Flag = 1;
        Scenario.SZE_Horizons = 1;
        Scenario.Horizons.assign(1, {.SZE_Hor_Dispersion = 5});
        Scenario.SZE_Rot_Count = 1;
        Scenario.Rotation.assign(1, {.SZE_Eme_Day = 1,
                                     .SZE_Eme_Month = 5,
                                     .SZE_Mat_Day = 1,
                                     .SZE_Mat_Month = 8,
                                     .SZE_Har_Day = 1,
                                     .SZE_Har_Month = 10});
        Choice.Pattern = 1;
    }

    std::vector<Guidance_Finding> Check(const Guidance& guidance) const
    {
        Update_Pathway(*Document);
        Guidance_Facts facts = Facts_Of(*Document);
        if (Years > 0)
            facts.Add("Years", Years);
        Add_Facts_Of_Run(facts, guidance, *The_Mode, Choice, *Document, Scenario);
        return Check_Guidance(guidance, facts, Notes);
    }

    // Interception by hand of the application of each year, whose date may move.
    void Intercept(double share, std::int16_t month = 6)
    {
        Document->App_Method = 4;
        for (std::size_t year = 1; year <= 26; ++year) {
            Document->Applications[1][year].App_Frpex = share;
            Document->Applications[1][year].App_Month = month;
        }
    }

    // Dates relative to the first emergence.
    void Use_Emergence(std::int16_t days, double interception)
    {
        Document->App_Mode = App_Mode_Relative;
        Document->App_Method = 4;
        for (std::size_t n = 1; n <= 26; ++n)
            Document->Relative[n] = {days, 0, static_cast<std::int16_t>(n), 1, 0, interception};
    }

    std::unique_ptr<Pesticide_Document> Document = std::make_unique<Pesticide_Document>();
    Document_Notes Notes;
    Scenario_Document Scenario;
    int Years = 0; // in place of those that the run form gives the interval; 0: none
    const Mode* The_Mode = &Focus();
    Run_Choice Choice = Chosen(Focus(), Maize, "Hamburg (H)");
};

using Change = std::function<void(Subject&)>;

struct Case {
    Change Break, Keep = [](Subject&) {};
};

// Sets a member of the document, or an element of one of its arrays.
template <class T, class U> Change Set(T Pesticide_Document::*member, U value)
{
    return [=](Subject& s) { (*s.Document).*member = value; };
}
template <class T, class U> Change Set(T Pesticide_Document::*member, std::size_t i, U value)
{
    return [=](Subject& s) { ((*s.Document).*member)[i] = value; };
}
Change Set(Variant Degradation_Row::*member, double value)
{
    return [=](Subject& s) { s.Document->Degradation[1][1].*member = value; };
}
Change Note(std::string field, Field_Note note)
{
    return [=](Subject& s) { Set_Note(s.Notes, field, note); };
}
Change Both(Change first, Change second)
{
    return [=](Subject& s) {
        first(s);
        second(s);
    };
}
Change Each_Year(double Application::*member, double value)
{
    return [=](Subject& s) {
        for (std::size_t year = 1; year <= 26; ++year)
            s.Document->Applications[1][year].*member = value;
    };
}
Change Run(int pattern, int years = 0)
{
    return [=](Subject& s) {
        s.Choice.Pattern = pattern;
        s.Years = years;
    };
}
Change In(const Mode& mode, std::string tillage)
{
    return [&mode, tillage](Subject& s) {
        s.The_Mode = &mode;
        s.Choice.Tillage_Visible = true;
        s.Choice.Options.Tillage = tillage;
    };
}
Change Of_Crop(const Crop* crop)
{
    return [=](Subject& s) { s.Choice.Crop = crop; };
}

using Doc = Pesticide_Document;
const Change Foliar = Set(&Doc::App_Method, 2);

// Each shipped rule with a change of the good subject that breaks it, and one after which it applies and is kept.
const std::map<std::string, Case> Cases = {
    {"D1", {Set(&Degradation_Row::Deg_Q10, 2.2)}},
    {"D2", {Set(&Degradation_Row::Deg_Q10, 2.2)}},
    {"D3",
     {Note("Degradation[1][1].Deg_Rate", {.Comment = "Arithmetic mean of 4 soils"}),
      Note("Degradation[1][1].Deg_Rate", {.Comment = "geometric mean of 4 soils"})}},
    {"D4",
     {Both(Set(&Degradation_Row::Deg_Q10, 1), Set(&Degradation_Row::Deg_Temp, 10)), Set(&Degradation_Row::Deg_Q10, 1)}},
    {"D5.1", {Set(&Degradation_Row::Deg_Moist_Exp, 0)}},
    {"D5.2", {Set(&Degradation_Row::Deg_Moist_Rel, 50)}},
    {"D7", {Set(&Doc::Deg_Depth_Mode, 1, std::uint8_t{1})}},
    {"D8", {Set(&Degradation_Row::Deg_Rate, 0)}},
    {"D9.1", {Set(&Degradation_Row::Deg_Rate, 0.0006), Set(&Degradation_Row::Deg_Rate, 0.0008)}}, // 1155 and 866 d
    {"D9.2", {Set(&Degradation_Row::Deg_Rate, 0.011), Set(&Degradation_Row::Deg_Rate, 0.012)}},   // 63 and 58 d
    {"D11", {Set(&Doc::Photo_Rate, 1, 0.1)}},
    {"S1", {Note("Koc[1]", {.Source = "arithmetic mean, n = 4"}), Note("Koc[1]", {.Source = "geometric mean, n = 4"})}},
    {"S2", {Set(&Doc::Fr_Exp, 1, 0.9)}},
    {"S3.1", {Set(&Doc::Fr_Exp, 1, 1.05)}},
    {"S3.2", {Set(&Doc::Fr_Exp, 1, 0.6), Set(&Doc::Fr_Exp, 1, 1.1)}},
    {"S3.3", {Set(&Doc::Fr_Exp, 1, 0), Set(&Doc::Fr_Exp, 1, 1.5)}},
    {"S5", {Set(&Doc::Sorp_pKa, 1, 4.5), Both(Set(&Doc::Sorp_pKa, 1, 4.5), Set(&Doc::Sorp_pH2, 1, 8))}},
    {"S6", {Set(&Doc::F_neq, 1, 0.3)}},
    {"S7", {Note("Koc[2]", {})}},
    {"S8",
     {Both(Set(&Doc::Koc, 1, 501), Set(&Degradation_Row::Deg_Rate, 0.05)),
      Both(Set(&Doc::Koc, 1, 500), Set(&Degradation_Row::Deg_Rate, 0.05))}},
    {"P1.1", {Set(&Doc::Plant_Uptake, 1, 0.5)}},
    {"P1.2", {Set(&Doc::Plant_Uptake, 1, 1.1), Set(&Doc::Plant_Uptake, 1, 1)}},
    {"P2", {Set(&Doc::Plant_Uptake, 2, 0.5)}},
    {"P3.1", {Set(&Doc::Volat_Temp, 0, 30)}},
    {"P3.2",
     {[](Subject& s) { // 1e-7 Pa 300 g/mol / 100 mg/L is 3e-7
          s.Document->Henry_Flag = 0;
          s.Document->Henry[0] = 7e-7;
      },
      [](Subject& s) {
          s.Document->Henry_Flag = 0;
          s.Document->Henry[0] = 5e-7;
      }}},
    {"P4.1", {Both(Foliar, Set(&Doc::Vap_Press, 0, 1e-5)), Foliar}},
    {"P4.2", {Set(&Doc::Vap_Press, 0, 1e-4), Set(&Doc::Vap_Press, 0, 1e-5)}},
    {"P5", {Set(&Doc::Hv, 54400)}},
    {"P6", {Set(&Doc::Diff_Air, 0.43)}},
    {"P7", {[](Subject& s) { s.Scenario.Horizons[0].SZE_Hor_Dispersion = 2.5; }}},
    {"P8", {Both(Foliar, Set(&Doc::Plant_Decay, 0.03)), Foliar}},
    {"P9.1", {Both(Foliar, Set(&Doc::Plant_Washoff, 0.1)), Foliar}},
    {"P9.2", {Foliar, Both(Foliar, Set(&Doc::Plant_Washoff, 1))}},
    {"P10", {Both(Foliar, Each_Year(&Application::App_Frpex, 50)), Foliar}},
    {"M2",
     {Set(&Doc::Degradation, 1,
          std::array<Degradation_Row, 7>{{{},
                                          {.Deg_Rate = 0.01, .Deg_Temp = 20, .Deg_Q10 = 2.58},
                                          {},
                                          {},
                                          {},
                                          {.Deg_Rate = 0.01, .Deg_Temp = 20, .Deg_Q10 = 2.58},
                                          {}}})}},
    {"M4", {Set(&Doc::Molmass, 2, 0)}},
    {"Y3.1", {Run(1, 46)}},
    {"Y3.2", {Run(2, 26), Run(2)}},
    {"Y3.3", {Run(3, 26), Run(3)}},
    {"Y3.4", {Run(0, 26)}},
    {"Y8", {Of_Crop(Individual_Crop)}},
    {"U2", {[](Subject& s) { s.Document->Applications[1][2].App_Year = 1; }}},
    {"U3", {[](Subject& s) { s.Intercept(50, 11); }, [](Subject& s) { s.Intercept(0, 11); }}},
    {"U5", {Of_Crop(Crop_Named("Soybeans"))}}, // Piacenza alone
    {"U6.1", {[](Subject& s) { s.Use_Emergence(-3, 25); }, [](Subject& s) { s.Use_Emergence(-3, 0); }}},
    {"U6.2",
     {Both(Each_Year(&Application::App_Frpex, 50), Each_Year(&Application::App_Depth, 5)),
      Each_Year(&Application::App_Depth, 5)}},
    {"U7.1", {Each_Year(&Application::App_Frpex, 101), Each_Year(&Application::App_Frpex, 100)}},
    // In June maize grows: BBCH 10-39, at most 50 %; in September it is mature: 90 %.
    {"U7.2", {[](Subject& s) { s.Intercept(51); }, [](Subject& s) { s.Intercept(90, 9); }}},
    {"U8", {Each_Year(&Application::App_Depth, 25), Each_Year(&Application::App_Depth, 20)}},
    {"E6", {In(Tier_2(), "10"), In(Tier_2(), "20")}},
};

bool Finds(const std::vector<Guidance_Finding>& findings, std::string_view rule)
{
    return std::ranges::find(findings, rule, &Guidance_Finding::Rule) != findings.end();
}

std::vector<std::string> Shipped_Rules()
{
    std::vector<std::string> ids;
    for (const auto& rule : Parse_Guidance(Shipped_Guidance()).Rules)
        ids.push_back(rule.Id);
    return ids;
}

// The shipped rules, of this one such limits that nothing keeps them.
Guidance With_Impossible(std::string_view id)
{
    auto guidance = Parse_Guidance(Shipped_Guidance());
    for (auto& rule : guidance.Rules) {
        if (rule.Id == id)
            rule.Demand.Limits = {.One_Of = {"never"}};
    }
    return guidance;
}

class Shipped_Rule : public testing::TestWithParam<std::string> {};

} // namespace

TEST_P(Shipped_Rule, Is_Broken_By_A_Document_And_Kept_By_Another_To_Which_It_Applies)
{
    const auto guidance = Parse_Guidance(Shipped_Guidance());
    const auto found = Cases.find(GetParam());
    ASSERT_NE(found, Cases.end()) << "a rule without a test case";

    Subject broken, kept;
    found->second.Break(broken);
    found->second.Keep(kept);

    EXPECT_TRUE(Finds(broken.Check(guidance), GetParam()));
    EXPECT_FALSE(Finds(kept.Check(guidance), GetParam()));
    EXPECT_TRUE(Finds(kept.Check(With_Impossible(GetParam())), GetParam())) << "it does not apply to what keeps it";
}

INSTANTIATE_TEST_SUITE_P(Guidance, Shipped_Rule, testing::ValuesIn(Shipped_Rules()), [](const auto& rule) {
    std::string name = rule.param;
    std::ranges::replace(name, '.', '_');
    return name;
});

TEST(Guidance_Of_Run, Nothing_Is_Found_Against_The_Good_Subject)
{
    EXPECT_EQ(Findings_Lines(Subject().Check(Parse_Guidance(Shipped_Guidance()))), "");
}

TEST(Guidance_Of_Run, No_Case_Is_Left_Of_A_Rule_That_Is_Gone)
{
    const auto shipped = Shipped_Rules();
    for (const auto& [id, unused] : Cases)
        EXPECT_NE(std::ranges::find(shipped, id), shipped.end()) << id;
}

TEST(Guidance_Of_Run, The_Stage_Of_An_Interception_Is_That_Of_The_Scenario)
{
    const auto guidance = Parse_Guidance(Shipped_Guidance());
    const auto over = [&](double share, std::int16_t month) {
        Subject subject;
        subject.Intercept(share, month);
        Guidance_Facts facts = Facts_Of(*subject.Document);
        Add_Facts_Of_Run(facts, guidance, Focus(), subject.Choice, *subject.Document, subject.Scenario);
        const auto* fact = facts.Find("Interception_Over_Table[1][1]");
        return fact->Value + " " + fact->Shown;
    };

    EXPECT_EQ(over(60, 4), "60 % (60 %, table: 0 %, without the crop)");
    EXPECT_EQ(over(60, 5), "10 % (60 %, table: 50 %, emergence to maturation)");
    EXPECT_EQ(over(60, 8), "-30 % (60 %, table: 90 %, maturation to harvest)");
    EXPECT_EQ(over(60, 12), "60 % (60 %, table: 0 %, without the crop)");
}

class Guidance_Of_Run_Test : public Run_Test {
protected:
    // The maize of Hamburg, with dates, and 90 % of an application on 5 November that nothing can intercept.
    Run_Choice Late_Interception()
    {
        auto choice = Maize_At_Hamburg();
        Pesticide("test.psm", [](Pesticide_Document& document) {
            document.App_Method = 4;
            for (std::size_t n = 1; n <= 26; ++n)
                document.Applications[1][n].App_Frpex = 90;
        });
        Scenario(Home / "focus" / "H_maize.sze", [](Scenario_Document& scenario) {
            scenario.Rotation[0] = {.SZE_Eme_Day = 1,
                                    .SZE_Eme_Month = 5,
                                    .SZE_Eme_Year = 1,
                                    .SZE_Mat_Day = 1,
                                    .SZE_Mat_Month = 8,
                                    .SZE_Mat_Year = 1,
                                    .SZE_Har_Day = 1,
                                    .SZE_Har_Month = 10,
                                    .SZE_Har_Year = 1,
                                    .SZE_Rot_Crop_Index = 1};
        });
        choice.Pattern = 1;
        return choice;
    }

    Mark_Result Mark(const Run_Choice& choice)
    {
        return Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), choice);
    }

    static std::string Rule(const std::string& severity)
    {
        return R"({"schema": "orvel-guidance 1", "stands_alone": true, "rules": [{"id": "OWN", "severity": ")" +
               severity +
               R"(", "text": "Only Kremsmuenster.", "source": "authority", "confirmed": true, "compare": "Location", "one_of": ["K"]}]})";
    }
};

TEST_F(Guidance_Of_Run_Test, What_A_Run_Breaks_Is_Told_With_Its_Locations_And_Without_What_The_Document_Breaks)
{
    const auto choice = Late_Interception();

    const auto text = Guidance_After_Marking(The_Session.Program, Focus(), {choice, choice});

    EXPECT_NE(text.find("Hamburg (H); Hamburg (H): warning U3: There is no crop between harvest and emergence that "
                        "could intercept. Interception[1][1] = 90 % and 25 more. Source: Central Zone"),
              std::string::npos)
        << text;
    EXPECT_EQ(text.find("P1.1"), std::string::npos) << text;
    EXPECT_EQ(Mark(choice), Mark_Result::Marked);
}

TEST_F(Guidance_Of_Run_Test, Rules_That_Cannot_Be_Read_Are_Told_And_Do_Not_Block)
{
    const auto choice = Maize_At_Hamburg();
    Put(Home / "guidance-own.json", "{\n]");

    EXPECT_EQ(Guidance_After_Marking(The_Session.Program, Focus(), {choice}),
              "The guidance check could not be done. " + (Home / "guidance-own.json").string() +
                  ", line 2, column 1: This is not JSON.");
    EXPECT_EQ(Mark(choice), Mark_Result::Marked);
}

TEST_F(Guidance_Of_Run_Test, A_Refusal_Keeps_A_Run_From_Being_Marked_Until_It_Is_Answered)
{
    const auto choice = Maize_At_Hamburg();
    Put(Home / "guidance-own.json", Rule("refusal"));

    EXPECT_EQ(Mark(choice), Mark_Result::Failed);
    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_EQ(The_User.Messages[0].Text, "The rule OWN refuses this simulation: Only Kremsmuenster. Location = H. "
                                         "Source: authority");

    Document_Notes notes;
    Set_Answer(notes, {.Rule = "OWN", .Field = "Location", .Value = "H", .Text = "for comparison"});
    Write_Notes(Home / "test.psm", notes);
    EXPECT_EQ(Mark(choice), Mark_Result::Marked);
}

TEST_F(Guidance_Of_Run_Test, An_Error_Does_Not_Keep_A_Run_From_Being_Marked)
{
    const auto choice = Maize_At_Hamburg();
    Put(Home / "guidance-own.json", Rule("error"));

    EXPECT_EQ(Mark(choice), Mark_Result::Marked);
    EXPECT_NE(Guidance_After_Marking(The_Session.Program, Focus(), {choice}).find("error OWN"), std::string::npos);
}

} // namespace orvel
