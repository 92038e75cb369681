#pragma once

#include "Bindings.h"
#include "Components/SecureField.h"

#include <QLineEdit>

/// Fields of the administration's edit panes, bound to what they edit, which must outlive them.
namespace AdminFields {

inline TextField* text(const QString& caption, QProperty<QString>& property)
{
    auto* field = new TextField(caption);
    bind(field, property);
    return field;
}

/// A new password for somebody else, which no keyring should offer to remember or fill in.
inline SecureField* newPassword(QProperty<QString>& property)
{
    auto* field = new SecureField(QStringLiteral("New Password"));
    bind(field, property);
    return field;
}

} // namespace AdminFields
