#include "ui/forms/text_output.h"

#include "core/files.h"
#include "pdf_text.h"
#include "temporary_directory.h"
#include "ui/forms/widgets.h"

#include <gtest/gtest.h>
#include <QApplication>
#include <QClipboard>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPrinter>
#include <QPushButton>
#include <QTest>
#include <QTextBlock>
#include <QTimer>

namespace orvel {

namespace {

// Head and row of the balances, the leachate table, the report and the soil table.
const std::vector<std::pair<QString, QString>> Tables = {
    {"\tYear  \tPrecipitation\tIrrigation\t  Runoff\tEvapotransp.\t Percolate\tDiff. Storage",
     "\t1       \t944.340  \t0.00E+00 \t0.00E+00 \t550.769  \t394.118  \t-0.5462000"},
    {"\t  Year  \tPesticide Flux\t   Percolate\tPesticide Conc.", "\t1       \t3.25E-15    \t394.118     \t0.000"},
    {" Location        \tSelected\tFlux\t    Percolate\tConc.",
     "Hamburg (H)      \t(5/11)\t9.2622000   \t297.544     \t3.101"},
    {"\t        TWA(d)\tPEC(mg/kg)\tBegin TWA(d)", "0           \t4.0000000   \t0 January 7"},
};

// Where the cells of a line begin, from the last one on.
std::vector<int> Cells_From_The_Back(QPlainTextEdit& text, int line)
{
    const auto block = text.document()->findBlockByNumber(line);
    std::vector<int> starts;
    for (qsizetype at = block.text().size() - 1; at >= 0; --at) {
        if (block.text()[at] != u'\t')
            continue;
        QTextCursor cursor(block);
        cursor.setPosition(block.position() + static_cast<int>(at) + 1);
        starts.push_back(text.cursorRect(cursor).left());
    }
    return starts;
}

} // namespace

TEST(Fixed_Pitch_Text, Heads_Stand_Over_Their_Figures)
{
    for (const auto& [head, row] : Tables) {
        SCOPED_TRACE(head.toStdString());
        const std::unique_ptr<QPlainTextEdit> text(Fixed_Pitch_Text("text", "A table"));
        text->setPlainText(head + "\n" + row);
        text->show();

        const auto heads = Cells_From_The_Back(*text, 0), figures = Cells_From_The_Back(*text, 1);
        const auto cells = std::min(heads.size(), figures.size());

        ASSERT_GE(cells, 2U);
        for (std::size_t i = 0; i < cells; ++i)
            EXPECT_EQ(heads[i], figures[i]) << i << " from the back";
    }
}

TEST(Print_Text_On, Heads_Stand_Over_Their_Figures_On_Paper_Too)
{
    const Temporary_Directory place;

    const auto lines = Text_Of_Pdf(Printed(place / "out.pdf", Tables[0].first + "\n" + Tables[0].second)).split('\n');

    ASSERT_GE(lines.size(), 2);
    for (const auto& [head, figure] : {std::pair{"Precipitation", "944.340"}, std::pair{"Diff. Storage", "-0.5462000"}})
        EXPECT_LE(std::abs(lines[0].indexOf(head) - lines[1].indexOf(figure)), 1) << head;
}

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
