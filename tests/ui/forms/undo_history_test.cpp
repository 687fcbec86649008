#include "ui/forms/undo_history.h"

#include "ui/forms/done_cancel.h"
#include "window_test.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QToolButton>

namespace orvel {

namespace {

// Two boxes and a button that doubles the first; the record is their texts.
class Undo_History_Test : public Window_Test {
protected:
    struct Texts {
        QString One, Other;
        bool operator==(const Texts&) const = default;
    };

    Undo_History_Test()
    {
        auto* rows = new QFormLayout(&Form);
        rows->addRow("&One:", One = Named(new QLineEdit("1"), "One"));
        rows->addRow("O&ther:", Other = Named(new QLineEdit("5"), "Other"));
        rows->addRow(
            Push_Button("Twice", "T&wice", &Form, [this] { One->setText(QString::number(2 * One->text().toInt())); }));
        rows->addRow(new QDialogButtonBox);
        Keep_History(
            Form,
            [this] {
                return Texts{One->text(), Other->text()};
            },
            [this](const Texts& texts) {
                One->setText(texts.One);
                Other->setText(texts.Other);
            });
        Form.show();
        Form.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&Form));
        One->setFocus();
    }

    void Type(QLineEdit* box, const QString& text)
    {
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, text);
        QTest::keyClick(box, Qt::Key_Tab);
        QTest::qWait(1);
    }
    void Undo() { QTest::keyClick(Form.focusWidget(), Qt::Key_Z, Qt::ControlModifier); }
    void Redo() { QTest::keyClick(Form.focusWidget(), Qt::Key_Y, Qt::ControlModifier); }
    QString Tip(const QString& button) { return Find<QToolButton>(Form, button)->toolTip(); }

    QDialog Form;
    QLineEdit *One = nullptr, *Other = nullptr;
};

} // namespace

TEST_F(Undo_History_Test, The_Buttons_Say_What_Is_Undone_And_Redone)
{
    EXPECT_FALSE(Find<QToolButton>(Form, "Undo")->isEnabled());
    Type(One, "3");
    Type(Other, "7");

    EXPECT_EQ(Tip("Undo"), "Undo: Other (Ctrl+Z)");
    Click<QToolButton>(Form, "Undo");
    EXPECT_EQ(Other->text(), "5");
    EXPECT_EQ(Tip("Undo"), "Undo: One (Ctrl+Z)");
    EXPECT_EQ(Tip("Redo"), "Redo: Other (Ctrl+Y)");
    Click<QToolButton>(Form, "Redo");
    EXPECT_EQ(Other->text(), "7");
    EXPECT_FALSE(Find<QToolButton>(Form, "Redo")->isEnabled());
}

TEST_F(Undo_History_Test, A_Box_Takes_Back_Its_Own_Typing_First)
{
    Type(One, "3");
    Other->setFocus();
    Other->selectAll();
    QTest::keyClicks(Other, "78");

    Undo();
    EXPECT_EQ(Other->text(), "5");
    EXPECT_EQ(One->text(), "3");
    Undo();
    EXPECT_EQ(One->text(), "1");
    Redo();
    EXPECT_EQ(One->text(), "3");
}

TEST_F(Undo_History_Test, The_Buttons_Too_Take_Back_The_Typing_In_A_Box_First)
{
    Type(One, "3");
    Other->setFocus();
    Other->selectAll();
    QTest::keyClicks(Other, "78");

    Click<QToolButton>(Form, "Undo");
    EXPECT_EQ(One->text() + " " + Other->text(), "3 5");
    Click<QToolButton>(Form, "Undo");
    EXPECT_EQ(One->text() + " " + Other->text(), "1 5");
    Click<QToolButton>(Form, "Redo");
    Click<QToolButton>(Form, "Redo");
    EXPECT_EQ(One->text() + " " + Other->text(), "3 78");
}

TEST_F(Undo_History_Test, What_A_Button_Did_Is_A_Change_Of_Its_Own_After_A_Box_That_Was_Left_For_It)
{
    One->selectAll();
    QTest::keyClicks(One, "4");
    Click<QPushButton>(Form, "Twice");
    QTest::qWait(1);
    EXPECT_EQ(One->text(), "8");

    Undo();
    EXPECT_EQ(One->text(), "4");
    Undo();
    EXPECT_EQ(One->text(), "1");
}

TEST_F(Undo_History_Test, Keeps_Fifty_Changes_And_Forgets_What_Was_Undone_With_The_Next_One)
{
    for (int number = 100; number < 160; ++number)
        Type(One, QString::number(number));
    for (int step = 0; step < 60; ++step)
        Undo();
    EXPECT_EQ(One->text(), "109");

    Type(One, "3");
    Redo();
    EXPECT_EQ(One->text(), "3");
    EXPECT_FALSE(Find<QToolButton>(Form, "Redo")->isEnabled());
}

} // namespace orvel
