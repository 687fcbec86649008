// The applications in the form of the active substance.
#include "substance/application_year.h"
#include "substance/forms/form_as.h"
#include "substance/pesticide_editor.h"
#include "ui/forms/number_grid.h"
#include "ui/forms/widgets.h"
#include "window_test.h"

#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>

namespace orvel {

namespace {

class Application_Box_Test : public Window_Test {
protected:
    Application_Box_Test()
    {
        Reset_PSM(Document);
        Document.App_Mode = 0;
        Document.Molmass[1] = 300;
        Document.App_Location[1] = "Hamburg (H)";
        Document.App_Location[2] = "Piacenza (P)";
    }

    void Open()
    {
        Open_Active_Substance(The_Session);
        Form = std::make_unique<Form_AS>(The_Session);
        Form->show();
        QApplication::setActiveWindow(Form.get());
    }

    QString Text(const QString& name) { return Find<QLineEdit>(*Form, name)->text(); }
    QString Item(const QString& name) { return Find<QComboBox>(*Form, name)->currentText(); }
    QString Label(const QString& name) { return Find<QLabel>(*Form, name)->text(); }
    QStringList Items(const QString& name)
    {
        QStringList items;
        for (int row = 0; row < Find<QComboBox>(*Form, name)->count(); ++row)
            items << Find<QComboBox>(*Form, name)->itemText(row);
        return items;
    }
    bool Visible(const QString& name) { return Find<QWidget>(*Form, name)->isVisible(); }
    bool Enabled(const QString& name) { return Find<QWidget>(*Form, name)->isEnabled(); }
    QString Focused() { return Form->focusWidget() ? Form->focusWidget()->objectName() : QString(); }
    void Press(const QString& name) { Click<QAbstractButton>(*Form, name); }
    void Done() { Press("Command_ok1"); }
    int Count(int location) const
    {
        return static_cast<int>(Document.App_Count[static_cast<std::size_t>(location)].Number());
    }
    const Application& At(int location, int a) const
    {
        return Document.Applications[static_cast<std::size_t>(location)][static_cast<std::size_t>(a)];
    }

