#include "OverlayDialog.h"

#include "Accessibility.h"
#include "Button.h"
#include "Layouts.h"
#include "Palette.h"
#include "PlainLabel.h"
#include "ScrollPage.h"
#include "Spacing.h"
#include "Surface.h"

#include <QApplication>
#include <QPainter>
#include <QVBoxLayout>

namespace {

constexpr int cardWidth = 400;
constexpr int padding = 24;
constexpr int narrowestButton = 88;
/// Room left around a card that fills the window.
constexpr int roomAround = 20;

} // namespace

OverlayDialog::OverlayDialog(QWidget* window)
    : QDialog(window), card_(new Surface(Surface::Kind::alert, padding, this)),
      title_(new PlainLabel({}, Type::heading)), message_(new PlainLabel({}, Type::body, Brand::steel)),
      messageArea_(new ScrollPage(message_))
{
    setWindowFlags(Qt::Widget);
    setAttribute(Qt::WA_Moved);
    Accessibility::setRole(this, QAccessible::AlertMessage);
    messageArea_->setFocusPolicy(Qt::NoFocus);
    card_->add(title_);
    card_->add(messageArea_, 8);

    connect(this, &QDialog::finished, this, &QObject::deleteLater);
    connect(this, &QDialog::finished, this, &OverlayDialog::returnFocus);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { keepFocus(now); });
    window->installEventFilter(this);
    setGeometry(window->rect());
}

OverlayDialog::~OverlayDialog()
{
    // The focus moves once more while the widgets inside are taken down.
    disconnect(qApp, nullptr, this, nullptr);
}

void OverlayDialog::setTexts(const QString& title, const QString& message)
{
    setAccessibleName(title);
    setAccessibleDescription(message);
    title_->setText(title);
    message_->setText(message);
    placeCard();
}

void OverlayDialog::addButtons(const QList<Button*>& buttons)
{
    buttons_ = buttons;
    auto* row = Layouts::row(Spacing::buttons);
    row->addStretch();
    for (Button* button : buttons_) {
        button->setMinimumWidth(Type::scaled(narrowestButton));
        row->addWidget(button);
    }
    card_->add(row, 20);
}

void OverlayDialog::present(Button* focused)
{
    focused_ = focused;
    focusBefore_ = parentWidget()->focusWidget();
    open();
    raise();
    focused_->setFocus(Qt::OtherFocusReason);
    QAccessibleEvent announcement(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&announcement);
}

void OverlayDialog::placeCard()
{
    const int width = qMin(Type::scaled(cardWidth), this->width() - 2 * roomAround);
    const int inner = width - 2 * (padding + 1);
    const int needed = message_->heightForWidth(inner);
    messageArea_->setFixedHeight(needed);
    const int overflow = card_->heightForWidth(width) - (height() - 2 * roomAround);
    if (overflow > 0)
        messageArea_->setFixedHeight(qMax(Type::lineHeight(Type::body), needed - overflow));
    const int height = card_->heightForWidth(width);
    card_->setGeometry((this->width() - width) / 2, (this->height() - height) / 2, width, height);
}

/// Those of the window that can be seen, the topmost last.
QList<OverlayDialog*> OverlayDialog::openOverlays() const
{
    auto overlays = parentWidget()->findChildren<OverlayDialog*>(QString(), Qt::FindDirectChildrenOnly);
    overlays.removeIf([](const OverlayDialog* overlay) { return overlay->isHidden(); });
    return overlays;
}

void OverlayDialog::keepFocus(QWidget* now)
{
    const bool elsewhereInWindow = now && now->window() == window() && !isAncestorOf(now);
    if (elsewhereInWindow && isVisible() && openOverlays().constLast() == this)
        focused_->setFocus(Qt::OtherFocusReason);
}

/// Where another dialog lies above, the focus goes back once that one has closed as well.
void OverlayDialog::returnFocus()
{
    for (OverlayDialog* other : openOverlays()) {
        if (other->focusBefore_ && isAncestorOf(other->focusBefore_)) {
            other->focusBefore_ = focusBefore_;
            return;
        }
    }
    if (focusBefore_)
        focusBefore_->setFocus(Qt::OtherFocusReason);
}

bool OverlayDialog::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        // The window's shortcuts are out of reach while the dialog is open.
        event->accept();
        return true;
    }
    return QDialog::event(event);
}

bool OverlayDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == parentWidget() && event->type() == QEvent::Resize)
        setGeometry(parentWidget()->rect());
    return QDialog::eventFilter(watched, event);
}

bool OverlayDialog::focusNextPrevChild(bool next)
{
    const auto count = buttons_.size();
    qsizetype place = 0;
    while (place < count && !buttons_.at(place)->hasFocus())
        ++place;
    const auto following = (place + (next ? 1 : count - 1)) % count;
    buttons_.at(place == count ? 0 : following)->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

void OverlayDialog::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), Palette::scrim());
}

void OverlayDialog::resizeEvent(QResizeEvent* event)
{
    QDialog::resizeEvent(event);
    placeCard();
}
