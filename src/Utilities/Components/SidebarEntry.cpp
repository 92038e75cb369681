#include "SidebarEntry.h"

#include "Accessibility.h"
#include "Paint.h"
#include "Palette.h"
#include "PlainText.h"
#include "Spacing.h"
#include "Symbols.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>

namespace {

constexpr int padding = 10;
constexpr int gap = 12;
constexpr int focusEdge = 2;

} // namespace

SidebarEntry::SidebarEntry(const QString& title, const QString& systemImage, QWidget* parent)
    : QAbstractButton(parent), title_(title), symbol_(systemImage)
{
    Accessibility::setRole(this, QAccessible::ListItem);
    setAccessibleName(title);
    setCheckable(true);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void SidebarEntry::setFolded(bool folded)
{
    folded_ = folded;
    setToolTip(folded ? PlainText::toolTip(title_) : QString());
    updateGeometry();
    update();
}

QSize SidebarEntry::sizeHint() const
{
    if (folded_)
        return {Height::compact(), Height::compact()};
    return {
        2 * padding + IconSize::sidebar() + gap + PlainText::width(title_, Type::strong), Height::compact()};
}

void SidebarEntry::keyPressEvent(QKeyEvent* event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isReturn)
        QAbstractButton::keyPressEvent(event);
    else if (!event->isAutoRepeat())
        click();
}

void SidebarEntry::focusInEvent(QFocusEvent* event)
{
    const bool comesBack
        = event->reason() == Qt::ActiveWindowFocusReason || event->reason() == Qt::PopupFocusReason;
    if (!comesBack)
        keyboardFocus_ = event->reason() != Qt::MouseFocusReason;
    QAbstractButton::focusInEvent(event);
}

void SidebarEntry::checkStateSet()
{
    QAccessibleEvent event(this, isChecked() ? QAccessible::SelectionAdd : QAccessible::SelectionRemove);
    QAccessible::updateAccessibility(&event);
}

void SidebarEntry::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const bool hovered = underMouse() || isDown();
    const QColor fill = isChecked() ? Palette::color(Brand::paleBlue)
        : hovered                   ? Palette::color(Brand::softBlue)
                                    : QColor(Qt::transparent);
    // A pale fill alone says too little to people who asked for contrast.
    const bool isOutlined = (hasFocus() && keyboardFocus_) || (isChecked() && Palette::hasHighContrast());
    const QColor edge = isOutlined ? Palette::color(Brand::blue) : QColor();
    Paint::roundedRect(painter, rect(), Radius::control, fill, edge, focusEdge);

    const auto place
        = [this](const QRect& box) { return QStyle::visualRect(layoutDirection(), rect(), box); };
    const auto icon = IconSize::sidebar();
    const int before = folded_ ? (width() - icon) / 2 : padding;
    Symbols::paint(painter, place(QRect(before, (height() - icon) / 2, icon, icon)), symbol_,
        Palette::color(isChecked() ? Brand::blue : Brand::steel));
    if (folded_)
        return;
    const int left = padding + icon + gap;
    PlainText::draw(painter, place(QRect(left, 0, width() - left - padding, height())), title_,
        isChecked() ? Type::strong : Type::label, Palette::color(isChecked() ? Brand::navy : Brand::ink));
}
