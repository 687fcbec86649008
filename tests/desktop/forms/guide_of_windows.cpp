#include "guide_of_windows.h"

#include "core/files.h"
#include "ui/forms/number_edit.h"

#include <algorithm>
#include <QAbstractButton>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QRegularExpression>
#include <QTabBar>
#include <QTableView>
#include <QTreeView>

namespace orvel {

namespace {

const QRegularExpression Caption("`([^`]+)`"); // several in a cell have one meaning

// Parts of controls: the corner of a table, the arrows of a tab bar, the mark in a field.
bool Is_A_Part(const QWidget& control)
{
    return control.objectName().isEmpty() || control.objectName().startsWith("qt_") ||
           qobject_cast<const QLineEdit*>(control.parentWidget()) ||
           qobject_cast<const QComboBox*>(control.parentWidget());
}

QString Unit_Of(const QWidget* control)
{
    const auto* number = qobject_cast<const Number_Edit*>(control);
    return number ? number->Unit() : QString();
}

void Add_Headings(const QTableView& table, std::vector<Captioned>& found)
{
    for (int column = 0; table.model() && column < table.model()->columnCount(); ++column) {
        if (!table.isColumnHidden(column) && table.horizontalHeader()->isVisible())
            found.push_back(
                {Plain_Caption(table.model()->headerData(column, Qt::Horizontal).toString()), "", table.objectName()});
    }
}

void Add_Entries(const QMenu& menu, std::vector<Captioned>& found)
{
    for (const auto* action : menu.actions()) {
        if (!action->isSeparator())
            found.push_back({Plain_Caption(action->text()), "", action->objectName()});
    }
}

bool Has_Label(const QWidget& window, const QWidget& control)
{
    for (const auto* label : window.findChildren<QLabel*>()) {
        if (label->buddy() == &control && !Plain_Caption(label->text()).isEmpty())
            return true;
    }
    return false;
}

} // namespace

QString Plain_Caption(QString caption)
{
    caption.replace("&&", "\x01").remove('&').replace('\x01', '&');
    caption = caption.simplified();
    while (caption.endsWith('.') || caption.endsWith(':') || caption.endsWith(' '))
        caption.chop(1);
    return caption;
}

std::vector<Captioned> Controls_Of(const QWidget& window)
{
    std::vector<Captioned> found;
    for (const auto* control : window.findChildren<QWidget*>()) {
        if (!control->isVisibleTo(&window))
            continue;
        const auto* label = qobject_cast<const QLabel*>(control);
        if (label && label->buddy())
            found.push_back({Plain_Caption(label->text()), Unit_Of(label->buddy()), label->buddy()->objectName()});
        if (const auto* table = qobject_cast<const QTableView*>(control))
            Add_Headings(*table, found);
        if (Is_A_Part(*control))
            continue;
        if (const auto* button = qobject_cast<const QAbstractButton*>(control))
            found.push_back({Plain_Caption(button->text()), "", button->objectName()});
        const bool is_a_box = qobject_cast<const QLineEdit*>(control) || qobject_cast<const QComboBox*>(control);
        if (is_a_box && !Has_Label(window, *control))
            found.push_back({Plain_Caption(control->accessibleName()), Unit_Of(control), control->objectName()});
    }
    for (const auto* menu : window.findChildren<QMenu*>("Menu"))
        Add_Entries(*menu, found);
    // A plan's own columns are named after the fields that it replaces.
    std::erase_if(found, [](const Captioned& one) { return one.Caption.isEmpty() || one.Caption.startsWith("psm."); });
    return found;
}

Guide_Text Read_Guide(const std::filesystem::path& guide, const QStringList& pages)
{
    Guide_Text read;
    for (const auto& page : pages)
        read.Text += QString::fromStdString(Read_Whole(guide / page.section('#', 0, 0).toStdString()));
    for (const auto& line : read.Text.split('\n')) {
        if (!line.startsWith("| "))
            continue;
        const auto cell = line.mid(1, line.indexOf(" |", 2) - 1);
        for (auto captions = Caption.globalMatch(cell); captions.hasNext();)
            read.Rows.emplace(Plain_Caption(captions.next().captured(1)), line);
    }
    return read;
}

bool Is_Described(const Captioned& control, const Guide_Text& guide)
{
    const auto [first, end] = guide.Rows.equal_range(control.Caption);
    return std::any_of(first, end, [&](const auto& row) { return row.second.contains("| " + control.Unit); });
}

bool Is_Default(const Captioned& control, const QString& number, const Guide_Text& guide)
{
    const QRegularExpression word("(^|[ ,:;])" + QRegularExpression::escape(number) + "($|[ ,:;])");
    const auto [first, end] = guide.Rows.equal_range(control.Caption);
    return std::any_of(first, end, [&](const auto& row) {
        return row.second.split('|').value(row.second.count('|') - 1).trimmed().contains(word);
    });
}

std::map<QString, QStringList> Read_Places(const std::filesystem::path& file)
{
    std::map<QString, QStringList> places;
    for (const auto& line : QString::fromStdString(Read_Whole(file)).split('\n', Qt::SkipEmptyParts)) {
        const auto words = line.simplified().split(' ');
        if (words.size() > 1 && !line.startsWith('#'))
            places[words[0]] = words.mid(1);
    }
    return places;
}

} // namespace orvel
