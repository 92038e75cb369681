#include "OptionCard.h"

#include "FocusRing.h"
#include "Paint.h"
#include "Palette.h"
#include "PlainText.h"
#include "Spacing.h"

#include <QPainter>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace {

constexpr int across = 17;
constexpr int down = 13;
constexpr int gap = 12;

int radioEdge()
{
    return Type::scaled(18);
}

int textLeft()
{
    return across + radioEdge() + gap;
}

void paintRadio(QPainter& painter, const QRectF& circle, bool checked, bool enabled)
{
    const auto color = Palette::color(!enabled ? Brand::line : checked ? Brand::blue : Brand::muted);
    const qreal ring = checked ? circle.width() * 5 / 18 : 2;
    Paint::roundedRect(painter, circle, circle.width() / 2, Palette::color(Brand::card), color, ring);
}

} // namespace

OptionCard::OptionCard(const QString& title, const QString& description, QWidget* parent)
    : QRadioButton(parent), title_(title), description_(description)
{
    auto text = title;
    setText(text.replace(u'&', u"&&"_s));
    setAccessibleName(title);
    setAccessibleDescription(description);
    setAttribute(Qt::WA_Hover);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    FocusRing::attach(this, Radius::block);
}

QSize OptionCard::sizeHint() const
{
    const int width = textLeft() + PlainText::width(title_, Type::strong) + across;
    return {width, heightForWidth(width)};
}

QSize OptionCard::minimumSizeHint() const
{
    return {textLeft() + Type::scaled(80) + across, Type::lineHeight(Type::strong) + 2 * down};
}

int OptionCard::heightForWidth(int width) const
{
    int height = Type::lineHeight(Type::strong) + 2 * down;
    if (!description_.isEmpty())
        height += PlainText::Paragraph(description_, Type::body, width - textLeft() - across).height();
    return height;
}

void OptionCard::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const bool hovered = isEnabled() && underMouse();
    if (isChecked())
        Paint::roundedRect(painter, rect(), Radius::block, Palette::color(Brand::softBlue),
            Palette::color(isEnabled() ? Brand::blue : Brand::line), 2);
    else
        Paint::roundedRect(painter, rect(), Radius::block,
            Palette::color(hovered || !isEnabled() ? Brand::panel : Brand::card),
            Palette::color(hovered ? Brand::muted
                    : isEnabled()  ? Brand::fieldBorder
                                   : Brand::line));

    const auto place
        = [this](const QRect& box) { return QStyle::visualRect(layoutDirection(), rect(), box); };
    const int line = Type::lineHeight(Type::strong);
    const int radio = radioEdge();
    paintRadio(
        painter, place(QRect(across, down + (line - radio) / 2, radio, radio)), isChecked(), isEnabled());

    const int textWidth = width() - textLeft() - across;
    PlainText::draw(painter, place(QRect(textLeft(), down, textWidth, line)), title_, Type::strong,
        Palette::color(isEnabled() ? Brand::ink : Brand::muted));
    if (!description_.isEmpty())
        PlainText::Paragraph(description_, Type::body, textWidth)
            .draw(painter, place(QRect(textLeft(), down + line, textWidth, height())),
                Palette::color(isEnabled() ? Brand::steel : Brand::muted));
}
