#include "BrandStyle.h"

#include "Accessibility.h"
#include "FaultMark.h"
#include "MenuPainting.h"
#include "Paint.h"
#include "Palette.h"
#include "RoundedPopup.h"
#include "Spacing.h"

#include <QApplication>
#include <QComboBox>
#include <QFocusFrame>
#include <QFontInfo>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOption>
#include <QToolTip>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int scrollBarExtent = 12;
constexpr int scrollThumb = 6;
constexpr int scrollThumbActive = 8;
constexpr int shortestThumb = 32;

QRect scrollThumbRect(const QStyleOptionSlider& bar)
{
    const bool upright = bar.orientation == Qt::Vertical;
    const int room = (upright ? bar.rect.height() : bar.rect.width()) - 2 * (scrollThumb / 2);
    const qint64 range = qint64(bar.maximum) - bar.minimum;
    const qint64 whole = range + bar.pageStep;
    int length = whole > 0 ? int(qint64(room) * bar.pageStep / whole) : room;
    length = qBound(qMin(shortestThumb, room), length, room);
    const int start = scrollThumb / 2
        + QStyle::sliderPositionFromValue(
            bar.minimum, bar.maximum, bar.sliderPosition, room - length, bar.upsideDown);
    return upright ? QRect(bar.rect.left(), bar.rect.top() + start, bar.rect.width(), length)
                   : QRect(bar.rect.left() + start, bar.rect.top(), length, bar.rect.height());
}

/// Wider where the pointer is, so that it is easier to take hold of.
void drawScrollBar(QPainter& painter, const QStyleOptionSlider& bar)
{
    if (bar.minimum >= bar.maximum)
        return;
    QRectF thumb = scrollThumbRect(bar);
    const bool active = bar.state & QStyle::State_Enabled
        && (bar.state & QStyle::State_MouseOver || bar.activeSubControls & QStyle::SC_ScrollBarSlider);
    const qreal width = active ? scrollThumbActive : scrollThumb;
    const qreal margin = (scrollBarExtent - width) / 2;
    thumb = bar.orientation == Qt::Vertical ? thumb.adjusted(margin, 0, -margin, 0)
                                            : thumb.adjusted(0, margin, 0, -margin);
    Paint::roundedRect(painter, thumb, width / 2, Palette::color(active ? Brand::muted : Brand::fieldBorder));
}

QRect scrollBarPart(const QStyleOptionSlider& bar, QStyle::SubControl part)
{
    const auto thumb = scrollThumbRect(bar);
    const bool upright = bar.orientation == Qt::Vertical;
    auto before = bar.rect;
    auto after = bar.rect;
    if (upright) {
        before.setBottom(thumb.top() - 1);
        after.setTop(thumb.bottom() + 1);
    } else {
        before.setRight(thumb.left() - 1);
        after.setLeft(thumb.right() + 1);
    }
    switch (part) {
    case QStyle::SC_ScrollBarSlider:
        return thumb;
    case QStyle::SC_ScrollBarGroove:
        return bar.rect;
    case QStyle::SC_ScrollBarSubPage:
        return before;
    case QStyle::SC_ScrollBarAddPage:
        return after;
    default:
        return {};
    }
}

/// Those of all styles in the scheme as it is.
QList<QFont> fonts()
{
    QList<QFont> fonts;
    for (const Type::Style& style : {Type::fee, Type::display, Type::title, Type::heading, Type::sub,
             Type::body, Type::strong, Type::label, Type::small, Type::caption, Type::group})
        fonts += Type::font(style);
    return fonts;
}

bool areAlike(const QFont& a, const QFont& b)
{
    return a.families() == b.families() && a.weight() == b.weight() && a.pixelSize() == b.pixelSize();
}

