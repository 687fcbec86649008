// A document that is built on the forms alone, by clicks and typed text: saved, opened again, and run by the engine.
#include "core/files.h"
#include "substance/forms/editor_test.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

namespace orvel {

namespace fs = std::filesystem;

namespace {

using Fields = std::vector<std::pair<QString, QString>>; // names and texts

struct Metabolite {
    QString Box, Default_Name;
    Fields Texts;
    QString Depth_Mode;
    bool Liquid_Only;
};

// Eight metabolites that differ in every field.
std::vector<Metabolite> All_Metabolites()
{
    const QStringList boxes = {"Label_1_1", "Label_1_2", "Label_1_3", "Label_1_4",
                               "Label_2_1", "Label_2_2", "Label_2_3", "Label_2_4"};
    const QStringList names = {"A1", "B1", "C1", "D1", "A2", "B2", "C2", "D2"};
    std::vector<Metabolite> all;
    for (int k = 0; k < boxes.size(); ++k) {
        const QString digit = QString::number(k + 1);
        all.push_back({boxes[k],
                       "Metabolite " + names[k],
                       {{"metcom", QString::fromUtf8("Säure ") + names[k]},
                        {"Text_mol", "15" + digit},
                        {"text_uptkf", "0." + digit},
                        {"Text_koc0", digit + "3.5"},
                        {"Text_koc1", "0.8" + digit},
                        {"Text_koc4", "0.0" + digit},
                        {"Text_koc5", digit},
                        {"text_kdoc", "2" + digit},
                        {"Text_KOC_MOI", "1." + digit}},
                       QString("tiefenabhaengig_%1").arg(k % 2),
                       k % 3 == 0});
    }
    return all;
}

const Fields Active_Fields = {{"Text_AS", "Testium"},      {"Text_comment", "Built by hand"},
                              {"Text_mol", "301.5"},       {"text_uptkf", "0.45"},
                              {"Text_koc0", "62.5"},       {"Text_koc1", "0.93"},
                              {"Text_koc4", "0.02"},       {"Text_koc5", "4"},
                              {"text_kdoc", "5"},          {"Text_KOC_MOI", "2"},
                              {"S_Temperatur_0", "15"},    {"S_Temperatur_1", "25"},
                              {"Text_vol1_0", "1.00E-05"}, {"Text_vol1_1", "3.00E-05"},
                              {"Text_vol2_0", "90"},       {"Text_vol2_1", "120"},
                              {"Text_vol3", "0.06"},       {"Text_vol4", "0.2"}};

struct Planned {
    QString Day, Month, Rate, Depth;
};
struct Place_Plan {
    QString Location, Mode;
    std::vector<Planned> Year;
};
const std::vector<Place_Plan> Absolute_Plan = {
    {QString::fromUtf8("Châteaudun (C)"), "Every Year", {{"10", "March", "0.5", "0"}, {"25", "October", "0.25", "2"}}},
    {"Hamburg (H)", "Every Year", {{"20", "April", "1.5", "0"}}},
    {"Piacenza (P)",
     "Every other Year",
     {{"5", "May", "0.75", "1"}, {"6", "May", "0.7", "1"}, {"1", "June", "0.6", "3"}}}};

struct Planned_Day {
    QString Days, Rate, Depth;
};
const std::vector<Planned_Day> Relative_Plan = {{"-14", "0.4", "0"}, {"30", "0.2", "1"}};
const QString Reference_Point = "1st harvest in the year";

QString Rate_Of(int t)
{
    return QString::number(0.001 * (t + 10));
}

bool Is_Arrow(int t)
{
    return t != 18 && t != 20 && t != 28;
}

QString Text(const QWidget& form, const QString& name)
{
    return Find<QLineEdit>(form, name)->text();
}

QString Item(const QWidget& form, const QString& name)
{
    return Find<QComboBox>(form, name)->currentText();
}

void Type_All(const QWidget& form, const Fields& fields)
{
    for (const auto& [name, text] : fields) {
        auto* field = Find<QLineEdit>(form, name);
        field->setFocus();
        field->selectAll();
        field->insert(text); // an umlaut has no key in a test
        QTest::keyClick(field, Qt::Key_End);
    }
}

// A field of a volatilisation pair tells a key press only.
void Retype_All(const QWidget& form, const Fields& fields)
{
    for (const auto& [name, text] : fields)
        Retype(form, name, text);
}

void Expect_All(const QWidget& form, const Fields& fields)
{
    for (const auto& [name, text] : fields)
        EXPECT_EQ(Text(form, name), text) << name.toStdString();
}

class Document_By_Hand : public Editor_Test {
protected:
    static void SetUpTestSuite()
    {
        Editor_Test::SetUpTestSuite();
        Build();
    }

