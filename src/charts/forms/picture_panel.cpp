#include "charts/forms/picture_panel.h"

#include "charts/forms/chart_view.h"
#include "charts/forms/picture_actions.h"
#include "core/run_name.h"
#include "ui/forms/widgets.h"

#include <QHBoxLayout>

namespace orvel {

Picture_Panel::Picture_Panel(const QString& name, Ask_Function ask, QWidget* parent)
    : QWidget(parent),
      Ask(std::move(ask)),
      View(Named(new Chart_View, name))
{
    View->setMinimumSize(fontMetrics().averageCharWidth() * 40, fontMetrics().lineSpacing() * 9);
    View->setAccessibleName(name);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    const auto add = [&](const QString& what, const QString& text, auto handler) {
        auto* button = Push_Button(what + "_" + name, text, this, handler);
        button->setFlat(true);
        button->setAccessibleName(text + ": " + name);
        buttons->addWidget(button);
    };
    add("Copy", "Copy graph", [this] { Copy_Picture(Picture_Of(Shown_Chart())); });
    add("Print", "Print graph", [this] { Print_Picture(*this, Ask, Picture_Of(Shown_Chart())); });
    add("Save", "Save graph", [this] {
        Save_Picture_As(*this, Ask, Picture_Of(Shown_Chart()), "Save Graph",
                        Shown(Picture_Name(Of, Shown_Chart().Title)));
    });
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    all->addWidget(View, 1);
    all->addLayout(buttons);
}

void Picture_Panel::Show(Chart chart)
{
    View->Show(std::move(chart));
}

const Chart& Picture_Panel::Shown_Chart() const
{
    return View->Shown_Chart();
}

} // namespace orvel
