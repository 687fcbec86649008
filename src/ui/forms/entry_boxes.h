#pragma once

#include "ui/forms/number_edit.h"
#include "ui/forms/widgets.h"

#include <map>
#include <QFormLayout>
#include <QLabel>
#include <string_view>

namespace orvel {

// The number boxes of a form, made from the rows of its field table and found by the names of their controls.
class Entry_Boxes {
public:
    // Adds a row with the caption and the box; `caption` replaces the table's where a form words it differently.
    template <class Row> Number_Edit* Add(QFormLayout& rows, const Row& row, const QString& caption = {})
    {
        auto* box = Named(new Number_Edit(QString::fromUtf8(row.Unit)), QString::fromUtf8(row.Control));
        auto* label = new QLabel(caption.isEmpty() ? QString::fromUtf8(row.Caption) : caption);
        if (!row.Label.empty())
            label->setObjectName(QString::fromUtf8(row.Label));
        label->setBuddy(box);
        rows.addRow(label, box);
        return Boxes[row.Control] = box;
    }

    Number_Edit* operator[](std::string_view control) const { return Boxes.at(control); }

    template <class Rows, class Entry> void Show(const Rows& rows, const Entry& entry) const
    {
        for (const auto& row : rows)
            Show_Text(*Boxes.at(row.Control), entry.*row.Text);
    }

    // If the box shows this text already, it is left alone, so that cursor and modified flag survive.
    static void Show_Text(QLineEdit& box, std::string_view bytes)
    {
        if (const QString text = Shown(bytes); box.text() != text) {
            box.setText(text);
            box.setCursorPosition(0);
        }
    }

    // Stores the texts of the boxes in an entry.
    template <class Rows, class Entry> void Read(const Rows& rows, Entry& entry) const
    {
        for (const auto& row : rows)
            entry.*row.Text = Boxes.at(row.Control)->Typed();
    }

private:
    std::map<std::string_view, Number_Edit*> Boxes; // keys are those of the tables
};

} // namespace orvel
