#include "StatusPill.h"

#include "Paint.h"
#include "Palette.h"
#include "PlainText.h"
#include "Spacing.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

constexpr int padding = 10;

void drawPill(QPainter& painter, const QRectF& box, const QString& text)
{
    Paint::roundedRect(painter, box, box.height() / 2, Palette::color(Brand::blue, Brand::pillOpacity));
    PlainText::draw(painter, box.adjusted(padding, 0, -padding, 0), text, Type::group,
        Palette::color(Brand::blue), Qt::AlignCenter);
}

} // namespace

StatusPill::StatusPill(const QString& status, QWidget* parent)
    : PlainLabel({}, Type::group, Brand::blue, parent)
{
    setFit(Fit::elide);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    setStatus(status);
}

void StatusPill::setStatus(const QString& status)
{
    setText(wording(status));
}

QString StatusPill::wording(const QString& status)
{
    auto words = status.isEmpty() ? u"requested"_s : status;
    bool atStart = true;
    for (auto& character : words) {
        if (atStart)
            character = character.toUpper();
        else
            character = character.toLower();
        atStart = !character.isLetterOrNumber() && character != u'\'';
    }
    return words;
}

QRectF StatusPill::draw(QPainter& painter, const QPointF& topRight, const QString& status, int width)
{
    const auto text = wording(status);
    const int needed = qMin(PlainText::width(text, Type::group) + 2 * padding, width);
    const QRectF box(topRight.x() - needed, topRight.y(), needed, Height::pill());
    drawPill(painter, box, text);
    return box;
}

QSize StatusPill::sizeHint() const
{
    return {PlainText::width(text(), Type::group) + 2 * padding, Height::pill()};
}

void StatusPill::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    drawPill(painter, rect(), text());
}
