// The report as a PDF document.
#include "charts/painting/chart_painter.h"
#include "charts/painting/pdf_fonts.h"
#include "core/code_page.h"
#include "report/overview_formats.h"
#include "report/painting/page_device.h"
#include "report/painting/report_files.h"
#include "report/report_sections.h"

#include <numeric>
#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QGuiApplication>
#include <QPainter>
#include <QPdfWriter>
#include <QScreen>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextObjectInterface>
#include <QTextTable>

namespace orvel {

namespace {

constexpr int Resolution = 300;
constexpr double Margin_Millimetres = 18, Points_Per_Inch = 72, Millimetres_Per_Inch = 25.4;
constexpr double Text_Points = 9.5, Table_Points = 8, Wide_Table_Points = 6.5, Digest_Points = 6.5, Foot_Points = 8;
constexpr std::array<double, 4> Heading_Points = {0, 18, 14, 11.5};
constexpr double Least_Diagram_Share = 0.2;       // to stay on the page of its table
constexpr double Diagram_Height_Share = 0.5;      // of its width
constexpr double Cell_Padding = 2, Border = 0.75; // points
constexpr double Diagram_Scale = 0.75;            // of its letters
constexpr double Least_Behind_Heading = 0.15;     // of a page
constexpr int Diagram_Object = QTextFormat::UserObject + 1;
constexpr int Height_Property = QTextFormat::UserProperty + 2;
constexpr int Diagram_Property = QTextFormat::UserProperty + 1;
const QColor Above_Colour(0x8C, 0x1D, 0x18), Head_Ground(0xEE, 0xF0, 0xF2), Rule_Colour(0xC4, 0xC8, 0xCE);

QString Text(std::string_view bytes)
{
    return QString::fromStdString(To_Utf8(bytes));
}

double Pixels(double points)
{
    return points * Resolution / Points_Per_Inch;
}

// Margins and borders of a text document count in dots of the screen, whatever it is painted on.
double Dots(double points)
{
    return points * QGuiApplication::primaryScreen()->logicalDotsPerInchY() / Points_Per_Inch;
}

// Lets a diagram stand in the text like a letter, drawn by lines and not by dots.
class Diagram_In_Text : public QObject, public QTextObjectInterface {
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

public:
    explicit Diagram_In_Text(double width) : Width(width) {}

    QSizeF intrinsicSize(QTextDocument* /*document*/, int /*position*/, const QTextFormat& format) override
    {
        return {Width, format.doubleProperty(Height_Property)};
    }

    void drawObject(QPainter* painter, const QRectF& rect, QTextDocument* document, int /*position*/,
                    const QTextFormat& format) override
    {
        const auto* chart = static_cast<const Chart*>(format.property(Diagram_Property).value<void*>());
        const QPointF place = painter->transform().map(rect.topLeft());
        Page->save();
        Page->setFont(document->defaultFont());
        Page->translate(place);
        Page->scale(Diagram_Scale, Diagram_Scale);
        Paint_Chart(*Page, QRectF(QPointF(0, 0), rect.size() / Diagram_Scale), *chart, Paper_Palette());
        Page->restore();
    }

    // Of the paper itself: diagrams have transformations of their own.
    void Paint_On(QPainter& page) { Page = &page; }

private:
    double Width;
    QPainter* Page = nullptr;
};

// Sets the report as one text document.
class Typesetting {
public:
    Typesetting(QTextDocument& document, Diagram_In_Text& diagrams, double width)
        : Document(document),
          Cursor(&document),
          Width(width)
    {
        Document.documentLayout()->registerHandler(Diagram_Object, &diagrams);
    }

    // In one step, since every single change would lay all pages out anew.
    void Add(const std::vector<Report_Section>& sections)
    {
        Cursor.beginEditBlock();
        for (auto section = sections.begin(); section != sections.end(); ++section) {
            if (section->Begins_Page)
                Diagram_Share = Share_Of_Diagrams(section, sections.end());
            Add(*section);
        }
        Cursor.endEditBlock();
    }

private:
    using Section = std::vector<Report_Section>::const_iterator;

    // The height of the diagrams up to the next break: several of them share what one would take.
    static double Share_Of_Diagrams(Section section, Section end)
    {
        int diagrams = 0;
        do
            diagrams += section->Diagram != nullptr ? 1 : 0;
        while (++section != end && !section->Begins_Page);
        return std::max(Least_Diagram_Share, Diagram_Height_Share / std::max(1, diagrams));
    }

