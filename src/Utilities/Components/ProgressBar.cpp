#include "ProgressBar.h"

#include "Paint.h"
#include "Palette.h"

#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace {

constexpr int thickness = 6;
/// Fine enough for any width on screen.
constexpr int steps = 1000;

} // namespace

ProgressBar::ProgressBar(const QString& label, QWidget* parent) : QProgressBar(parent)
{
    setAccessibleName(label);
    setRange(0, steps);
    setValue(0);
    setTextVisible(false);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void ProgressBar::setProgress(qint64 done, qint64 total)
{
    const double share = total > 0 ? double(done) / double(total) : 0;
    setValue(static_cast<int>(std::clamp(share, 0.0, 1.0) * steps));
}

QSize ProgressBar::sizeHint() const
{
    return {120, thickness};
}

void ProgressBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    Paint::roundedRect(painter, rect(), thickness / 2.0, Palette::color(Brand::line));
    if (value() <= 0)
        return;
    const int length = qMax(thickness, static_cast<int>(qint64(width()) * value() / steps));
    const QRect done(0, 0, length, height());
    Paint::roundedRect(painter, QStyle::visualRect(layoutDirection(), rect(), done), thickness / 2.0,
        Palette::color(Brand::blue));
}
