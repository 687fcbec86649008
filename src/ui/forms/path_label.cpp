#include "ui/forms/path_label.h"

namespace orvel {

namespace {

constexpr int Fewest_Characters = 24;

} // namespace

Path_Label::Path_Label(QString purpose, QWidget* parent) : QLabel(parent), Purpose(std::move(purpose))
{
    setAccessibleName(Purpose + ": none");
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    setTextInteractionFlags(Qt::TextSelectableByMouse);
}

void Path_Label::Show(const std::filesystem::path& path)
{
    Whole = QString::fromStdString(path.string());
    setToolTip(Whole);
    setAccessibleName(Purpose + ": " + (Whole.isEmpty() ? "none" : Whole));
    Fit();
}

QSize Path_Label::sizeHint() const
{
    return minimumSizeHint();
}

QSize Path_Label::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * Fewest_Characters, fontMetrics().lineSpacing()};
}

void Path_Label::resizeEvent(QResizeEvent* event)
{
    QLabel::resizeEvent(event);
    Fit();
}

void Path_Label::Fit()
{
    setText(fontMetrics().elidedText(Whole, Qt::ElideMiddle, width()));
}

} // namespace orvel
