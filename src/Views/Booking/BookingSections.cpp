#include "Booking/BookingSections.h"

#include "Accessibility.h"
#include "Bindings.h"
#include "Booking/FieldRows.h"
#include "Components/Card.h"
#include "Components/ComboBox.h"
#include "Components/OptionCard.h"
#include "Components/SectionTitle.h"
#include "Components/StackingRow.h"
#include "Components/Switch.h"
#include "Components/TextEditor.h"
#include "Components/TextField.h"
#include "Layouts.h"

using namespace Qt::StringLiterals;

static constexpr int detailsHeight = 108;
static constexpr int notesHeight = 72;
static constexpr int betweenOptions = 8;

Card* BookingSections::contact(BookRemoteNotaryModel& model, Fields& fields)
{
    auto* title = new SectionTitle({}, u"Use the primary signer or client contact for scheduling updates."_s);
    auto* name = FieldRows::name();
    auto* email = FieldRows::email();
    auto* phone = FieldRows::phone();
    auto* card = new Card({title, name});
    card->add(FieldRows::threeToTwo(email, phone), Spacing::fieldsDown);

    fields[BookRemoteNotaryModel::Field::contactName] = name;
    fields[BookRemoteNotaryModel::Field::contactEmail] = email;
    card->setFocusProxy(name);
    Accessibility::setRole(card, QAccessible::Grouping);
    const auto showHeading = [card, title, &model] {
        title->setText(model.contactHeading());
        card->setAccessibleName(model.contactHeading());
    };
    AuthManager& auth = model.context().auth;
    follow(title, auth.activeRole, [showHeading](AppRole) { showHeading(); });
    follow(title, auth.user, [showHeading](const std::optional<AuthUser>&) { showHeading(); });
    bind(name, model.contactName);
    bind(email, model.contactEmail);
    bind(phone, model.contactPhone);
    return card;
}

static OptionCard* billingCard(
    BookRemoteNotaryModel& model, const BookRemoteNotaryModel::BillingOption& option)
{
    auto* card = new OptionCard(option.label, option.description);
    const QString value = option.value;
    follow(card, model.documentRetrievalOption,
        [card, value](const QString& chosen) { card->setChecked(chosen == value); });
    QObject::connect(card, &OptionCard::toggled, card, [&model, value](bool on) {
        if (on)
            model.documentRetrievalOption = value;
    });
    return card;
}

Card* BookingSections::billing(BookRemoteNotaryModel& model)
{
    const QString heading = u"Billing / Document Retrieval"_s;
    auto* cards = Layouts::column(betweenOptions);
    auto* group = Layouts::holding(cards);
    Accessibility::setRole(group, QAccessible::Grouping);
    group->setAccessibleName(heading);
    for (const BookRemoteNotaryModel::BillingOption& option : BookRemoteNotaryModel::billingOptions())
        cards->addWidget(billingCard(model, option));
    return new Card({new SectionTitle(heading), group});
}

Card* BookingSections::document(BookRemoteNotaryModel& model, Fields& fields)
{
    auto* type = new ComboBox(FieldRows::options(BookRemoteNotaryModel::documentTypes()));
    auto* details = new TextEditor(u"What needs to be notarized?"_s, {}, detailsHeight);
    bind(type, model.documentType);
    bind(details, model.details);
    fields[BookRemoteNotaryModel::Field::details] = details;
    return new Card({new SectionTitle(u"Document Details"_s,
                         u"Tell us what needs to be notarized before the session is reviewed."_s),
        new LabeledField(u"Document Type"_s, type), details});
}

Card* BookingSections::extras(BookRemoteNotaryModel& model)
{
    auto* witness = new Switch(u"Witness Required"_s);
    auto* apostille = new Switch(u"Apostille Needed"_s);
    auto* notes = new TextEditor(u"Additional Notes"_s, {}, notesHeight);
    bind(witness, model.witnessRequired);
    bind(apostille, model.apostilleNeeded);
    bind(notes, model.notes);

    auto* switches = Layouts::row(Spacing::fieldsAcross);
    switches->addWidget(witness, 1, Qt::AlignLeading);
    switches->addWidget(apostille, 1, Qt::AlignLeading);
    auto* card = new Card;
    card->add(switches);
    card->add(notes, Spacing::fieldsDown);
    return card;
}