    void Add(const Report_Section& section)
    {
        Heading(section);
        for (const auto& sentence : section.Sentences)
            Paragraph((section.Is_Warning ? QString::fromUtf8("•  ") : QString()) + Text(sentence),
                      section.Is_Warning ? Dots(9) : 0);
        if (!section.Grid.Lines.empty())
            Table(section.Grid);
        if (section.Diagram != nullptr)
            Diagram(*section.Diagram);
    }

    static QTextCharFormat Letters(double points, bool bold = false)
    {
        QTextCharFormat format;
        format.setFontPointSize(points);
        format.setFontWeight(bold ? QFont::Bold : QFont::Normal);
        return format;
    }

    void Begin_Block(const QTextBlockFormat& format, const QTextCharFormat& letters)
    {
        if (Is_First)
            Cursor.setBlockFormat(format);
        else
            Cursor.insertBlock(format);
        Is_First = false;
        Cursor.setCharFormat(letters);
    }

    void Heading(const Report_Section& section)
    {
        QTextBlockFormat block;
        block.setTopMargin(Dots(Is_First ? 0 : 14));
        block.setBottomMargin(Dots(5));
        block.setHeadingLevel(section.Level);
        if (section.Begins_Page)
            block.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
        Begin_Block(block, Letters(Heading_Points.at(static_cast<std::size_t>(section.Level)), true));
        Cursor.insertText(Text(section.Heading));
    }

    void Paragraph(const QString& text, double indent)
    {
        QTextBlockFormat block;
        block.setBottomMargin(Dots(4));
        block.setLeftMargin(indent);
        block.setTextIndent(-indent);
        Begin_Block(block, Letters(Text_Points));
        Cursor.insertText(text);
    }

    void Table(const Report_Grid& grid)
    {
        const bool heads = !grid.Columns.front().Head.empty();
        const int first = heads ? 1 : 0;
        QTextTableFormat format;
        format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
        format.setBorder(Dots(Border));
        format.setBorderBrush(Rule_Colour);
        format.setBorderCollapse(true);
        format.setCellPadding(Dots(Cell_Padding));
        format.setCellSpacing(0);
        format.setHeaderRowCount(first);
        if (heads)
            Spread(format, grid);
        Begin_Block({}, Letters(2)); // what keeps the table off the paragraph before it
        auto* table = Cursor.insertTable(static_cast<int>(grid.Lines.size()) + first,
                                         static_cast<int>(grid.Columns.size()), format);
        for (int column = 0; heads && column < table->columns(); ++column)
            Head_Cell(table->cellAt(0, column), grid.Columns[static_cast<std::size_t>(column)], Points_Of(grid));
        for (int row = 0; row < static_cast<int>(grid.Lines.size()); ++row)
            Fill_Row(*table, row + first, grid, grid.Lines[static_cast<std::size_t>(row)]);
        Cursor.movePosition(QTextCursor::End);
    }

    void Spread(QTextTableFormat& format, const Report_Grid& grid) const
    {
        format.setWidth(QTextLength(QTextLength::PercentageLength, 100));
        format.setColumnWidthConstraints(Column_Widths(grid));
    }

    // Every column has room for its widest word, and its share of what is left for lines that need not break.
    QList<QTextLength> Column_Widths(const Report_Grid& grid) const
    {
        std::vector<double> word, line;
        for (std::size_t i = 0; i < grid.Columns.size(); ++i) {
            word.push_back(0);
            line.push_back(0);
            for (const QString& part : Head_Text(grid.Columns[i]).split(QChar::LineSeparator))
                Measure(part, Letters(Points_Of(grid), true), word[i], line[i]);
            for (const auto& row : grid.Lines) {
                if (row.Cells.size() == grid.Columns.size())
                    Measure(Text(row.Cells[i]), Cell_Letters(grid, grid.Columns[i], true), word[i], line[i]);
            }
        }
        const double words = std::accumulate(word.begin(), word.end(), 0.0),
                     lines = std::accumulate(line.begin(), line.end(), 0.0);
        const double share = lines > words ? std::clamp((Width - words) / (lines - words), 0.0, 1.0) : 0;
        const double sum = words + share * (lines - words);
        QList<QTextLength> widths;
        for (std::size_t i = 0; i < word.size(); ++i)
            widths << QTextLength(QTextLength::PercentageLength, (word[i] + share * (line[i] - word[i])) * 100 / sum);
        return widths;
    }

    static double Around_A_Cell() { return Pixels(2 * Cell_Padding + 2 * Border); }

    void Measure(const QString& text, const QTextCharFormat& letters, double& word, double& line) const
    {
        QFont font = letters.font().resolve(Document.defaultFont());
        const QFontMetricsF metrics(font, Document.documentLayout()->paintDevice());
        for (const QString& part : text.split(' '))
            word = std::max(word, metrics.horizontalAdvance(part) + Around_A_Cell());
        line = std::max(line, metrics.horizontalAdvance(text) + Around_A_Cell());
    }

