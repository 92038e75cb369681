#include "Booking/FieldRows.h"

#include "Components/StackingRow.h"
#include "Components/TextField.h"
#include "Spacing.h"

using namespace Qt::StringLiterals;

static constexpr int besideFrom = 320;

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

StackingRow* FieldRows::threeToTwo(QWidget* first, QWidget* second)
{
    auto* row = new StackingRow(Spacing::fieldsAcross, Spacing::fieldsDown);
    row->setStackedBelow(besideFrom);
    row->add(first, 3);
    row->add(second, 2);
    return row;
}

QList<ComboBox::Option> FieldRows::options(const QList<QString>& texts)
{
    QList<ComboBox::Option> options;
    for (const QString& text : texts)
        options.append({text, text});
    return options;
}
