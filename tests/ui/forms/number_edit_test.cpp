#include "ui/forms/number_edit.h"

#include "window_test.h"

#include <QClipboard>
#include <QToolTip>

namespace orvel {

namespace {

struct Number_Edit_Test : testing::Test {
    void Type(const QString& text)
    {
        Field.selectAll();
        QTest::keyClicks(&Field, text);
        QCoreApplication::processEvents();
    }

    Number_Edit Field{"L/kg"};
};

TEST_F(Number_Edit_Test, Says_Nothing_While_A_Number_Is_Read_As_It_Looks)
{
    Type("1.5");
    EXPECT_EQ(Field.Hint(), "");
    EXPECT_EQ(Field.Value(), Variant("1.5"));
}

TEST_F(Number_Edit_Test, Fields_With_And_Without_A_Unit_Are_Equally_Wide)
{
    EXPECT_EQ(Number_Edit().maximumWidth(), Field.maximumWidth());
}

TEST_F(Number_Edit_Test, A_Comma_Is_A_Point_Typed_Or_Pasted)
{
    Type("1,5");
    EXPECT_EQ(Field.text(), "1.5");
    EXPECT_EQ(Field.Value().Number(), 1.5);

    QApplication::clipboard()->setText("0,25");
    Field.selectAll();
    Field.paste();
    EXPECT_EQ(Field.text(), "0.25");
    EXPECT_EQ(Field.Hint(), "");
}

TEST_F(Number_Edit_Test, Tells_At_Once_That_A_Number_Ends_Before_Its_Text)
{
    Type("1.5.2");
    EXPECT_EQ(Field.Hint(), "\"1.5.2\" is read as 1.5.");
    EXPECT_EQ(Field.toolTip(), Field.Hint());
}

TEST_F(Number_Edit_Test, Tells_At_Once_That_Letters_Are_Zero)
{
    Type("abc");
    EXPECT_EQ(Field.Hint(), "\"abc\" is read as 0.");
    EXPECT_EQ(Field.Value().Number(), 0);
}

TEST_F(Number_Edit_Test, Tells_Of_An_Empty_Field_Only_When_It_Was_Emptied_By_Hand)
{
    EXPECT_EQ(Field.Hint(), "");
    Type("7");
    Field.selectAll();
    QTest::keyClick(&Field, Qt::Key_Delete);
    EXPECT_EQ(Field.Hint(), "An empty field is read as 0.");
}

TEST_F(Number_Edit_Test, Keeps_The_Text_Clear_Of_Unit_And_Sign)
{
    const int with_unit = Field.textMargins().right();
    Type("x");
    const int with_sign = Field.textMargins().right();
    Field.Set_Unit("");
    EXPECT_GT(with_unit, 0);
    EXPECT_GT(with_sign, with_unit);
    EXPECT_EQ(Field.textMargins().right(), with_sign - with_unit);
}

TEST_F(Number_Edit_Test, Shows_A_Value_Without_The_Blanks_Of_A_Printed_Number)
{
    Field.Show_Value(Variant(0.25));
    EXPECT_EQ(Field.text(), "0.25");
    Field.Show_Value(Variant("1e-3"));
    EXPECT_EQ(Field.text(), "1e-3");
}

TEST(Byte_Edit_Test, Leaves_Out_What_The_Code_Page_Lacks_And_Says_So)
{
    Byte_Edit field;
    field.insert(QString::fromUtf8("aΩü\U0001F600b"));
    QCoreApplication::processEvents();

    EXPECT_EQ(field.text(), QString::fromUtf8("aüb"));
    EXPECT_EQ(field.Typed(), "a\xFC"
                             "b");
    EXPECT_EQ(field.Hint(), QString::fromUtf8("The file cannot hold \"Ω\U0001F600\": left out."));

    QTest::keyClicks(&field, "c");
    EXPECT_EQ(field.Hint(), "");
}

TEST(Byte_Edit_Test, A_Pasted_Line_Break_Is_A_Blank)
{
    Byte_Edit field;
    QApplication::clipboard()->setText("Maize\r\nHamburg\n");
    field.paste();
    EXPECT_EQ(field.Typed(), "Maize  Hamburg ");
}

TEST(Byte_Edit_Test, Keeps_A_Text_Of_Ten_Thousand_Characters)
{
    Byte_Edit field;
    field.insert(QString(10000, 'x'));
    EXPECT_EQ(field.Typed().size(), 10000U);
}

} // namespace

} // namespace orvel
