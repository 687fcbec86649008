#include "ui/forms/text_output.h"

#include "core/files.h"
#include "pdf_text.h"
#include "temporary_directory.h"
#include "ui/forms/widgets.h"

#include <gtest/gtest.h>
#include <QApplication>
#include <QClipboard>
#include <QMessageBox>
#include <QPrinter>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace orvel {

TEST(Ask_In_Box, Shows_The_Message_And_Returns_The_Button_Pressed)
{
    QString title, text;
    QTimer::singleShot(0, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        title = box->windowTitle();
        text = box->text();
        QTest::mouseClick(box->button(QMessageBox::Yes), Qt::LeftButton);
    });

    const Button pressed = Ask_In_Box(
        {"Saving Input File", "Kremsm\xFCnster exists.\r\n", Icon::Question, {Button::Yes, Button::No}, Button::No});

    EXPECT_EQ(pressed, Button::Yes);
    EXPECT_EQ(text, "Kremsmünster exists.");
}

TEST(Ask_In_Box, Closed_Without_A_Button_Gives_The_Last_One)
{
    QTimer::singleShot(0, [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });

    EXPECT_EQ(Ask_In_Box({"Title", "Text", Icon::Question, {Button::Ok, Button::Cancel}, Button::Ok}), Button::Cancel);
}

TEST(Copy_Text, Puts_Tabs_And_Lines_On_The_Clipboard)
{
    Copy_Text("a\tb\nc\td\n");

    EXPECT_EQ(QApplication::clipboard()->text(), "a\tb\nc\td\n");
}

TEST(Print_Text_On, Keeps_What_Stands_Behind_A_Tab)
{
    Temporary_Directory place;

    const QString read = Text_Of_Pdf(Printed(place / "out.pdf", "Year\t (g/ha)\t\tPercolate\n1\t2.5\t\t300.25\n"));

    EXPECT_TRUE(read.simplified().startsWith("Year (g/ha) Percolate 1 2.5 300.25")) << read.toStdString();
}

TEST(Print_Text_On, Makes_Pages_Of_A_Long_Text)
{
    Temporary_Directory place;
    const auto file = place / "out.pdf";
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(QString::fromStdString(file.string()));

    Print_Text_On(printer, QString("A line of the table\n").repeated(200));

    const std::string pdf = Read_Whole(file);
    EXPECT_TRUE(pdf.starts_with("%PDF"));
    std::size_t pages = 0;
    for (auto at = pdf.find("/Type /Page\n"); at != std::string::npos; at = pdf.find("/Type /Page\n", at + 1))
        ++pages;
    EXPECT_GE(pages, 3U); // 200 lines of 10 points, some 60 a page
    EXPECT_LE(pages, 5U);
}

} // namespace orvel