    static void Build();
    static void Run(const std::string& file, const std::string& location);
};

void Build_Transformations(const std::function<void(const QString&, const std::function<void(QWidget&)>&)>& in_form)
{
    for (int t = 1; t <= Last_Transformation; ++t) {
        if (!Is_Arrow(t))
            continue;
        in_form(QString("Image2_%1").arg(t), [t](QWidget& form) {
            Retype(form, "Text1", Rate_Of(t));
            Press(form, "Command1");
        });
    }
}

void Build_Metabolite(QWidget& form, const Metabolite& met)
{
    EXPECT_EQ(form.windowTitle(), met.Default_Name);
    Type_All(form, met.Texts);
    Choose_Option(form, met.Depth_Mode);
    if (met.Liquid_Only)
        Choose_Option(form, "Check_Hydrolysis");
    Press(form, "Command_ok1");
}

void Build_Absolute_Applications(QWidget& form)
{
    In_Modal([](QWidget& choice) {
        for (const auto& plan : Absolute_Plan)
            Choose(choice, "Location", plan.Location);
        Press(choice, "OK");
    });
    Press(form, "neue_Standort");
    for (const auto& plan : Absolute_Plan) {
        Pick(form, "Standort", plan.Location);
        Pick(form, "App_Modus", plan.Mode);
        for (std::size_t p = 0; p < plan.Year.size(); ++p) {
            if (p > 0) {
                Press(form, "mehr_Applikationen_im_Jahr");
                Press(form, "naechste_Applikation_im_Jahr");
            }
            Pick(form, "App_Tag", plan.Year[p].Day);
            Pick(form, "App_Monat", plan.Year[p].Month);
            Retype_All(form, {{"Rate", plan.Year[p].Rate}, {"Tiefe", plan.Year[p].Depth}});
        }
    }
}

void Build_Relative_Applications(QWidget& form)
{
    Pick(form, "Standort", "Hamburg (H)"); // whose pattern, one application every year, the relative dates take over
    Pick(form, "Applikationsverfahren", "relative applications dates");
    Pick(form, "Bezugspunkt", Reference_Point);
    for (std::size_t p = 0; p < Relative_Plan.size(); ++p) {
        if (p > 0) {
            Press(form, "mehr_Applikationen_im_Jahr");
            Press(form, "naechste_Applikation_im_Jahr");
        }
        Pick(form, "Tage", Relative_Plan[p].Days);
        Retype_All(form, {{"relative_Rate", Relative_Plan[p].Rate}, {"relative_Tiefe", Relative_Plan[p].Depth}});
    }
    Press(form, "Command_ok1");
}

// hand_abs.psm has absolute dates; hand_rel.psm is made of it with relative ones.
void Document_By_Hand::Build()
{
    In_Editor("", [](QWidget& scheme) {
        Build_Transformations(
            [&](const QString& control, const std::function<void(QWidget&)>& use) { In_Form(scheme, control, use); });
        for (const auto& met : All_Metabolites())
            In_Form(scheme, met.Box, [&met](QWidget& form) { Build_Metabolite(form, met); });
        In_Form(scheme, "Label_AS", [](QWidget& form) {
            Press(form, "Command4");
            Choose_Option(form, "Option_hen2");
            Retype_All(form, Active_Fields);
            Choose_Option(form, "tiefenabhaengig_1");
            Build_Absolute_Applications(form);
            Press(form, "Command_ok1");
        });
        Save(scheme, "ComSave", "hand_abs.psm");
        In_Form(scheme, "Label_AS", Build_Relative_Applications);
        Save(scheme, "Command1", "hand_rel.psm");
    });
}

void Document_By_Hand::Run(const std::string& file, const std::string& location)
{
    const std::string at = "-C " + Installation().string();
    ASSERT_EQ(Orvelctl(at + " mark --mode focus --pesticide " + file + ".psm --crop 'Winter cereals' --location '" +
                       location + "'"),
              0);
    ASSERT_EQ(Orvelctl(at + " start --mode focus --wait"), 0);
}

void Expect_Active_Substance(QWidget& form)
{
    Press(form, "Command4");
    Expect_All(form, Active_Fields);
    EXPECT_TRUE(Find<QRadioButton>(form, "Option_hen2")->isChecked());
    EXPECT_TRUE(Find<QRadioButton>(form, "tiefenabhaengig_1")->isChecked());
    EXPECT_TRUE(Find<QRadioButton>(form, "App_Flag1")->isChecked());
}

// Both files hold these; `applications` looks at the rest of the form of the active substance.
void Expect_Document(QWidget& scheme,
                     const std::function<void(const QString&, const std::function<void(QWidget&)>&)>& in_form,
                     const std::function<void(QWidget&)>& applications)
{
    for (int t = 1; t <= Last_Transformation; ++t) {
        if (Is_Arrow(t))
            in_form(QString("Image2_%1").arg(t),
                    [t](QWidget& form) { EXPECT_EQ(Text(form, "Text1"), Rate_Of(t)) << t; });
    }
    for (const auto& met : All_Metabolites()) {
        EXPECT_EQ(Find<QAbstractButton>(scheme, met.Box)->text(), met.Texts.front().second);
        in_form(met.Box, [&met](QWidget& form) {
            Expect_All(form, met.Texts);
            EXPECT_TRUE(Find<QRadioButton>(form, met.Depth_Mode)->isChecked());
            EXPECT_EQ(Find<QCheckBox>(form, "Check_Hydrolysis")->isChecked(), met.Liquid_Only);
        });
    }
    in_form("Label_AS", [&applications](QWidget& form) {
        Expect_Active_Substance(form);
        applications(form);
    });
}

void Expect_Absolute_Applications(QWidget& form)
{
    EXPECT_EQ(Find<QComboBox>(form, "Standort")->count(), 4);
    for (const auto& plan : Absolute_Plan) {
        SCOPED_TRACE(plan.Location.toStdString());
        Pick(form, "Standort", plan.Location);
        EXPECT_EQ(Item(form, "App_Modus"), plan.Mode);
        EXPECT_EQ(Find<QLabel>(form, "label_Anzahl_Applikationen_im_Jahr")->text().toInt(),
                  static_cast<int>(plan.Year.size()));
        for (const auto& planned : plan.Year) {
            EXPECT_EQ(Item(form, "App_Tag"), planned.Day);
            EXPECT_EQ(Item(form, "App_Monat"), planned.Month);
            Expect_All(form, {{"Rate", planned.Rate}, {"Tiefe", planned.Depth}});
            Press(form, "naechste_Applikation_im_Jahr");
        }
    }
}

void Expect_Relative_Applications(QWidget& form)
{
    EXPECT_EQ(Item(form, "Applikationsverfahren"), "relative applications dates");
    EXPECT_EQ(Find<QComboBox>(form, "Standort")->count(), 4);
    EXPECT_EQ(Item(form, "App_Modus"), "Every Year");
    EXPECT_EQ(Item(form, "Bezugspunkt"), Reference_Point);
    for (const auto& planned : Relative_Plan) {
        EXPECT_EQ(Item(form, "Tage"), planned.Days);
        Expect_All(form, {{"relative_Rate", planned.Rate}, {"relative_Tiefe", planned.Depth}});
        Press(form, "naechste_Applikation_im_Jahr");
    }
}

int Count_Of(const std::string& text, const std::string& part)
{
    int count = 0;
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

} // namespace

TEST_F(Document_By_Hand, With_Absolute_Dates_Is_Found_Again_Value_For_Value)
{
    In_Editor("hand_abs.psm", [](QWidget& scheme) {
        Expect_Document(
            scheme,
            [&](const QString& control, const std::function<void(QWidget&)>& use) { In_Form(scheme, control, use); },
            Expect_Absolute_Applications);
    });
}

TEST_F(Document_By_Hand, With_Relative_Dates_Is_Found_Again_Value_For_Value)
{
    In_Editor("hand_rel.psm", [](QWidget& scheme) {
        Expect_Document(
            scheme,
            [&](const QString& control, const std::function<void(QWidget&)>& use) { In_Form(scheme, control, use); },
            Expect_Relative_Applications);
    });
}

TEST_F(Document_By_Hand, Has_The_Applications_Of_Every_Location_In_Its_File)
{
    const std::string line = "<day month year app_rate app_depth frpex time>";
    const auto absolute = Read_Whole(Installation() / "hand_abs.psm"),
               relative = Read_Whole(Installation() / "hand_rel.psm");

    // The user-specific list of 26, two and one in 26 years, three in 23 years. The shared list of relative dates is
    // the first one.
    EXPECT_EQ(Count_Of(absolute, line), 26 + 2 * 26 + 26 + 3 * 23);
    EXPECT_EQ(Count_Of(relative, line), 2 * 26 + 2 * 26 + 26 + 3 * 23);
    EXPECT_EQ(Count_Of(absolute, "METABOLITE "), 8);
}

TEST_F(Document_By_Hand, Is_Run_By_The_Engine_With_Both_Kinds_Of_Dates)
{
    for (const std::string file : {"hand_abs", "hand_rel"}) {
        Run(file, "Hamburg (H)");
        const fs::path run = Installation() / "focus" / (file + ".run") / "Winter_-_cereals.run" / "Hamburg_-_(H).run";
        const auto echo = Read_Whole(run / "echo.orv");
        EXPECT_NE(echo.find("*** SIMULATION COMPLETED ***"), std::string::npos) << file;
        int substances = 0;
        for (const auto& entry : fs::directory_iterator(run))
            substances += entry.path().filename().string().starts_with("chem") ? 1 : 0;
        EXPECT_EQ(substances, 9) << file;
    }
}

TEST_F(Document_By_Hand, Keeps_Names_Of_Ten_Thousand_Characters)
{
    const QString active(10000, 'a'), metabolite(10000, 'm');
    In_Editor("hand_abs.psm", [&](QWidget& scheme) {
        In_Form(scheme, "Label_AS", [&](QWidget& form) {
            Type_All(form, {{"Text_AS", active}});
            Press(form, "Command_ok1");
        });
        In_Form(scheme, "Label_2_4", [&](QWidget& form) {
            Type_All(form, {{"metcom", metabolite}});
            Press(form, "Command_ok1");
        });
        Save(scheme, "Command1", "long.psm");
    });

    In_Editor("long.psm", [&](QWidget& scheme) {
        In_Form(scheme, "Label_AS", [&](QWidget& form) {
            Expect_All(form, {{"Text_AS", active}, {"Text_mol", "301.5"}});
        });
        In_Form(scheme, "Label_2_4", [&](QWidget& form) {
            Expect_All(form, {{"metcom", metabolite}, {"Text_mol", "158"}});
        });
    });
    fs::remove(Installation() / "long.psm");
}

} // namespace orvel
