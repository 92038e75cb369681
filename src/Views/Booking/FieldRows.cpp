#include "Booking/FieldRows.h"

#include "Components/Switch.h"
#include "Components/TextField.h"
#include "Layouts.h"
#include "Spacing.h"

using namespace Qt::StringLiterals;

TextField* FieldRows::name()
{
    return new TextField(u"Name"_s, u"Full name"_s);
}

TextField* FieldRows::email()
{
    return new TextField(u"Email"_s, u"name@example.com"_s);
}

TextField* FieldRows::phone()
{
    return new TextField(u"Phone"_s, u"(555) 010-0100"_s);
}

Switch* FieldRows::switchRow(const QString& label)
{
    auto* row = new Switch(label);
    row->setFixedHeight(Height::control());
    return row;
}

QHBoxLayout* FieldRows::threeToTwo(QWidget* first, QWidget* second)
{
    QHBoxLayout* row = Layouts::row(Spacing::fieldsAcross, {first, second});
    row->setStretch(0, 3);
    row->setStretch(1, 2);
    return row;
}

QList<ComboBox::Option> FieldRows::options(const QList<QString>& texts)
{
    QList<ComboBox::Option> options;
    for (const QString& text : texts)
        options.append({text, text});
    return options;
}