    // A table of a column a location has smaller letters.
    static double Points_Of(const Report_Grid& grid)
    {
        constexpr std::size_t Many_Columns = 10;
        return grid.Columns.size() > Many_Columns ? Wide_Table_Points : Table_Points;
    }

    static QTextCharFormat Cell_Letters(const Report_Grid& grid, const Report_Column& column, bool bold)
    {
        return Letters(column.Head == "SHA-256" ? Digest_Points : Points_Of(grid), bold);
    }

    // The unit goes below the name: a line would otherwise break behind its stroke.
    static QString Head_Text(const Report_Column& column) { return Text(column.Head).replace(" (", "\u2028("); }

    static void Head_Cell(QTextTableCell cell, const Report_Column& column, double points)
    {
        Write(cell.firstCursorPosition(), Head_Text(column), Letters(points, true), column.Is_Number);
        QTextCharFormat ground = cell.format();
        ground.setBackground(Head_Ground);
        cell.setFormat(ground);
    }

    static void Fill_Row(QTextTable& table, int row, const Report_Grid& grid, const Report_Line& line)
    {
        const auto cells = static_cast<int>(line.Cells.size());
        if (cells < table.columns())
            table.mergeCells(row, cells - 1, 1, table.columns() - cells + 1);
        for (int i = 0; i < cells; ++i) {
            const auto& column = grid.Columns[static_cast<std::size_t>(i)];
            QTextCharFormat letters = Cell_Letters(grid, column, line.Marked || (i == 0 && column.Head.empty()));
            if (line.Marked)
                letters.setForeground(Above_Colour);
            if (static_cast<std::size_t>(i) < line.Marks.size())
                Mark_Cell(table.cellAt(row, i), line.Marks[static_cast<std::size_t>(i)], letters);
            Write(table.cellAt(row, i).firstCursorPosition(), Text(line.Cells[static_cast<std::size_t>(i)]), letters,
                  column.Is_Number && cells == table.columns());
        }
    }

    static void Mark_Cell(QTextTableCell cell, const Cell_Mark& mark, QTextCharFormat& letters)
    {
        if (mark.Bold)
            letters.setFontWeight(QFont::Bold);
        if (mark.Class < 0)
            return;
        const auto place = static_cast<std::size_t>(mark.Class);
        QTextCharFormat ground = cell.format();
        ground.setBackground(QColor(QRgb(Class_Fills[place])));
        cell.setFormat(ground);
        letters.setForeground(QColor(QRgb(Class_Inks[place])));
    }

    static void Write(QTextCursor cursor, const QString& text, const QTextCharFormat& letters, bool to_the_right)
    {
        QTextBlockFormat block;
        block.setAlignment(to_the_right ? Qt::AlignRight : Qt::AlignLeft);
        cursor.setBlockFormat(block);
        cursor.insertText(text, letters);
    }

    void Diagram(const Chart& chart)
    {
        QTextBlockFormat block;
        block.setTopMargin(Dots(8));
        Begin_Block(block, Letters(Text_Points));
        QTextCharFormat diagram;
        diagram.setObjectType(Diagram_Object);
        diagram.setProperty(Height_Property, Width * Diagram_Share);
        diagram.setProperty(Diagram_Property, QVariant::fromValue(const_cast<void*>(static_cast<const void*>(&chart))));
        Cursor.insertText(QString(QChar::ObjectReplacementCharacter), diagram);
    }

