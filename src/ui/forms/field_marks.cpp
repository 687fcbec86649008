#include "ui/forms/field_marks.h"

#include <QAction>
#include <QIcon>
#include <QMenu>
#include <QPainter>
#include <QPainterPath>

#include <utility>

namespace orvel {

namespace {

constexpr int Icon_Size = 64; // is scaled down

// A sheet of paper with a folded corner, in the colour of links.
QIcon Note_Icon(const QPalette& palette)
{
    QPixmap picture(Icon_Size, Icon_Size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor ink = palette.color(QPalette::Link);
    painter.setPen(QPen(ink, 5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    QPainterPath sheet;
    sheet.addPolygon(QPolygonF({{12, 6}, {38, 6}, {52, 20}, {52, 58}, {12, 58}, {12, 6}}));
    painter.drawPath(sheet);
    painter.drawPolyline(QPolygonF({{38, 6}, {38, 20}, {52, 20}}));
    for (const int line : {31, 41, 50})
        painter.drawLine(21, line, 43, line);
    return QIcon(picture);
}

} // namespace

Field_Marks::Field_Marks(QWidget& window, Access access) : QObject(&window), The_Access(std::move(access)) {}

Field_Marks* Field_Marks::Of(const QWidget& window)
{
    for (const QWidget* at = &window; at != nullptr; at = at->parentWidget()) {
        if (auto* marks = at->findChild<Field_Marks*>(QString(), Qt::FindDirectChildrenOnly))
            return marks;
    }
    return nullptr;
}

void Field_Marks::Watch(QLineEdit& field, std::string key)
{
    std::erase_if(All, [](const Watched& watched) { return watched.Field.isNull(); });
    auto* open = new QAction("&Source ...", &field);
    open->setObjectName("Source");
    open->setShortcut(Qt::SHIFT | Qt::Key_F2);
    open->setShortcutContext(Qt::WidgetShortcut);
    static_cast<QWidget&>(field).addAction(open);
    auto* mark = field.addAction(Note_Icon(field.palette()), QLineEdit::LeadingPosition);
    mark->setObjectName("Note_Mark");
    const auto edit = [this, &field, key] { Edit(field, key); };
    connect(open, &QAction::triggered, this, edit);
    connect(mark, &QAction::triggered, this, edit);
    field.setContextMenuPolicy(Qt::CustomContextMenu);
    connect(&field, &QWidget::customContextMenuRequested, this, [&field, open](const QPoint& place) {
        auto* menu = field.createStandardContextMenu();
        menu->setAttribute(Qt::WA_DeleteOnClose);
        menu->addSeparator();
        menu->addAction(open);
        menu->popup(field.mapToGlobal(place));
    });
    All.push_back({&field, std::move(key), mark});
    Show_Mark(All.back());
}

void Field_Marks::Refresh()
{
    for (const auto& watched : All) {
        if (watched.Field)
            Show_Mark(watched);
    }
}

void Field_Marks::Edit(QLineEdit& field, const std::string& key)
{
    The_Access.Edit(key, field.window());
    Refresh();
}

void Field_Marks::Show_Mark(const Watched& watched) const
{
    const QString note = The_Access.Note(watched.Key);
    watched.Mark->setVisible(!note.isEmpty());
    watched.Mark->setToolTip(note);
}

} // namespace orvel
