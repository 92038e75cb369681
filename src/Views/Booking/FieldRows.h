#pragma once

#include "Components/ComboBox.h"

class QHBoxLayout;
class Switch;
class TextField;

/// Fields that appear more than once in the booking form, and how they stand in rows.
namespace FieldRows {

TextField* name();
TextField* email();
TextField* phone();
/// A switch as high as a field.
Switch* switchRow(const QString& label);

/// Two fields side by side that share the width three to two.
QHBoxLayout* threeToTwo(QWidget* first, QWidget* second);

/// Options whose values are their texts.
QList<ComboBox::Option> options(const QList<QString>& texts);

} // namespace FieldRows
