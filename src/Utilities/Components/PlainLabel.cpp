#include "PlainLabel.h"

#include "Palette.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace {

/// A label that may wrap asks for no more than this, and takes what it is given.
constexpr int widestHint = 560;
constexpr int narrowestHint = 40;

} // namespace

PlainLabel::PlainLabel(const QString& text, const Type::Style& style, Brand::Tone tone, QWidget* parent)
    : QLabel(parent), style_(style), tone_(tone)
{
    setTextFormat(Qt::PlainText);
    setFont(Type::font(style));
    setFit(Fit::wrap);
    setText(text);
}

void PlainLabel::setText(const QString& text)
{
    if (text == this->text())
        return;
    QLabel::setText(text);
    textChanged();
}

void PlainLabel::setTextStyle(const Type::Style& style)
{
    style_ = style;
    setFont(Type::font(style));
    textChanged();
}

void PlainLabel::textChanged()
{
    laid_ = {};
    updateGeometry();
    update();
}

void PlainLabel::setTone(Brand::Tone tone)
{
    tone_ = tone;
    update();
}

void PlainLabel::setFit(Fit fit)
{
    fit_ = fit;
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    if (fit == Fit::wrap)
        policy.setVerticalPolicy(QSizePolicy::Preferred);
    policy.setHeightForWidth(fit == Fit::wrap);
    setSizePolicy(policy);
    updateGeometry();
}

void PlainLabel::setMutedWhenDisabled(bool muted)
{
    mutedWhenDisabled_ = muted;
    update();
}

QSize PlainLabel::sizeHint() const
{
    if (fit_ == Fit::elide)
        return {PlainText::width(text(), style_), Type::lineHeight(style_)};
    const int width = qMin(unbroken().width(), Type::scaled(widestHint));
    return {width, heightForWidth(width)};
}

QSize PlainLabel::minimumSizeHint() const
{
    const int width = qMin(sizeHint().width(), Type::scaled(narrowestHint));
    return {width, Type::lineHeight(style_)};
}

int PlainLabel::heightForWidth(int width) const
{
    if (fit_ == Fit::elide)
        return Type::lineHeight(style_);
    // Most texts fit, and then every width comes to the same.
    if (width >= unbroken().width())
        return unbroken().height();
    const auto known = laid().heights.constFind(width);
    if (known != laid_.heights.constEnd())
        return *known;
    const int height = PlainText::Paragraph(text(), style_, width).height();
    // A window that is being resized asks for ever new widths.
    constexpr int mostHeights = 32;
    if (laid_.heights.size() >= mostHeights)
        laid_.heights.clear();
    laid_.heights.insert(width, height);
    return height;
}

/// What was worked out holds for as long as the type keeps its size.
PlainLabel::Laid& PlainLabel::laid() const
{
    if (laid_.factor != Type::factor()) {
        laid_ = {};
        laid_.factor = Type::factor();
    }
    return laid_;
}

QSize PlainLabel::unbroken() const
{
    QSize& size = laid().unbroken;
    if (!size.isValid()) {
        const PlainText::Paragraph paragraph(text(), style_, -1);
        size = {paragraph.width(), paragraph.height()};
    }
    return size;
}

const PlainText::Paragraph& PlainLabel::painted() const
{
    Laid& known = laid();
    if (!known.painted || known.paintedWidth != width()) {
        const int even = PlainText::evenWidth(text(), style_, width());
        known.painted = std::make_unique<PlainText::Paragraph>(text(), style_, even);
        known.paintedWidth = width();
    }
    return *known.painted;
}

bool PlainLabel::event(QEvent* event)
{
    if (event->type() == QEvent::FontChange || event->type() == QEvent::ApplicationFontChange)
        laid_ = {};
    if (event->type() == QEvent::ToolTip && fit_ == Fit::elide && toolTip().isEmpty()) {
        if (PlainText::width(text(), style_) > width()) {
            QToolTip::showText(
                static_cast<QHelpEvent*>(event)->globalPos(), PlainText::toolTip(text()), this);
            return true;
        }
    }
    return QLabel::event(event);
}

void PlainLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const auto color = Palette::color(isEnabled() || !mutedWhenDisabled_ ? tone_ : Brand::muted);
    if (fit_ == Fit::elide)
        return PlainText::draw(painter, rect(), text(), style_, color, alignment());
    const PlainText::Paragraph& paragraph = painted();
    QRectF box = rect();
    const int above = (height() - paragraph.height()) / 2;
    if (alignment() & Qt::AlignVCenter && above > 0)
        box.setTop(above);
    paragraph.draw(painter, box, color, alignment());
}
