#include "AlertPresenter.h"

#include "Bindings.h"
#include "Components/AlertDialog.h"

void presentAlerts(
    QWidget* screen, QProperty<std::optional<AlertMessage>>& alert, std::function<void()> dismissed)
{
    follow(screen, alert, [screen, dismissed = std::move(dismissed)](const std::optional<AlertMessage>& now) {
        if (!now)
            return;
        AlertDialog* dialog = AlertDialog::present(screen, now->title, now->message);
        // A dialog that is open already takes the new texts; it still is one dialog to dismiss.
        QObject::connect(dialog, &QDialog::finished, screen, dismissed);
    });
}
