#include "AlertPresenter.h"

#include "Bindings.h"
#include "Components/AlertDialog.h"

void presentAlerts(
    QWidget* screen, QProperty<std::optional<AlertMessage>>& alert, std::function<void()> dismissed)
{
    auto show = [screen, &alert, dismissed = std::move(dismissed)](const std::optional<AlertMessage>& now) {
        if (!now)
            return;
        const AlertDialog* dialog = AlertDialog::present(screen, now->title, now->message);
        QObject::connect(dialog, &QDialog::finished, screen, [&alert, shown = *now, dismissed] {
            // A newer alert still waits to be read.
            if (alert.value() == shown)
                dismissed();
        });
    };
    follow(screen, alert, std::move(show));
}
