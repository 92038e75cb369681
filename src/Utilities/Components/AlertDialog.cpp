#include "AlertDialog.h"

#include "PrimaryButton.h"

using namespace Qt::StringLiterals;

AlertDialog* AlertDialog::present(QWidget* widget, const QString& title, const QString& message)
{
    auto* window = widget->window();
    auto* dialog = window->findChild<AlertDialog*>({}, Qt::FindDirectChildrenOnly);
    if (!dialog || dialog->isHidden())
        dialog = new AlertDialog(window);
    dialog->setTexts(title, message);
    dialog->OverlayDialog::present(dialog->ok_);
    return dialog;
}

AlertDialog::AlertDialog(QWidget* window) : OverlayDialog(window), ok_(new PrimaryButton(u"OK"_s))
{
    ok_->setDefault(true);
    addButtons({ok_});
    connect(ok_, &Button::clicked, this, &QDialog::accept);
}
