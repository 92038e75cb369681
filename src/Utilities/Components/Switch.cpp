#include "Switch.h"

#include "FocusRing.h"
#include "Paint.h"
#include "Palette.h"
#include "PlainText.h"
#include "Spacing.h"

#include <QPainter>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace {

constexpr int gap = 12;
constexpr int ring = 2;

QSize trackSize()
{
    return {Type::scaled(40), Type::scaled(24)};
}

} // namespace

Switch::Switch(const QString& label, QWidget* parent)
    : QCheckBox(parent), track_(new QWidget(this)), label_(label)
{
    auto text = label;
    setText(text.replace(u'&', u"&&"_s));
    setAccessibleName(label);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Minimum);
    // The focus ring goes around the track alone; this stands where the track is drawn.
    track_->setAttribute(Qt::WA_TransparentForMouseEvents);
    FocusRing::attach(this, trackSize().height() / 2, track_);
    connect(this, &QCheckBox::toggled, this, &Switch::valueChanged);
}

void Switch::setLabelVisible(bool visible)
{
    labelVisible_ = visible;
    setSizePolicy(QSizePolicy::Maximum, visible ? QSizePolicy::Minimum : QSizePolicy::Fixed);
    updateGeometry();
    update();
}

QSize Switch::sizeHint() const
{
    const int label = labelVisible_ ? gap + PlainText::width(label_, Type::label) : 0;
    return {trackSize().width() + label, labelVisible_ ? Height::control() : trackSize().height()};
}

int Switch::heightForWidth(int width) const
{
    return qMax(Height::control(), labelLines(width).height());
}

PlainText::Paragraph Switch::labelLines(int width) const
{
    return {label_, Type::label, qMax(0, width - trackSize().width() - gap)};
}

QSize Switch::minimumSizeHint() const
{
    return trackSize();
}

void Switch::resizeEvent(QResizeEvent* event)
{
    QCheckBox::resizeEvent(event);
    const auto size = trackSize();
    const QRect track(0, (height() - size.height()) / 2, size.width(), size.height());
    track_->setGeometry(QStyle::visualRect(layoutDirection(), rect(), track));
}

void Switch::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QRectF track = track_->geometry();
    paintTrack(painter, track);
    if (!labelVisible_)
        return;
    const PlainText::Paragraph lines = labelLines(width());
    const auto label = QStyle::visualRect(layoutDirection(), rect(),
        QRect(trackSize().width() + gap, (height() - lines.height()) / 2, width() - trackSize().width() - gap,
            lines.height()));
    lines.draw(painter, label, Palette::color(isEnabled() ? Brand::ink : Brand::muted));
}

void Switch::paintTrack(QPainter& painter, const QRectF& track) const
{
    const bool hovered = isEnabled() && underMouse();
    const auto radius = track.height() / 2;
    const auto knob = [&](int size, const QColor& color) {
        QRectF circle(0, 0, Type::scaled(size), Type::scaled(size));
        const bool right = isChecked() != isRightToLeft();
        circle.moveCenter({right ? track.right() - radius : track.left() + radius, track.center().y()});
        Paint::roundedRect(painter, circle, circle.height() / 2, color);
    };
    if (isChecked()) {
        const auto fill = isEnabled() ? Palette::mix(Brand::blue, Brand::navy, hovered ? 0.14 : 0)
                                      : Palette::color(Brand::line);
        Paint::roundedRect(painter, track, radius, fill);
        knob(16, Palette::color(Brand::card));
    } else {
        const auto color = Palette::color(!isEnabled() ? Brand::line : hovered ? Brand::steel : Brand::muted);
        Paint::roundedRect(painter, track, radius, Palette::color(Brand::card), color, ring);
        knob(12, color);
    }
}