    Pesticide_Document& Document = The_Session.Pesticide;
    std::unique_ptr<Form_AS> Form;
};

TEST_F(Application_Box_Test, Opens_At_The_First_Location_With_The_Pattern_Found_In_Its_List)
{
    Document.Applications[1][1].App_Rate = 0.5; // unlike the other years
    Open();

    EXPECT_EQ(Items("Standort"), (QStringList{" User specific", "Hamburg (H)", "Piacenza (P)"}));
    EXPECT_EQ(Item("Standort"), "Hamburg (H)");
    EXPECT_EQ(Item("Applikationsverfahren"), "absolute applications dates");
    EXPECT_EQ(Item("App_Modus"), "Irregular");
    EXPECT_EQ(Text("Text_naps"), "26");
    EXPECT_TRUE(Visible("Hinweis"));
    EXPECT_EQ(Label("Hinweis"), "As long as the selected \napplication mode is irregular, \nyou have to enter the "
                                "\napplication data manually!");
    for (const char* name : {"Rate", "App_Tag", "App_Monat", "Tiefe", "mehr_Applikationen_im_Jahr", "previous_next",
                             "Applikationen_pro_Jahr"})
        EXPECT_FALSE(Visible(name)) << name;
}

TEST_F(Application_Box_Test, Soil_Zones_Take_The_Place_Of_The_Leaching_Locations)
{
    Document.App_Location[1] = "Total content - North (T_N)";
    Document.App_Location[2] = "Total content - South (T_S)";
    Open();

    EXPECT_FALSE(Visible("Standort"));
    EXPECT_EQ(Item("Standort_EFSA"), "Total content - North (T_N)");
}

TEST_F(Application_Box_Test, A_Regular_List_Shows_Its_First_Application_And_What_A_Year_Holds)
{
    Open();

    EXPECT_EQ(Item("App_Modus"), "Every Year");
    EXPECT_FALSE(Enabled("Text_naps"));
    EXPECT_FALSE(Visible("Hinweis"));
    EXPECT_EQ(Label("label_Anzahl_Applikationen_im_Jahr"), "1");
    EXPECT_EQ(Label("Applikationen_pro_Jahr"), "1 application  every year");
    EXPECT_EQ(Label("Label_Tag"), "1st application day:");
    EXPECT_EQ(Label("Label_Monat"), "1st application month:");
    EXPECT_EQ(Item("App_Tag"), "1");
    EXPECT_EQ(Item("App_Monat"), "January");
    EXPECT_EQ(Items("App_Tag").size(), 31);
    EXPECT_EQ(Items("App_Monat").size(), 12);
}

TEST_F(Application_Box_Test, A_Pattern_Chosen_For_An_Empty_List_Begins_With_One_Application_On_The_First_Of_January)
{
    Document.App_Count[1] = 0;
    Document.Applications[1][1].App_Rate = 7;
    Open();

    Pick(*Form, "App_Modus", "Every other Year");

    EXPECT_EQ(Count(1), 23);
    EXPECT_EQ(Text("Text_naps"), "23");
    EXPECT_EQ(Item("App_Tag"), "1");
    EXPECT_EQ(Item("App_Monat"), "January");
    EXPECT_EQ(Text("Rate"), "0");
    EXPECT_EQ(At(1, 23).App_Year, 45);
}

TEST_F(Application_Box_Test, What_Is_Edited_Goes_To_The_Application_Shown_In_All_Years)
{
    Open();
    Press("mehr_Applikationen_im_Jahr");
    EXPECT_EQ(Count(1), 52);
    EXPECT_EQ(Label("label_Anzahl_Applikationen_im_Jahr"), "2");
    Press("naechste_Applikation_im_Jahr");
    EXPECT_EQ(Label("Label_Tag"), "2nd application day:");
    EXPECT_EQ(Item("App_Tag"), "2"); // a day behind the first

    Pick(*Form, "App_Tag", "15");
    Pick(*Form, "App_Monat", "May");
    Retype(*Form, "Rate", "0.75");
    Retype(*Form, "Tiefe", "2");

    for (int a = 2; a <= 52; a += 2) {
        EXPECT_EQ(At(1, a).App_Day, 15) << a;
        EXPECT_EQ(At(1, a).App_Month, 5) << a;
        EXPECT_EQ(At(1, a).App_Rate, 0.75) << a;
        EXPECT_EQ(At(1, a).App_Depth, 2) << a;
        EXPECT_EQ(At(1, a - 1).App_Rate, 0) << a;
    }
    Press("vorhergehende_Applikation_im_Jahr");
    EXPECT_EQ(Text("Rate"), "0");
    Press("naechste_Applikation_im_Jahr");
    EXPECT_EQ(Text("Rate"), "0.75");
    EXPECT_EQ(Item("App_Monat"), "May");
    EXPECT_EQ(Count(2), 26); // the other location has its own list
}

// "Done" looks at what is shown: an amount of the application before could not be refused any more.
TEST_F(Application_Box_Test, An_Amount_Too_Large_For_A_Number_Is_Refused_Before_Another_Application_Shows)
{
    Open();
    Press("mehr_Applikationen_im_Jahr");
    for (const char* number : {"1e308", "-1e999"}) {
        Retype(*Form, "Rate", number);
        The_User.Messages.clear();

        Press("naechste_Applikation_im_Jahr");

        ASSERT_EQ(The_User.Messages.size(), 1U);
        EXPECT_EQ(The_User.Messages[0].Text, "\"" + std::string(number) + "\" is too large a number.");
        EXPECT_EQ(Label("Label_Tag"), "1st application day:");
        EXPECT_EQ(Form->focusWidget()->objectName(), "Rate");
    }
    EXPECT_THROW(Pick(*Form, "Standort", "Piacenza (P)"), std::runtime_error); // the list goes back
    EXPECT_EQ(The_User.Messages.size(), 2U);
    EXPECT_EQ(Item("Standort"), "Hamburg (H)");

    Retype(*Form, "Rate", "2");
    Press("naechste_Applikation_im_Jahr");
    EXPECT_EQ(Label("Label_Tag"), "2nd application day:");
    EXPECT_EQ(The_User.Messages.size(), 2U);
}

TEST_F(Application_Box_Test, An_Interception_Is_Stored_For_The_Manual_Kind)
{
    Open();
    Choose_Option(*Form, "App_Flag4");
    Retype(*Form, "Interception", "40");

    EXPECT_EQ(At(1, 1).App_Frpex, 40);
    EXPECT_EQ(At(1, 26).App_Frpex, 40);
}

TEST_F(Application_Box_Test, Plus_Stops_At_Twenty_And_Minus_At_One_Without_A_Word)
{
    Open();
    for (int i = 0; i < 25; ++i)
        Press("mehr_Applikationen_im_Jahr");
    EXPECT_EQ(Label("label_Anzahl_Applikationen_im_Jahr"), "20");
    EXPECT_EQ(Count(1), 520);
    EXPECT_EQ(Label("Applikationen_pro_Jahr"), "20 applications every year");

    for (int i = 0; i < 25; ++i)
        Press("weniger_Applikationen_im_Jahr");
    EXPECT_EQ(Label("label_Anzahl_Applikationen_im_Jahr"), "1");
    EXPECT_EQ(Count(1), 26);
    EXPECT_TRUE(The_User.Messages.empty());
}

TEST_F(Application_Box_Test, Irregular_Stays_Chosen_For_A_Regular_List_Until_Another_Location_Shows)
{
    Open();
    Pick(*Form, "App_Modus", "Irregular");
    EXPECT_TRUE(Visible("Hinweis"));
    EXPECT_TRUE(Enabled("Text_naps"));
    Choose_Option(*Form, "App_Flag2");
    EXPECT_EQ(Item("App_Modus"), "Irregular");

    Pick(*Form, "Standort", "Piacenza (P)");
    EXPECT_EQ(Item("App_Modus"), "Every Year");
    EXPECT_FALSE(Visible("Hinweis"));
}

TEST_F(Application_Box_Test, The_Manual_Way_Needs_A_Number_Of_Applications)
{
    Open();
    Pick(*Form, "App_Modus", "Irregular");
    Retype(*Form, "Text_naps", "0");

    Press("S_Anwendung");

    EXPECT_EQ(The_User.Messages, std::vector{(Message{"data check", "First insert number of applications"})});
    EXPECT_EQ(Count(1), 26); // only a number above 0 becomes the count
}

TEST_F(Application_Box_Test, Applications_Entered_Manually_Are_Those_Of_The_Location_And_Their_Pattern_Shows)
{
    Open();
    Pick(*Form, "App_Modus", "Irregular");
    Retype(*Form, "Text_naps", "2");

    In_Modal([](QWidget& form) {
        auto* grid = Find<Number_Grid>(form, "AppGrid");
        const auto type = [grid](int row, int column, const QString& text) {
            grid->Go_To(row, column);
            QTest::keyClick(grid, Qt::Key_Delete);
            QTest::keyClicks(grid, text);
        };
        for (int row = 0; row < 2; ++row) {
            type(row, 1, "20");
            type(row, 2, "4");
            type(row, 3, QString::number(row + 1));
            type(row, 5, "0.5");
        }
        Click<QPushButton>(form, "CommandOK");
    });
    Press("S_Anwendung");

    EXPECT_EQ(Count(1), 2);
    EXPECT_EQ(At(1, 2).App_Day, 20);
    EXPECT_EQ(At(1, 2).App_Month, 4);
    EXPECT_EQ(At(1, 2).App_Year, 2);
    EXPECT_EQ(At(1, 2).App_Rate, 0.5);
    EXPECT_EQ(Item("App_Modus"), "Irregular");
    EXPECT_EQ(Text("Text_naps"), "2");
}

TEST_F(Application_Box_Test, A_Number_Of_Applications_Beyond_The_Slots_Is_Refused)
{
    Open();
    Pick(*Form, "App_Modus", "Irregular");
    Retype(*Form, "Text_naps", "522");

    EXPECT_EQ(The_User.Messages, std::vector{(Message{"Data check", "More than 521 applications are not possible"})});
    EXPECT_EQ(Focused(), "Text_naps");
    Retype(*Form, "Text_naps", "30");
    EXPECT_EQ(Count(1), 30);
}

TEST_F(Application_Box_Test, The_Return_Key_In_A_Number_That_Is_Refused_Tells_It_Once)
{
    Open();
    Pick(*Form, "App_Modus", "Irregular");
    auto* field = Find<QLineEdit>(*Form, "Text_naps");
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, "522");