/// Lets widgets that hold on to the font of a style hold on to the one that it has now. Whatever is painted
/// asks anew by itself.
void exchangeFonts(const QList<QFont>& before)
{
    const QList<QFont> after = fonts();
    QApplication::setFont(Type::font(Type::body));
    QToolTip::setFont(Type::font(Type::small));
    const auto widgets = QApplication::allWidgets();
    for (auto* widget : widgets) {
        const auto held = std::ranges::find_if(
            before, [widget](const QFont& font) { return areAlike(font, widget->font()); });
        if (widget->testAttribute(Qt::WA_SetFont) && held != before.end())
            widget->setFont(after.at(held - before.begin()));
        widget->updateGeometry();
    }
}

/// The popup that holds a picker's list.
bool isListOfPicker(const QWidget* widget)
{
    return widget && widget->inherits("QComboBoxPrivateContainer");
}

} // namespace

BrandStyle::BrandStyle() : QProxyStyle(u"Fusion"_s) { }

BrandStyle* BrandStyle::install(bool isDark)
{
    Type::followDesktop(QFontInfo(QApplication::font()).pixelSize());
    Palette::setDark(isDark);
    Accessibility::install();
    auto* style = new BrandStyle;
    QApplication::setStyle(style);
    QApplication::setPalette(style->standardPalette());
    QApplication::setFont(Type::font(Type::body));
    QToolTip::setFont(Type::font(Type::small));
    return style;
}

bool BrandStyle::isDark() const
{
    return Palette::isDark();
}

void BrandStyle::setDark(bool isDark)
{
    if (isDark == Palette::isDark())
        return;
    const QList<QFont> before = fonts();
    Palette::setDark(isDark);
    exchangeFonts(before);
    recolour();
}

void BrandStyle::setHighContrast(bool isHigh)
{
    if (isHigh == Palette::hasHighContrast())
        return;
    Palette::setHighContrast(isHigh);
    recolour();
}

void BrandStyle::recolour()
{
    const auto palette = standardPalette();
    QApplication::setPalette(palette);
    QToolTip::setPalette(palette);
    const auto widgets = QApplication::allWidgets();
    for (auto* widget : widgets)
        widget->update();
    emit schemeChanged();
}

QPalette BrandStyle::standardPalette() const
{
    return Palette::applicationPalette();
}

void BrandStyle::polish(QWidget* widget)
{
    QProxyStyle::polish(widget);
    if (qobject_cast<QLineEdit*>(widget) || qobject_cast<QScrollBar*>(widget))
        widget->setAttribute(Qt::WA_Hover);
    if (qobject_cast<QMenu*>(widget)) {
        widget->setWindowFlag(Qt::FramelessWindowHint);
        widget->setWindowFlag(Qt::NoDropShadowWindowHint);
        RoundedPopup::prepare(widget, Radius::menu);
    } else if (widget->inherits("QTipLabel"))
        RoundedPopup::prepare(widget, Radius::menuItem);
    else if (qobject_cast<QMenuBar*>(widget))
        widget->setFont(Type::font(Type::label));
}

int BrandStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    switch (metric) {
    case PM_FocusFrameHMargin:
    case PM_FocusFrameVMargin:
        // Only a focus frame asks without naming a widget.
        if (!widget || qobject_cast<const QFocusFrame*>(widget))
            return 4;
        break;
    case PM_DefaultFrameWidth:
        if (isListOfPicker(widget))
            return MenuPainting::inset;
        break;
    case PM_ScrollBarExtent:
    case PM_ScrollView_ScrollBarOverlap:
        return scrollBarExtent;
    case PM_ScrollBarSliderMin:
        return shortestThumb;
    case PM_ScrollView_ScrollBarSpacing:
    case PM_MenuPanelWidth:
    case PM_MenuBarPanelWidth:
    case PM_MenuBarVMargin:
    case PM_MenuBarItemSpacing:
        return 0;
    case PM_MenuHMargin:
    case PM_MenuVMargin:
        return MenuPainting::inset;
    case PM_MenuBarHMargin:
        return 10;
    case PM_SmallIconSize:
        return IconSize::sidebar();
    case PM_ToolTipLabelFrameWidth:
        return 6;
    default:
        break;
    }
    return QProxyStyle::pixelMetric(metric, option, widget);
}

