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

/// The text without the marks of mnemonics.
QString spoken(const QString& text)
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
    const bool highlighted = option.state & QStyle::State_Selected && option.state & QStyle::State_Enabled;
    if (highlighted)
        Paint::roundedRect(painter, option.rect, Radius::menuItem, Palette::color(Brand::paleBlue));
    QRect line = option.rect.adjusted(padding, 0, -padding, 0);
    if (hasIconColumn(option)) {
        const QRect iconBox(line.left(), line.center().y() - IconSize::sidebar() / 2, IconSize::sidebar(),
            IconSize::sidebar());
        if (option.checked)
            Symbols::paint(painter, QRectF(iconBox).adjusted(2, 2, -2, -2), u"checkmark"_s,
                textColor(option, highlighted));
        else
            option.icon.paint(&painter, iconBox, Qt::AlignCenter,
                !(option.state & QStyle::State_Enabled) ? QIcon::Disabled
                    : highlighted                       ? QIcon::Active
                                                        : QIcon::Normal);
        line.setLeft(iconBox.right() + 1 + iconGap);
    }
    const auto parts = option.text.split(u'\t');
    PlainText::draw(painter, line, spoken(parts[0]), Type::body, textColor(option, highlighted));
    if (parts.size() > 1)
        PlainText::draw(painter, line, parts[1], Type::small,
            Palette::color(option.state & QStyle::State_Enabled ? Brand::steel : Brand::muted),
            Qt::AlignTrailing | Qt::AlignVCenter);
    if (option.menuItemType == QStyleOptionMenuItem::SubMenu)
        Symbols::paint(painter, QRectF(line.right() - 12, line.top(), 12, line.height()), u"chevron.right"_s,
            Palette::color(Brand::muted));
}

QSize itemSize(const QStyleOptionMenuItem& option, const QSize& textSize)
{
    if (option.menuItemType == QStyleOptionMenuItem::Separator)
        return {textSize.width(), separatorHeight};
    const auto parts = option.text.split(u'\t');
    int width = 2 * padding + PlainText::width(spoken(parts[0]), Type::body);
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
    PlainText::draw(painter, option.rect, spoken(option.text), Type::label, textColor(option, highlighted),
        Qt::AlignCenter);
}

QSize barItemSize(const QSize& textSize)
{
    return {textSize.width() + 2 * padding, Height::compact()};
}

} // namespace MenuPainting
