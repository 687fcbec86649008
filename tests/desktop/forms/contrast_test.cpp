// Whether every text of every window can be read on its ground, and every mark be seen, light and dark.
#include "charts/painting/chart_painter.h"
#include "core/contrast.h"
#include "desktop/forms/all_windows.h"
#include "report/overview_formats.h"
#include "substance/forms/pathway_painting.h"
#include "substance/pathway_picture.h"
#include "ui/forms/readable_palette.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QBrush>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRegularExpression>

namespace orvel {

namespace {

std::uint32_t Rgb(const QColor& colour)
{
    return colour.rgb() & 0xFFFFFFU;
}

// A sentence if a text is too pale, else nothing.
QString Too_Pale(const QString& what, const QColor& ink, const QColor& ground, double least = 4.5)
{
    const double contrast = Contrast(Rgb(ink), Rgb(ground));
    if (ink.alpha() == 255 && contrast >= least)
        return {};
    return QString("%1: %2 on %3 has %4 to 1\n").arg(what, ink.name(QColor::HexArgb), ground.name()).arg(contrast);
}

QString Pale_By_Role(const QWidget& control, QPalette::ColorRole ink, QPalette::ColorRole ground)
{
    return Too_Pale(Place_Of(control), control.palette().color(ink), control.palette().color(ground));
}

// Colours that a text brings itself: pairs of ink and ground, and inks alone on the window's ground.
QString Pale_In_Markup(const QLabel& label)
{
    static const QRegularExpression span("<span[^>]*>"), ink("[\"; ]color: ?(#[0-9a-f]{6})"),
        ground("background-color:(#[0-9a-f]{6})");
    QString pale;
    for (auto at = span.globalMatch(label.text()); at.hasNext();) {
        const QString tag = at.next().captured();
        const auto own_ink = ink.match(tag), own_ground = ground.match(tag);
        if (!own_ink.hasMatch())
            continue;
        const bool is_mark = !own_ground.hasMatch(); // the square of a key
        pale += Too_Pale(Place_Of(label), QColor(own_ink.captured(1)),
                         is_mark ? label.palette().color(QPalette::Window) : QColor(own_ground.captured(1)),
                         is_mark ? 3 : 4.5);
    }
    return pale;
}

QString Pale_In_Table(const QAbstractItemView& view, const QModelIndex& parent, int& cells)
{
    const auto* model = view.model();
    QString pale;
    for (int row = 0; row < std::min(60, model->rowCount(parent)); ++row) {
        for (int column = 0; column < model->columnCount(parent); ++column) {
            const auto index = model->index(row, column, parent);
            if (!(index.flags() & Qt::ItemIsEnabled) || index.data().toString().isEmpty())
                continue;
            ++cells;
            const auto ink = index.data(Qt::ForegroundRole), ground = index.data(Qt::BackgroundRole);
            pale += Too_Pale(view.objectName() + ": " + index.data().toString(),
                             ink.isValid() ? ink.value<QBrush>().color() : view.palette().color(QPalette::Text),
                             ground.isValid() ? ground.value<QBrush>().color() : view.palette().color(QPalette::Base));
        }
        pale += Pale_In_Table(view, model->index(row, 0, parent), cells);
    }
    return pale;
}

QString Pale_In(const QWidget& window, int& cells)
{
    QString pale;
    for (const auto* control : window.findChildren<QWidget*>()) {
        if (!control->isVisible() || !control->isEnabled())
            continue;
        if (const auto* view = qobject_cast<const QAbstractItemView*>(control)) {
            pale += Pale_By_Role(*view, QPalette::HighlightedText, QPalette::Highlight);
            if (view->model())
                pale += Pale_In_Table(*view, {}, cells);
        } else if (qobject_cast<const QLineEdit*>(control) || qobject_cast<const QPlainTextEdit*>(control)) {
            for (const auto role : {QPalette::Text, QPalette::PlaceholderText, QPalette::Link})
                pale += Pale_By_Role(*control, role, QPalette::Base);
        } else if (const auto* label = qobject_cast<const QLabel*>(control)) {
            pale += Pale_By_Role(*label, label->foregroundRole(), QPalette::Window) + Pale_In_Markup(*label);
        } else if (qobject_cast<const QAbstractButton*>(control) || qobject_cast<const QGroupBox*>(control)) {
            pale += Pale_By_Role(*control, control->foregroundRole(), control->backgroundRole());
        }
    }
    return pale;
}

// Lines, bars and dots of every diagram; names stand in the colour of series and marked lines.
QString Pale_In_Diagrams(const QPalette& palette)
{
    QString pale;
    for (int role = 0; role <= static_cast<int>(Colour::Term_7); ++role) {
        const bool is_text = role <= static_cast<int>(Colour::Marked);
        pale += Too_Pale(QString("diagram, colour %1").arg(role), Colour_Of(static_cast<Colour>(role), palette),
                         palette.color(QPalette::Base), is_text ? 4.5 : 3);
    }
    return pale;
}

QString Pale_In_The_Scheme(const Pesticide_Document& document, const QPalette& palette)
{
    QString pale;
    for (int i = 1; i <= 9; ++i) {
        const auto back = Look_Of_Box(document, i).Back;
        pale += Too_Pale(QString("box %1").arg(i), Qt::black, QColor(back.Red, back.Green, back.Blue));
    }
    for (int t = 1; t <= 29; ++t)
        pale += Too_Pale(QString("arrow %1").arg(t), Line_Colour(Look_Of_Arrow(document, t), palette),
                         palette.color(QPalette::Window), 3);
    return pale;
}

} // namespace

class Contrast_Test : public Windows_Test {
protected:
    void Look_At_All(const QPalette& palette)
    {
        const QPalette before = QApplication::palette();
        QApplication::setPalette(Readable(palette));
        int cells = 0;
        for (const auto& opened : All()) {
            SCOPED_TRACE(opened.Name.toStdString());
            const auto window = Shown_Window(opened);
            EXPECT_EQ(Pale_In(*window, cells).toStdString(), "");
        }
        EXPECT_GT(cells, 200);
        EXPECT_EQ(Pale_In_Diagrams(QApplication::palette()).toStdString(), "");
        EXPECT_EQ(Pale_In_The_Scheme(The_Session.Pesticide, QApplication::palette()).toStdString(), "");
        QApplication::setPalette(before);
    }
};

TEST_F(Contrast_Test, Every_Text_Can_Be_Read_And_Every_Mark_Seen)
{
    Look_At_All(QApplication::palette());
}

TEST_F(Contrast_Test, Every_Text_Can_Be_Read_And_Every_Mark_Seen_In_The_Dark)
{
    Look_At_All(Dark());
}

TEST_F(Contrast_Test, Classes_Can_Be_Read_In_Their_Colours)
{
    for (std::size_t i = 0; i < Class_Fills.size(); ++i)
        EXPECT_GE(Contrast(Class_Fills[i], Class_Inks[i]), 4.5) << i;
}

} // namespace orvel