int BrandStyle::styleHint(
    StyleHint hint, const QStyleOption* option, const QWidget* widget, QStyleHintReturn* returnData) const
{
    switch (hint) {
    case SH_FocusFrame_AboveWidget:
        return 1;
    case SH_FocusFrame_Mask:
    case SH_ToolTip_Mask:
    case SH_Menu_Mask:
    case SH_ComboBox_Popup:
    case SH_EtchDisabledText:
    case SH_DitherDisabledText:
    case SH_UnderlineShortcut:
        return 0;
    case SH_ToolTipLabel_Opacity:
        return 255;
    case SH_LineEdit_PasswordCharacter:
        return char16_t(u'•');
    default:
        return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
}

void BrandStyle::drawPrimitive(
    PrimitiveElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const
{
    switch (element) {
    case PE_PanelLineEdit:
        if (const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
            frame && frame->lineWidth > 0)
            Paint::field(*painter, option->rect,
                {bool(option->state & State_Enabled), bool(option->state & State_MouseOver),
                    option->state & State_HasFocus || FaultMark::isOn(widget)});
        return;
    case PE_FrameLineEdit:
    case PE_FrameFocusRect:
    case PE_FrameMenu:
    case PE_PanelMenuBar:
    case PE_PanelScrollAreaCorner:
    case PE_PanelStatusBar:
        return;
    case PE_PanelMenu:
        MenuPainting::panel(*painter, option->rect);
        return;
    case PE_PanelTipLabel:
        Paint::roundedRect(*painter, option->rect, Radius::menuItem, Palette::color(Brand::card),
            Palette::color(Brand::fieldBorder));
        return;
    default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void BrandStyle::drawControl(
    ControlElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const
{
    const auto* menuItem = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (element == CE_MenuItem && menuItem)
        MenuPainting::item(*painter, *menuItem);
    else if (element == CE_MenuBarItem && menuItem)
        MenuPainting::barItem(*painter, *menuItem);
    else if (element == CE_MenuBarEmptyArea)
        painter->fillRect(option->rect, Palette::color(Brand::panel));
    else if (element != CE_MenuEmptyArea)
        QProxyStyle::drawControl(element, option, painter, widget);
}

void BrandStyle::drawComplexControl(
    ComplexControl control, const QStyleOptionComplex* option, QPainter* painter, const QWidget* widget) const
{
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control == CC_ScrollBar && slider)
        drawScrollBar(*painter, *slider);
    else
        QProxyStyle::drawComplexControl(control, option, painter, widget);
}

QSize BrandStyle::sizeFromContents(
    ContentsType type, const QStyleOption* option, const QSize& size, const QWidget* widget) const
{
    const auto* menuItem = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (type == CT_MenuItem && menuItem)
        return MenuPainting::itemSize(*menuItem, size);
    if (type == CT_MenuBarItem)
        return MenuPainting::barItemSize(size);
    if (type == CT_MenuBar)
        return {size.width(), Height::compact()};
    return QProxyStyle::sizeFromContents(type, option, size, widget);
}

QRect BrandStyle::subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const
{
    const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
    // QLineEdit adds 2 pixels of its own on either side.
    constexpr int padding = Spacing::fieldPadding + 1 - 2;
    if (element == SE_LineEditContents && frame && frame->lineWidth > 0)
        return option->rect.adjusted(padding, 1, -padding, -1);
    return QProxyStyle::subElementRect(element, option, widget);
}

QRect BrandStyle::subControlRect(
    ComplexControl control, const QStyleOptionComplex* option, SubControl part, const QWidget* widget) const
{
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control == CC_ScrollBar && slider)
        return scrollBarPart(*slider, part);
    if (control == CC_SpinBox) {
        if (const auto* arranged = dynamic_cast<const SpinBoxArrangement*>(widget))
            return arranged->partRect(part);
    }
    return QProxyStyle::subControlRect(control, option, part, widget);
}
