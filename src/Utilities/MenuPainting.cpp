#include "MenuPainting.h"

#include "Paint.h"
#include "Palette.h"
#include "PlainText.h"
#include "Spacing.h"
#include "Symbols.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace MenuPainting {
namespace {

constexpr int padding = 10;
constexpr int iconGap = 12;
constexpr int shortcutGap = 40;
constexpr int separatorHeight = 13;
constexpr int aboveFirstText = 6;
constexpr int belowOtherText = 4;

/// The text without the marks of mnemonics.
QString withoutMarks(const QString& text)
{
    QString result;
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (text[at] == u'&' && ++at >= text.size())
            break;
        result += text[at];
    }
    return result;
}

bool hasIconColumn(const QStyleOptionMenuItem& option)
{
    return option.maxIconWidth > 0 || option.menuHasCheckableItems;
}

/// Says something, for instance who is signed in, and does nothing.
bool isText(const QStyleOptionMenuItem& option)
{
    return option.menuItemType == QStyleOptionMenuItem::Normal && !(option.state & QStyle::State_Enabled)
        && option.icon.isNull();
}

/// The first line of what is said stands out from the others by its font.
const Type::Style& textStyle(const QStyleOptionMenuItem& option)
{
    return option.font.weight() >= Type::strong.weight ? Type::strong : Type::small;
}

bool isFirstText(const QStyleOptionMenuItem& option)
{
    return textStyle(option) == Type::strong;
}

QSize sizeOfText(const QStyleOptionMenuItem& option)
{
    const Type::Style& style = textStyle(option);
    return {2 * padding + PlainText::width(withoutMarks(option.text), style),
        Type::lineHeight(style) + (isFirstText(option) ? aboveFirstText : belowOtherText)};
}

void text(QPainter& painter, const QStyleOptionMenuItem& option)
{
    const bool first = isFirstText(option);
    const QRect line
        = option.rect.adjusted(padding, first ? aboveFirstText : 0, -padding, first ? 0 : -belowOtherText);
    PlainText::draw(painter, line, withoutMarks(option.text), textStyle(option),
        Palette::color(first ? Brand::ink : Brand::steel));
}

/// What an item is called.
/// \param mark  whether the letter that chooses it is underlined: Qt::TextShowMnemonic or
/// Qt::TextHideMnemonic
void title(QPainter& painter, const QRect& box, const QString& text, const Type::Style& style,
    const QColor& color, Qt::Alignment alignment, Qt::TextFlag mark)
{
    painter.setFont(Type::font(style));
    painter.setPen(color);
    painter.drawText(box, static_cast<int>(alignment) | Qt::TextSingleLine | mark, text);
}

QColor textColor(const QStyleOptionMenuItem& option, bool highlighted)
{
    if (!(option.state & QStyle::State_Enabled))
        return Palette::color(Brand::muted);
    return Palette::color(highlighted ? Brand::navy : Brand::ink);
}

void separator(QPainter& painter, const QRect& area)
{
    painter.fillRect(area.left() + 4, area.center().y(), area.width() - 8, 1, Palette::color(Brand::line));
}

void paintSubmenuMark(QPainter& painter, const QStyleOptionMenuItem& option)
{
    constexpr int edge = 12;
    const QRect last(option.rect.right() + 1 - padding - edge, option.rect.top(), edge, option.rect.height());
    const bool mirrored = option.direction == Qt::RightToLeft;
    Symbols::paint(painter, QStyle::visualRect(option.direction, option.rect, last),
        mirrored ? u"chevron.left"_s : u"chevron.right"_s, Palette::color(Brand::muted));
}

} // namespace

void panel(QPainter& painter, const QRect& area)
{
    Paint::roundedRect(
        painter, area, Radius::menu, Palette::color(Brand::card), Palette::color(Brand::fieldBorder));
}

void item(QPainter& painter, const QStyleOptionMenuItem& option)
{
    if (option.menuItemType == QStyleOptionMenuItem::Separator)
        return separator(painter, option.rect);
    if (isText(option))
        return text(painter, option);
    const bool highlighted = option.state & QStyle::State_Selected && option.state & QStyle::State_Enabled;
    if (highlighted)
        Paint::roundedRect(painter, option.rect, Radius::menuItem, Palette::color(Brand::paleBlue));
    QRect line = option.rect.adjusted(padding, 0, -padding, 0);
    if (hasIconColumn(option)) {
        const int edge = IconSize::sidebar();
        const QRect first(line.left(), line.top() + (line.height() - edge) / 2, edge, edge);
        const QRect iconBox = QStyle::visualRect(option.direction, option.rect, first);
        if (option.checked)
            Symbols::paint(painter, QRectF(iconBox).adjusted(2, 2, -2, -2), u"checkmark"_s,
                textColor(option, highlighted));
        else
            option.icon.paint(&painter, iconBox, Qt::AlignCenter,
                !(option.state & QStyle::State_Enabled) ? QIcon::Disabled
                    : highlighted                       ? QIcon::Active
                                                        : QIcon::Normal);
        line.setLeft(first.right() + 1 + iconGap);
    }
    line = QStyle::visualRect(option.direction, option.rect, line);
    const auto parts = option.text.split(u'\t');
    title(painter, line, parts[0], Type::body, textColor(option, highlighted),
        QStyle::visualAlignment(option.direction, Qt::AlignLeft | Qt::AlignVCenter), Qt::TextShowMnemonic);
    if (parts.size() > 1)
        PlainText::draw(painter, line, parts[1], Type::small,
            Palette::color(option.state & QStyle::State_Enabled ? Brand::steel : Brand::muted),
            Qt::AlignTrailing | Qt::AlignVCenter);
    if (option.menuItemType == QStyleOptionMenuItem::SubMenu)
        paintSubmenuMark(painter, option);
}

QSize itemSize(const QStyleOptionMenuItem& option, const QSize& textSize)
{
    if (option.menuItemType == QStyleOptionMenuItem::Separator)
        return {textSize.width(), separatorHeight};
    if (isText(option))
        return sizeOfText(option);
    const auto parts = option.text.split(u'\t');
    int width = 2 * padding + PlainText::width(withoutMarks(parts[0]), Type::body);
    if (hasIconColumn(option))
        width += IconSize::sidebar() + iconGap;
    // The menu adds the width of the widest shortcut itself.
    if (parts.size() > 1)
        width += shortcutGap;
    if (option.menuItemType == QStyleOptionMenuItem::SubMenu)
        width += shortcutGap;
    return {width, Height::compact()};
}

void barItem(QPainter& painter, const QStyleOptionMenuItem& option)
{
    painter.fillRect(option.rect, Palette::color(Brand::panel));
    const bool highlighted = option.state & (QStyle::State_Selected | QStyle::State_Sunken);
    if (highlighted)
        Paint::roundedRect(
            painter, option.rect.adjusted(0, 4, 0, -4), Radius::menuItem, Palette::color(Brand::paleBlue));
    // The letter shows itself to whoever has come here by keyboard.
    title(painter, option.rect, option.text, Type::label, textColor(option, highlighted), Qt::AlignCenter,
        highlighted ? Qt::TextShowMnemonic : Qt::TextHideMnemonic);
}

QSize barItemSize(const QSize& textSize)
{
    return {textSize.width() + 2 * padding, Height::compact()};
}

} // namespace MenuPainting
