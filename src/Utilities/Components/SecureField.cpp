#include "SecureField.h"

#include "AccessibleEvents.h"

#include <QLineEdit>

SecureField::SecureField(const QString& caption, const QString& placeholder, QWidget* parent)
    : TextField(caption, placeholder, parent)
{
    lineEdit()->setEchoMode(QLineEdit::Password);
    AccessibleEvents::conceal(lineEdit());
    lineEdit()->setInputMethodHints(
        Qt::ImhHiddenText | Qt::ImhNoPredictiveText | Qt::ImhNoAutoUppercase | Qt::ImhSensitiveData);
}
