#include "AlertDialog.h"

#include "PrimaryButton.h"

#include <algorithm>

using namespace Qt::StringLiterals;

AlertDialog* AlertDialog::present(QWidget* widget, const QString& title, const QString& message)
{
    const QList<AlertDialog*> before = undismissed(widget->window());
    const auto same = std::find_if(before.begin(), before.end(),
        [&](const AlertDialog* alert) { return alert->title() == title && alert->message() == message; });
    if (same != before.end()) {
        (*same)->screens_ += widget;
        return *same;
    }
    auto* dialog = new AlertDialog(widget->window());
    dialog->setTexts(title, message);
    dialog->screens_ += widget;
    if (before.isEmpty())
        dialog->OverlayDialog::present(dialog->ok_);
    return dialog;
}

AlertDialog::AlertDialog(QWidget* window) : OverlayDialog(window), ok_(new PrimaryButton(u"OK"_s))
{
    ok_->setDefault(true);
    addButtons({ok_});
    connect(ok_, &Button::clicked, this, &QDialog::accept);
    connect(this, &QDialog::finished, this, &AlertDialog::openNext);
}

/// The open one first, then those that wait, in the order in which they came.
QList<AlertDialog*> AlertDialog::undismissed(const QWidget* window)
{
    auto alerts = window->findChildren<AlertDialog*>(QString(), Qt::FindDirectChildrenOnly);
    // Raising a window's child puts it last among its siblings.
    std::stable_partition(
        alerts.begin(), alerts.end(), [](const AlertDialog* alert) { return alert->isVisible(); });
    alerts.removeIf([](const AlertDialog* alert) { return alert->isDismissed_; });
    return alerts;
}

bool AlertDialog::isWanted() const
{
    return std::any_of(
        screens_.begin(), screens_.end(), [](const QPointer<QWidget>& screen) { return !screen.isNull(); });
}

void AlertDialog::openNext()
{
    isDismissed_ = true;
    for (AlertDialog* next : undismissed(parentWidget())) {
        if (next->isWanted()) {
            next->OverlayDialog::present(next->ok_);
            return;
        }
        next->isDismissed_ = true;
        next->deleteLater();
    }
}
