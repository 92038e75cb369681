#pragma once

#include "Components/ComboBox.h"

class StackingRow;
class TextField;

/// Fields that appear more than once in the booking form, and how they stand in rows.
namespace FieldRows {

TextField* name();
TextField* email();
TextField* phone();

/// Two fields side by side that share the width three to two; one below the other where large text leaves too
/// little room for a telephone number.
StackingRow* threeToTwo(QWidget* first, QWidget* second);

/// Options whose values are their texts.
QList<ComboBox::Option> options(const QList<QString>& texts);

} // namespace FieldRows
