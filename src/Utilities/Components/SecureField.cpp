#include "SecureField.h"

#include <QLineEdit>

SecureField::SecureField(const QString& caption, const QString& placeholder, QWidget* parent)
    : TextField(caption, placeholder, parent)
{
    lineEdit()->setEchoMode(QLineEdit::Password);
    lineEdit()->setInputMethodHints(
        Qt::ImhHiddenText | Qt::ImhNoPredictiveText | Qt::ImhNoAutoUppercase | Qt::ImhSensitiveData);
}
