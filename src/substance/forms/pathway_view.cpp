#include "substance/forms/pathway_view.h"

#include "charts/painting/chart_painter.h"
#include "core/numbers.h"
#include "substance/forms/pathway_geometry.h"
#include "substance/forms/pathway_painting.h"
#include "substance/forms/scheme_button.h"
#include "substance/half_lives.h"
#include "substance/pathway.h"
#include "ui/forms/widgets.h"

#include <algorithm>
#include <iterator>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

namespace orvel {

namespace {

QString Box_Name(int i)
{
    if (i == 1)
        return "Label_AS";
    return i < First_Of_Second_Row ? QString("Label_1_%1").arg(i - 1)
                                   : QString("Label_2_%1").arg(i - First_Of_Second_Row + 1);
}

// Tooltip: the label of the arrow with its rate and half-life.
QString Arrow_Tip(const Pesticide_Document& document, int t)
{
    const Arrow& arrow = Arrow_Of(t);
    const auto& row = document.Degradation[static_cast<std::size_t>(arrow.Source)][static_cast<std::size_t>(arrow.Row)];
    QString tip = Shown(Arrow_Label(t));
    if (row.Deg_Rate.Number() != 0)
        tip += QString(": %1 1/d, DT 50 %2 d")
                   .arg(Shown(row.Deg_Rate.Text()), Shown(Texts_Of_Rate(row.Deg_Rate.Text()).DT50));
    else
        tip += ": no transformation in soil";
    if (Shows_Photolysis(t) && document.Photo_Rate[static_cast<std::size_t>(t)] != 0)
        tip += QString("; soil photolysis %1 1/d")
                   .arg(Shown(General_Text(document.Photo_Rate[static_cast<std::size_t>(t)])));
    return tip;
}

} // namespace

Pathway_View::Pathway_View(QWidget* parent) : QWidget(parent)
{
    for (int i = 1; i <= Substances; ++i) {
        auto* box = Boxes[static_cast<std::size_t>(i)] = Named(new Substance_Box(this), Box_Name(i));
        box->setFocusPolicy(Qt::StrongFocus);
        connect(box, &Substance_Box::clicked, this, [this, i] { emit Substance_Clicked(i); });
    }
    for (int t = 1; t <= Last_Transformation; ++t) {
        if (!Arrow_Is_Clickable(t))
            continue;
        auto* head = Heads[static_cast<std::size_t>(t)] = Named(new Arrow_Head(this), QString("Image2_%1").arg(t));
        head->setFocusPolicy(Qt::StrongFocus);
        connect(head, &Arrow_Head::clicked, this, [this, t] { emit Arrow_Clicked(t); });
    }
    for (auto* part : Parts())
        part->installEventFilter(this);
    Make_Tab_Stop(*Boxes[1]);
    setMinimumSize(sizeHint() / 2);
}

// The boxes and the clickable arrows.
std::vector<QWidget*> Pathway_View::Parts() const
{
    std::vector<QWidget*> parts(Boxes.begin() + 1, Boxes.end());
    std::copy_if(Heads.begin(), Heads.end(), std::back_inserter(parts), [](const auto* head) { return head; });
    return parts;
}

void Pathway_View::Make_Tab_Stop(const QWidget& stop)
{
    for (auto* part : Parts())
        part->setFocusPolicy(part == &stop ? Qt::StrongFocus : Qt::ClickFocus);
}

// To the part that lies nearest in the direction of the key; what lies aside counts double.
void Pathway_View::Step(const QWidget& from, int key)
{
    const bool upright = key == Qt::Key_Up || key == Qt::Key_Down;
    const int sign = key == Qt::Key_Up || key == Qt::Key_Left ? -1 : 1;
    QWidget* nearest = nullptr;
    int least = 0;
    for (auto* part : Parts()) {
        const QPoint way = part->geometry().center() - from.geometry().center();
        const int ahead = sign * (upright ? way.y() : way.x());
        const int cost = ahead + 2 * std::abs(upright ? way.x() : way.y());
        if (ahead > 0 && (!nearest || cost < least)) {
            nearest = part;
            least = cost;
        }
    }
    if (nearest)
        nearest->setFocus(Qt::OtherFocusReason);
}

bool Pathway_View::eventFilter(QObject* watched, QEvent* event)
{
    auto* part = static_cast<QAbstractButton*>(watched);
    if (event->type() == QEvent::FocusIn)
        Make_Tab_Stop(*part);
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    switch (const int key = static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        part->click();
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Left:
    case Qt::Key_Right:
        Step(*part, key);
        return true;
    default:
        return QWidget::eventFilter(watched, event);
    }
}

void Pathway_View::Show(const Pesticide_Document& document, const Per_Substance<std::string>& captions)
{
    Document = document;
    Captions = captions;
    for (int i = 1; i <= Substances; ++i) {
        auto* box = Boxes[static_cast<std::size_t>(i)];
        box->setText(Shown(captions[static_cast<std::size_t>(i)]));
        box->setAccessibleName(box->text().trimmed());
        box->setToolTip(box->text().trimmed() +
                        (document.Met_Present[static_cast<std::size_t>(i)] ? "" : ": nothing forms it"));
        box->Show(Look_Of_Box(document, i));
    }
    for (int t = 1; t <= Last_Transformation; ++t) {
        auto* head = Heads[static_cast<std::size_t>(t)];
        if (!head)
            continue;
        head->Show(Look_Of_Arrow(document, t));
        head->setToolTip(Arrow_Tip(document, t));
        head->setAccessibleName(head->toolTip());
    }
    update();
}

QRect Pathway_View::Head_On_Screen(int t) const
{
    const auto* head = Heads.at(static_cast<std::size_t>(t));
    return {head->mapToGlobal(QPoint()), head->size()};
}

QSize Pathway_View::sizeHint() const
{
    const double scale = fontMetrics().averageCharWidth() / 8.0;
    return (Drawing_Size * scale).toSize();
}

double Pathway_View::Scale() const
{
    return std::min(width() / Drawing_Size.width(), height() / Drawing_Size.height());
}

QRectF Pathway_View::Scaled(const QRectF& of_drawing) const
{
    const QSizeF used = Drawing_Size * Scale();
    const QPointF corner((width() - used.width()) / 2, (height() - used.height()) / 2);
    return {corner + of_drawing.topLeft() * Scale(), of_drawing.size() * Scale()};
}

QPointF Pathway_View::In_Drawing(QPointF of_window) const
{
    return (of_window - Scaled({}).topLeft()) / Scale();
}

void Pathway_View::Place()
{
    for (int i = 1; i <= Substances; ++i)
        Boxes[static_cast<std::size_t>(i)]->setGeometry(Scaled(Box_Of_Substance(i)).toRect());
    for (int t = 1; t <= Last_Transformation; ++t) {
        if (auto* head = Heads[static_cast<std::size_t>(t)]) {
            head->setGeometry(Scaled(Head_Of_Arrow(t)).toRect());
            head->Point_Along(Line_Of_Arrow(t));
        }
    }
}

void Pathway_View::resizeEvent(QResizeEvent*)
{
    Place();
}

void Pathway_View::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const auto scaled = [this](QPointF of_drawing) { return Scaled({of_drawing, QSizeF()}).topLeft(); };
    for (int t = 1; t <= Last_Transformation; ++t) {
        if (Arrow_Is_Clickable(t))
            Paint_Arrow_Line(painter, {scaled(Line_Of_Arrow(t).p1()), scaled(Head_Of_Arrow(t).center())},
                             Look_Of_Arrow(Document, t), palette());
    }
    for (int i = 1; i <= Substances; ++i) {
        if (Document.Bound_Active[static_cast<std::size_t>(i)])
            Paint_Sink(painter, Scaled(Sink_Of_Substance(i)), palette());
    }
}

Picture Pathway_View::As_Picture() const
{
    const auto paint = [document = Document, captions = Captions](QPainter& painter, const QRectF& area) {
        Paint_Scheme(painter, area, document, captions, Paper_Palette());
    };
    return {Document.PSM_Title, Drawing_Size, paint};
}

// A click on an arrow's line counts as one on its head.
void Pathway_View::mousePressEvent(QMouseEvent* event)
{
    if (const int t = Arrow_At(In_Drawing(event->position())); t != 0 && event->button() == Qt::LeftButton)
        emit Arrow_Clicked(t);
}

bool Pathway_View::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const int t = Arrow_At(In_Drawing(help->pos()));
    QToolTip::showText(help->globalPos(), t == 0 ? QString() : Arrow_Tip(Document, t), this);
    return true;
}

} // namespace orvel
