#include "AlertDialog.h"

#include "Accessibility.h"
#include "Layouts.h"
#include "Palette.h"
#include "PlainLabel.h"
#include "PrimaryButton.h"
#include "ScrollPage.h"
#include "Spacing.h"
#include "Surface.h"

#include <QApplication>
#include <QPainter>
#include <QPointer>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int cardWidth = 400;
constexpr int padding = 24;
constexpr int narrowestButton = 88;
/// Room left around a card that fills the window.
constexpr int roomAround = 20;

} // namespace

AlertDialog* AlertDialog::present(QWidget* widget, const QString& title, const QString& message)
{
    auto* window = widget->window();
    auto* dialog = window->findChild<AlertDialog*>({}, Qt::FindDirectChildrenOnly);
    if (!dialog || dialog->isHidden())
        dialog = new AlertDialog(window);
    dialog->setTexts(title, message);
    dialog->open();
    dialog->raise();
    dialog->ok_->setFocus(Qt::OtherFocusReason);
    QAccessibleEvent announcement(dialog, QAccessible::Alert);
    QAccessible::updateAccessibility(&announcement);
    return dialog;
}

AlertDialog::AlertDialog(QWidget* window)
    : QDialog(window), card_(new Surface(Surface::Kind::alert, padding, this)),
      title_(new PlainLabel({}, Type::heading)), message_(new PlainLabel({}, Type::body, Brand::steel)),
      messageArea_(new ScrollPage(message_)), ok_(new PrimaryButton(u"OK"_s))
{
    setWindowFlags(Qt::Widget);
    setAttribute(Qt::WA_Moved);
    Accessibility::setRole(this, QAccessible::AlertMessage);
    messageArea_->setFocusPolicy(Qt::NoFocus);
    ok_->setDefault(true);
    ok_->setMinimumWidth(Type::scaled(narrowestButton));
    card_->add(title_);
    card_->add(messageArea_, 8);
    auto* buttons = Layouts::row(0);
    buttons->addStretch();
    buttons->addWidget(ok_);
    card_->add(buttons, 20);

    connect(ok_, &Button::clicked, this, &QDialog::accept);
    connect(this, &QDialog::finished, this, &QObject::deleteLater);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { keepFocus(now); });
    if (const QPointer before = window->focusWidget())
        connect(this, &QDialog::finished, this, [before] {
            if (before)
                before->setFocus(Qt::OtherFocusReason);
        });
    window->installEventFilter(this);
    setGeometry(window->rect());
}

AlertDialog::~AlertDialog()
{
    // The focus moves once more while the widgets inside are taken down.
    disconnect(qApp, nullptr, this, nullptr);
}

void AlertDialog::setTexts(const QString& title, const QString& message)
{
    setAccessibleName(title);
    setAccessibleDescription(message);
    title_->setText(title);
    message_->setText(message);
    placeCard();
}

void AlertDialog::placeCard()
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

void AlertDialog::keepFocus(QWidget* now)
{
    const bool elsewhereInWindow = now && now->window() == window() && !isAncestorOf(now);
    if (elsewhereInWindow && isVisible())
        ok_->setFocus(Qt::OtherFocusReason);
}

bool AlertDialog::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        // The window's shortcuts are out of reach while the alert is open.
        event->accept();
        return true;
    }
    return QDialog::event(event);
}

bool AlertDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == parentWidget() && event->type() == QEvent::Resize)
        setGeometry(parentWidget()->rect());
    return QDialog::eventFilter(watched, event);
}

bool AlertDialog::focusNextPrevChild(bool)
{
    ok_->setFocus(Qt::TabFocusReason);
    return true;
}

void AlertDialog::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), Palette::scrim());
}

void AlertDialog::resizeEvent(QResizeEvent* event)
{
    QDialog::resizeEvent(event);
    placeCard();
}
