#include "DateField.h"

DateField::DateField(QWidget* parent) : DateEditor(Kind::date, parent)
{
    connect(this, &QDateTimeEdit::dateChanged, this, &DateField::valueChanged);
}