    QTest::keyClick(field, Qt::Key_Return);

    EXPECT_EQ(The_User.Messages.size(), 1U);
    EXPECT_TRUE(Form->isVisible());
}

TEST_F(Application_Box_Test, Another_Location_Shows_Its_Own_First_Application)
{
    Document.Applications[2][1].App_Day = 9;
    for (std::size_t a = 1; a <= 26; ++a)
        Document.Applications[2][a].App_Day = 9;
    Open();
    Press("mehr_Applikationen_im_Jahr");
    Press("naechste_Applikation_im_Jahr");

    Pick(*Form, "Standort", "Piacenza (P)");

    EXPECT_EQ(Label("Label_Tag"), "1st application day:");
    EXPECT_EQ(Item("App_Tag"), "9");
    EXPECT_EQ(Label("label_Anzahl_Applikationen_im_Jahr"), "1");
}

TEST_F(Application_Box_Test, An_Error_Of_The_Sequence_Shows_The_Location_And_Tells_The_Earlier_Date)
{
    Open();
    Pick(*Form, "Standort", "Piacenza (P)");
    Press("mehr_Applikationen_im_Jahr");
    Pick(*Form, "App_Tag", "20");
    Pick(*Form, "App_Monat", "March");
    Pick(*Form, "Standort", "Hamburg (H)");

    Done();

    // In the first year the application of 20 March stands before that of 2 January.
    EXPECT_EQ(The_User.Messages,
              std::vector{(Message{"Data check", "Error in application sequence (20.3.01, location: Piacenza (P))"})});
    EXPECT_TRUE(Form->isVisible());
    EXPECT_EQ(Item("Standort"), "Piacenza (P)");
    EXPECT_EQ(Focused(), "App_Tag");
}

TEST_F(Application_Box_Test, A_Month_Behind_December_Reaches_The_Check_Of_The_Sequence)
{
    Open();
    Pick(*Form, "App_Tag", "28");
    Pick(*Form, "App_Monat", "December");
    Press("mehr_Applikationen_im_Jahr");
    EXPECT_EQ(At(1, 2).App_Month, 13);

    Done();

    // Day 1 of month 13 counts as day 1 of the year.
    EXPECT_EQ(The_User.Messages,
              std::vector{(Message{"Data check", "Error in application sequence (28.12.01, location: Hamburg (H))"})});
}

TEST_F(Application_Box_Test, A_Year_Above_89_Is_An_Error_Of_The_Sequence_And_Leads_To_The_Grid)
{
    for (int a = 1; a <= 3; ++a)
        Document.Applications[1][static_cast<std::size_t>(a)].App_Year = static_cast<std::int16_t>(87 + a);
    Document.App_Count[1] = 3;
    Open();

    Done();

    EXPECT_EQ(The_User.Messages,
              std::vector{(Message{"Data check", "Error in application sequence (1.1.89, location: Hamburg (H))"})});
    EXPECT_TRUE(Form->isVisible());
    EXPECT_EQ(Focused(), "S_Anwendung"); // the day is hidden in an irregular list
}

TEST_F(Application_Box_Test, Relative_Dates_Hold_For_All_Locations_And_Keep_The_Pattern)
{
    Open();
    Press("mehr_Applikationen_im_Jahr");

    Pick(*Form, "Applikationsverfahren", "relative applications dates");

    EXPECT_EQ(Document.App_Mode, 9);
    EXPECT_FALSE(Visible("absolute_Applikationen"));
    EXPECT_TRUE(Visible("relative_Applikationen"));
    EXPECT_FALSE(Visible("S_Anwendung"));
    EXPECT_FALSE(Enabled("Standort"));
    EXPECT_EQ(Item("App_Modus"), "Every Year");
    EXPECT_EQ(Label("label_Tag_rel"), "1st application:");
    EXPECT_EQ(Items("Bezugspunkt"),
              (QStringList{"1st emergence in the year", "1st maturation in the year", "1st harvest in the year",
                           "2nd emergence in the year", "2nd maturation in the year", "2nd harvest in the year"}));
}

TEST_F(Application_Box_Test, Relative_Days_Rise_Within_The_Year_And_The_Reference_Point_Is_That_Of_One_Application)
{
    Open();
    Pick(*Form, "Applikationsverfahren", "relative applications dates");
    EXPECT_EQ(Items("Tage").first(), "-365");
    EXPECT_EQ(Items("Tage").last(), "365");
    EXPECT_TRUE(Enabled("Bezugspunkt"));
    Pick(*Form, "Bezugspunkt", "1st harvest in the year");
    Pick(*Form, "Tage", "-10");
    Retype(*Form, "relative_Rate", "0.5");
    Retype(*Form, "relative_Tiefe", "3");

    Press("mehr_Applikationen_im_Jahr");
    EXPECT_FALSE(Enabled("Bezugspunkt"));
    Press("naechste_Applikation_im_Jahr");
    EXPECT_EQ(Label("label_Tag_rel"), "2nd application:");
    EXPECT_EQ(Item("Tage"), "-9");
    EXPECT_EQ(Items("Tage").first(), "-9");
    EXPECT_EQ(Text("relative_Rate"), "0.5");

    Press("vorhergehende_Applikation_im_Jahr");
    Pick(*Form, "Tage", "20"); // pushes the second one up
    Press("naechste_Applikation_im_Jahr");
    EXPECT_EQ(Item("Tage"), "21");
    for (std::size_t a = 1; a <= 52; a += 2) {
        EXPECT_EQ(Document.Relative[a].Abs9_Day, 20) << a;
        EXPECT_EQ(Document.Relative[a + 1].Abs9_Day, 21) << a;
        EXPECT_EQ(Document.Relative[a].Abs9_Month, 2) << a;
        EXPECT_EQ(Document.Relative[a].Abs9_Depth, 3) << a;
        EXPECT_EQ(Document.Relative[a].Abs9_Year, static_cast<int>((a + 1) / 2)) << a;
    }
}

TEST_F(Application_Box_Test, An_Error_Of_The_Relative_Sequence_Tells_The_Number_And_Goes_To_The_Days)
{
    Document.App_Mode = App_Mode_Relative;
    Document.App_Count[0] = 2;
    Document.Relative[1] = {.Abs9_Day = 5, .Abs9_Year = 1};
    Document.Relative[2] = {.Abs9_Day = 5, .Abs9_Year = 1};
    Open();

    Done();

    EXPECT_EQ(The_User.Messages,
              std::vector{(Message{"Data check", "Error in application sequence (application no. 2)"})});
    EXPECT_EQ(Focused(), "Tage");
    EXPECT_TRUE(Form->isVisible());
}

TEST_F(Application_Box_Test, Locations_That_Are_Chosen_Join_The_List_And_Others_Leave_It_With_Their_Applications)
{
    Document.App_Location[3] = "Sevilla (S)";
    Document.Applications[3][1].App_Rate = 7;
    Open();

    In_Modal([](QWidget& form) {
        EXPECT_EQ(form.windowTitle(), "Select a suitable location");
        Choose(form, "Location", "Piacenza (P)");
        Choose(form, "Location", "Thiva (T)");
        Click<QPushButton>(form, "OK");
    });
    Press("neue_Standort");

    EXPECT_EQ(Items("Standort"), (QStringList{" User specific", "Hamburg (H)", "Sevilla (S)", "Thiva (T)"}));
    EXPECT_EQ(Item("Standort"), "Thiva (T)"); // the last item
    EXPECT_EQ(At(2, 1).App_Rate, 7);
    Done();
    EXPECT_EQ(Document.App_Location[2], "Sevilla (S)");
    EXPECT_EQ(Document.App_Location[3], "Thiva (T)");
    EXPECT_EQ(Document.App_Location[4], "");
    EXPECT_EQ(Document.App_Loc_Count, 4);
}

TEST_F(Application_Box_Test, Cancel_In_The_Choice_Of_Locations_Changes_Nothing)
{
    Open();
    In_Modal([](QWidget& form) {
        Click<QPushButton>(form, "Command2");
        Click<QPushButton>(form, "Abbrechen");
    });
    Press("neue_Standort");

    EXPECT_EQ(Items("Standort").size(), 3);
    EXPECT_EQ(Item("Standort"), "Hamburg (H)");
}

TEST_F(Application_Box_Test, A_Location_For_Which_The_Document_Has_No_Room_Is_Told)
{
    Document.App_Location[1] = "Elsewhere";
    Document.App_Location[2] = "";
    Open();

    In_Modal([](QWidget& form) {
        Click<QPushButton>(form, "Command2");
        Click<QPushButton>(form, "OK");
    });
    Press("neue_Standort");

    EXPECT_EQ(The_User.Messages,
              std::vector{(Message{"Data check", "No more than 9 locations are possible. Not added:\r\nThiva (T)"})});
    EXPECT_EQ(Items("Standort").size(), 10);
}

TEST_F(Application_Box_Test, Soil_Zones_Are_Chosen_By_A_Crop_And_Become_The_List_That_Shows)
{
    Document.App_Location[1] = Document.App_Location[2] = "";
    Open();

    In_Modal([](QWidget& form) {
        Choose(form, "Crop", "Tobacco");
        Choose(form, "Location", "Porewater concentration - South (P_S)");
        Click<QPushButton>(form, "OK");
    });
    Press("Command5");

    EXPECT_FALSE(Visible("Standort"));
    EXPECT_EQ(Items("Standort_EFSA"), (QStringList{" User specific", "Porewater concentration - South (P_S)"}));
    EXPECT_EQ(Item("Standort_EFSA"), "Porewater concentration - South (P_S)");
    Done();
    EXPECT_EQ(Document.App_Location[1], "Porewater concentration - South (P_S)");
}

} // namespace

} // namespace orvel
