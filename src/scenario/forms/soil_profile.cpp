#include "scenario/forms/soil_profile.h"

#include "core/contrast.h"
#include "core/numbers.h"
#include "ui/forms/accessible_picture.h"
#include "ui/forms/widgets.h"

#include <algorithm>
#include <cmath>
#include <QMouseEvent>
#include <QPainter>

namespace orvel {

namespace {

constexpr double Lightest = 0.08, Darkest = 0.75; // share of the dark colour in the light one
constexpr int Gap = 6;

QColor Mixed(const QColor& ground, const QColor& text, double share)
{
    const auto mix = [share](double a, double b) { return static_cast<float>(a + (b - a) * share); };
    return QColor::fromRgbF(mix(ground.redF(), text.redF()), mix(ground.greenF(), text.greenF()),
                            mix(ground.blueF(), text.blueF()));
}

double Most_Carbon(const std::vector<Profile_Layer>& layers)
{
    double most = 0;
    for (const auto& layer : layers)
        most = std::max(most, layer.Organic_Carbon);
    return most;
}

} // namespace

Profile_View::Profile_View(QWidget* parent) : QWidget(parent)
{
    setObjectName("Profile");
    Read_As_Picture(*this);
    setAccessibleName("Soil profile with organic carbon");
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
}

void Profile_View::Show(std::vector<Profile_Layer> layers)
{
    Layers = std::move(layers);
    QStringList words;
    for (const auto& layer : Layers)
        words << QString("%1 to %2 cm: %3 % organic carbon")
                     .arg(Shown(General_Text(layer.Top)).trimmed(), Shown(General_Text(layer.Bottom)).trimmed(),
                          Shown(General_Text(layer.Organic_Carbon)).trimmed());
    setAccessibleDescription(words.isEmpty() ? QString("no horizon") : words.join("; "));
    update();
}

void Profile_View::Mark(int horizon)
{
    Marked = horizon;
    update();
}

QSize Profile_View::sizeHint() const
{
    return {fontMetrics().horizontalAdvance("0000 cm") * 5, fontMetrics().lineSpacing() * 18};
}

// The place of a layer: the profile is between the depth labels on the left and the bars on the right.
QRect Profile_View::Place_Of(const Profile_Layer& layer) const
{
    const int line = fontMetrics().lineSpacing();
    const int left = fontMetrics().horizontalAdvance("0000 cm") + Gap;
    const int height = std::max(1, this->height() - 2 * line);
    const double depth = std::max(Layers.back().Bottom, 1e-9);
    const int top = line + static_cast<int>(std::lround(layer.Top / depth * height));
    const int bottom = line + static_cast<int>(std::lround(layer.Bottom / depth * height));
    return {left, top, (width() - left) / 2, bottom - top};
}

void Profile_View::paintEvent(QPaintEvent*)
{
    if (Layers.empty())
        return;
    QPainter painter(this);
    const auto& colours = palette();
    QColor ground = colours.color(QPalette::Base), ink = colours.color(QPalette::Text);
    if (ground.lightness() < ink.lightness())
        std::swap(ground, ink); // carbon-rich soil is dark even on a dark screen
    const double most = Most_Carbon(Layers);
    const int line = fontMetrics().lineSpacing();
    int last_depth = 0;
    const auto depth_text = [&](double depth, int y) {
        if (y < last_depth)
            return;
        painter.setPen(colours.color(QPalette::WindowText));
        painter.drawText(QRect(0, y - line / 2, Place_Of(Layers[0]).left() - Gap, line),
                         Qt::AlignRight | Qt::AlignVCenter, Shown(General_Text(depth)) + " cm");
        last_depth = y + line;
    };
    depth_text(0, Place_Of(Layers[0]).top());
    for (std::size_t h = 0; h < Layers.size(); ++h) {
        const auto& layer = Layers[h];
        const QRect place = Place_Of(layer);
        if (place.height() <= 0)
            continue;
        const double share = most > 0 ? std::clamp(layer.Organic_Carbon / most, 0.0, 1.0) : 0;
        const double darkness = Lightest + (Darkest - Lightest) * share;
        painter.setPen(ink);
        painter.setBrush(Mixed(ground, ink, darkness));
        painter.drawRect(place.adjusted(0, 0, -1, 0));
        const int room = width() - place.right() - 2 * Gap;
        painter.fillRect(QRect(place.right() + Gap, place.top() + 1, static_cast<int>(room * share),
                               std::min(place.height() - 1, line / 3)),
                         colours.color(QPalette::Highlight));
        depth_text(layer.Bottom, place.bottom() + 1);
        if (place.height() < line)
            continue;
        const auto fill = Mixed(ground, ink, darkness).rgb();
        painter.setPen(Contrast(fill, ground.rgb()) > Contrast(fill, ink.rgb()) ? ground : ink);
        painter.drawText(place, Qt::AlignCenter, QString::number(h + 1));
        painter.setPen(colours.color(QPalette::WindowText));
        if (place.height() >= 3 * line / 2)
            painter.drawText(QRect(place.right() + Gap, place.top() + line / 3 + 2, room, line),
                             Qt::AlignLeft | Qt::AlignTop, Shown(General_Text(layer.Organic_Carbon)) + " % OC");
    }
    if (Marked < 0 || static_cast<std::size_t>(Marked) >= Layers.size())
        return;
    painter.setPen(QPen(colours.color(QPalette::Highlight), 3));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(Place_Of(Layers[static_cast<std::size_t>(Marked)]).adjusted(1, 1, -2, -1));
}

void Profile_View::mousePressEvent(QMouseEvent* event)
{
    for (std::size_t h = 0; h < Layers.size(); ++h) {
        if (Place_Of(Layers[h]).contains(event->pos()))
            return emit Horizon_Clicked(static_cast<int>(h));
    }
}

} // namespace orvel