    QTextDocument& Document;
    QTextCursor Cursor;
    double Width;
    double Diagram_Share = Diagram_Height_Share;
    bool Is_First = true;
};

bool Is_Heading(const QTextBlock& block)
{
    return block.blockFormat().headingLevel() > 0;
}

// How far down what belongs to a heading reaches: to the end of its table, or as far as a heading must not stand alone.
double Needed_By_Heading(const QTextDocument& document, const QTextBlock& heading)
{
    const double height = document.pageSize().height(),
                 top = document.documentLayout()->blockBoundingRect(heading).top();
    QTextBlock block = heading;
    while (block.isValid() && Is_Heading(block))
        block = block.next();
    for (; block.isValid() && !Is_Heading(block); block = block.next()) {
        if (auto* table = QTextCursor(block).currentTable()) {
            const double needed = document.documentLayout()->frameBoundingRect(table).bottom() - top;
            return needed < height ? needed : Least_Behind_Heading * height;
        }
    }
    return Least_Behind_Heading * height;
}

double Height_Of_Diagram(const QTextBlock& block)
{
    QTextCursor cursor(block);
    cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
    return cursor.charFormat().doubleProperty(Height_Property);
}

// A diagram takes the height that its page has left rather than a page of its own.
void Shrink_Diagram(const QTextBlock& block, double height)
{
    QTextCursor cursor(block);
    cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
    QTextCharFormat format = cursor.charFormat();
    format.setProperty(Height_Property, height);
    cursor.setCharFormat(format);
}

// Breaks pages before a diagram that would be cut, and before a heading whose table would be, or that would stand alone
// at the foot of its page.
void Keep_Together(QTextDocument& document)
{
    const double height = document.pageSize().height();
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const bool is_diagram = block.text() == QChar::ObjectReplacementCharacter;
        if (!is_diagram && (!Is_Heading(block) || Is_Heading(block.previous())))
            continue;
        const QRectF place = document.documentLayout()->blockBoundingRect(block);
        const double needed = is_diagram ? place.height() : Needed_By_Heading(document, block);
        if (std::fmod(place.top(), height) + needed <= height)
            continue;
        const double left = height - std::fmod(place.top(), height) - Pixels(4);
        if (is_diagram && left >= Least_Diagram_Share * document.pageSize().width()) {
            Shrink_Diagram(block, left - (place.height() - Height_Of_Diagram(block)));
            continue;
        }
        QTextBlockFormat format = block.blockFormat();
        format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
        QTextCursor(block).setBlockFormat(format);
    }
}

// Paints what lies on a page of the text.
void Paint_Page(QPainter& paper, const QTextDocument& document, const QSizeF& page, int number)
{
    paper.save();
    paper.setClipRect(QRectF(0, 0, page.width(), page.height() - 1)); // not the line that begins the next page
    Page_Device device(paper);
    QPainter painter(&device);
    painter.translate(0, -number * page.height());
    QAbstractTextDocumentLayout::PaintContext context;
    context.clip = QRectF(0, number * page.height(), page.width(), page.height() - 1);
    context.palette = Paper_Palette();
    document.documentLayout()->draw(&painter, context);
    painter.end();
    paper.restore();
}

// Paints the pages, each with the report's name and its number at the foot.
void Paint_Pages(QPdfWriter& writer, const QTextDocument& document, Diagram_In_Text& diagrams, const QSizeF& page,
                 double foot, const QString& name)
{
    QPainter painter(&writer);
    diagrams.Paint_On(painter);
    const int pages = document.pageCount();
    for (int i = 0; i < pages; ++i) {
        if (i > 0)
            writer.newPage();
        Paint_Page(painter, document, page, i);
        QFont small = document.defaultFont();
        small.setPointSizeF(Foot_Points);
        painter.setFont(small);
        painter.setPen(Qt::black);
        const QRectF line(0, page.height(), page.width(), foot);
        painter.drawText(line, Qt::AlignLeft | Qt::AlignBottom, name);
        painter.drawText(line, Qt::AlignRight | Qt::AlignBottom, QString("Page %1 of %2").arg(i + 1).arg(pages));
    }
}

} // namespace

QByteArray Report_Pdf(const Report& report)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    const QString name = Text(report.Title + ": " + report.Pesticide);
    {
        QPdfWriter writer(&buffer);
        writer.setPdfVersion(QPagedPaintDevice::PdfVersion_A1b);
        writer.setResolution(Resolution);
        writer.setPageLayout({QPageSize(QPageSize::A4), QPageLayout::Portrait,
                              QMarginsF(Margin_Millimetres, Margin_Millimetres, Margin_Millimetres, Margin_Millimetres),
                              QPageLayout::Millimeter});
        writer.setTitle(name);
        writer.setCreator(Text(report.Program));
        const double foot = Pixels(24);
        const QRect whole = writer.pageLayout().paintRectPixels(Resolution);
        const QSizeF page(whole.width(), whole.height() - foot);

        QTextDocument document;
        document.documentLayout()->setPaintDevice(&writer);
        QFont font("DejaVu Sans", static_cast<int>(Text_Points));
        font.setLetterSpacing(QFont::AbsoluteSpacing, 0.05); // no ligatures: the text stays searchable
        document.setDefaultFont(font);
        document.setDocumentMargin(0);
        document.setPageSize(page);
        const auto sections = Sections_Of(report);
        Diagram_In_Text diagrams(page.width());
        Typesetting typesetting(document, diagrams, page.width());
        typesetting.Add(sections);
        Keep_Together(document);
        Paint_Pages(writer, document, diagrams, page, foot, name);
    }
    return With_Tagged_Fonts(bytes);
}

} // namespace orvel

#include "report_pdf.moc"
