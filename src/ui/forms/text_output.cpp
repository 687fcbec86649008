#include "ui/forms/text_output.h"

#include "ui/forms/printing.h"
#include "ui/forms/widgets.h"

#include <algorithm>
#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QClipboard>
#include <QFontMetricsF>
#include <QPlainTextEdit>
#include <QPrinter>
#include <QTextDocument>
#include <QTextOption>

namespace orvel {

namespace {

// The tables begin behind a tab, and their widest heading needs more than eight columns: so heads stand over their
// figures.
constexpr int First_Tab = 8, Tab_Columns = 16;
constexpr int Tab_Stops = 20; // laid down one by one
constexpr double Largest_Point_Size = 10;
constexpr double Print_Margin = 2 / 2.54 * 72; // points; a text document prints with 2 cm on each side

// The column to which a tab leads from a column, from 0.
qsizetype Next_Stop(qsizetype column)
{
    return column < First_Tab ? First_Tab : First_Tab + ((column - First_Tab) / Tab_Columns + 1) * Tab_Columns;
}

void Set_Tab_Stops(QPlainTextEdit& text)
{
    const double column = QFontMetricsF(text.font()).horizontalAdvance(u'0');
    QTextOption option = text.document()->defaultTextOption();
    QList<QTextOption::Tab> stops;
    for (qsizetype stop = First_Tab; stops.size() < Tab_Stops; stop = Next_Stop(stop))
        stops << QTextOption::Tab(static_cast<double>(stop) * column, QTextOption::LeftTab);
    option.setTabs(stops);
    text.document()->setDefaultTextOption(option);
    text.setTabStopDistance(column * Tab_Columns);
}

// Blanks up to the next stop in place of each tab: in a fixed pitch the columns stay, whatever a printer's unit is.
QString Without_Tabs(const QString& text)
{
    QString plain;
    qsizetype line = 0; // where it begins
    for (const QChar c : text) {
        if (c == u'\t')
            plain.append(QString(Next_Stop(plain.size() - line) - (plain.size() - line), u' '));
        else
            plain.append(c);
        if (c == u'\n')
            line = plain.size();
    }
    return plain;
}

int Longest_Line(const QString& text)
{
    qsizetype longest = 1;
    for (const auto& line : QStringView(text).split(u'\n'))
        longest = std::max(longest, line.size());
    return static_cast<int>(longest);
}

} // namespace

QPlainTextEdit* Fixed_Pitch_Text(const QString& name, const QString& purpose)
{
    auto* text = Named(new QPlainTextEdit, name);
    text->setAccessibleName(purpose);
    text->setReadOnly(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text->setLineWrapMode(QPlainTextEdit::NoWrap);
    text->setFont(Fixed_Pitch_Font());
    Set_Tab_Stops(*text);
    return text;
}

void Copy_Text(const QString& text)
{
    QApplication::clipboard()->setText(text);
}

void Print_Text_On(QPrinter& printer, const QString& text)
{
    const QString plain = Without_Tabs(text);
    QTextDocument document;
    document.setDocumentMargin(0);
    const QRectF page = printer.pageRect(QPrinter::Point);
    QFont font = Fixed_Pitch_Font();
    font.setPointSizeF(Largest_Point_Size);
    // A fixed-pitch character is about 0.6 of its point size wide, or slightly more.
    const double fitting = (page.width() - 2 * Print_Margin) / (Longest_Line(plain) * 0.61);
    font.setPointSizeF(std::min(Largest_Point_Size, fitting));
    document.setDefaultFont(font);
    document.documentLayout()->setPaintDevice(&printer);
    QTextOption option = document.defaultTextOption();
    option.setWrapMode(QTextOption::NoWrap);
    document.setDefaultTextOption(option);
    document.setPlainText(plain);
    document.print(&printer);
}

void Print_Text(QWidget& parent, const Ask_Function& ask, const QString& title, const QString& text)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(title);
    Print_By_Dialog(parent, ask, printer, [&](QPrinter& chosen) { Print_Text_On(chosen, text); });
}

void Print_Page_On(QPrinter& printer, const QString& html)
{
    constexpr double Least_Point_Size = 4;
    QTextDocument document;
    document.documentLayout()->setPaintDevice(&printer);
    QTextOption whole_words = document.defaultTextOption();
    whole_words.setWrapMode(QTextOption::WordWrap);
    document.setDefaultTextOption(whole_words);
    QFont font = document.defaultFont();
    font.setPointSizeF(Largest_Point_Size);
    constexpr double Margin_Inches = 2 / 2.54; // that printing a document leaves at each side
    const double width = printer.pageRect(QPrinter::DevicePixel).width() - 2 * Margin_Inches * printer.resolution();
    do { // a table is as wide as its longest words at least
        document.setDefaultFont(font);
        document.setHtml(html);
        document.setTextWidth(width);
        font.setPointSizeF(font.pointSizeF() - 0.5);
    } while (document.size().width() > width && font.pointSizeF() > Least_Point_Size);
    document.print(&printer);
}

void Print_Page(QWidget& parent, const Ask_Function& ask, const QString& title, const QString& html)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(title);
    printer.setPageOrientation(QPageLayout::Landscape);
    Print_By_Dialog(parent, ask, printer, [&](QPrinter& chosen) { Print_Page_On(chosen, html); });
}

} // namespace orvel
