#include "Sessions/SessionSummaryCard.h"

#include "Accessibility.h"
#include "Components/PlainLabel.h"
#include "Components/SecondaryButton.h"
#include "Components/SoftDivider.h"
#include "Components/StackingRow.h"
#include "Components/StatusPill.h"
#include "Components/SymbolLine.h"
#include "Layouts.h"
#include "Screen/SessionRow.h"

#include <QGridLayout>

using namespace Qt::StringLiterals;

static constexpr int betweenFacts = 12;
static constexpr int besideFact = 16;
static constexpr int rowsFrom = 240;
/// Half of it holds the longest word of a document's type.
static constexpr int twoColumnsFrom = 300;

SessionSummaryCard::SessionSummaryCard(QWidget* parent)
    : Card(Spacing::card, parent), reference_(new PlainLabel({}, Type::small, Brand::steel)),
      names_(new PlainLabel({}, Type::heading)), status_(new StatusPill), facts_(new QGridLayout),
      witness_(new SymbolLine(u"person.2.fill"_s, {})), notary_(new SymbolLine(u"checkmark.seal.fill"_s, {})),
      cancel_(new SecondaryButton(u"Cancel Session"_s))
{
    Accessibility::setRole(this, QAccessible::Grouping);
    setAccessibleName(u"Session"_s);
    reference_->setFit(PlainLabel::Fit::elide);
    auto* heading = new StackingRow(12);
    heading->setStackedBelow(rowsFrom);
    heading->add(Layouts::holding(Layouts::column(0, {reference_, names_})), 1);
    heading->add(status_, 0, Qt::AlignTop);
    add(heading);
    add(new SoftDivider, 16);

    facts_->setContentsMargins(0, 0, 0, 0);
    facts_->setVerticalSpacing(betweenFacts);

    cancel_->setButtonSize(Button::Size::small);
    auto* row = new StackingRow(Spacing::fieldsAcross);
    row->setStackedBelow(rowsFrom);
    row->add(notary_, 1, Qt::AlignVCenter);
    row->addStretch();
    row->add(cancel_);
    auto* rows = Layouts::column(betweenFacts);
    rows->addLayout(facts_);
    rows->addWidget(witness_);
    rows->addWidget(row);
    add(rows, 16);
}

void SessionSummaryCard::setSession(const SessionSummary& session)
{
    reference_->setText(session.reference());
    names_->setText(sessionRow(session, {}).title);
    status_->setStatus(session.status());

    struct Fact
    {
        QString icon;
        QString text;
    };
    const SessionPeople people = sessionPeople(session);
    QList<Fact> facts{
        {u"calendar"_s, session.displayDateTime()},
        {u"doc.text.fill"_s, session.raw.string(u"document_type"_s, u"Remote notary session"_s)},
        {u"person.fill"_s, people.client},
        {u"envelope.fill"_s, people.email},
    };
    facts.removeIf([](const Fact& fact) { return fact.text.isEmpty(); });
    Layouts::clear(facts_);
    lines_.clear();
    QStringList told;
    for (const Fact& fact : facts) {
        lines_ += new SymbolLine(fact.icon, fact.text);
        lines_.last()->setSpokenText(fact.text + u',');
        told += fact.text;
    }
    arrangeFacts();

    const QString witness = witnessLine(session);
    const QString notary = assignedNotaryLine(session);
    witness_->setText(witness);
    witness_->setSpokenText(witness + u',');
    notary_->setText(notary);
    told << witness << notary;
    setAccessibleDescription(told.join(u", "_s));
    cancel_->setVisible(session.canCancel());
}

void SessionSummaryCard::resizeEvent(QResizeEvent* event)
{
    Card::resizeEvent(event);
    arrangeFacts();
}

/// Two halves, so that the second column stands where it stood in the session before; where large text leaves
/// too little room for two, there is one.
void SessionSummaryCard::arrangeFacts()
{
    const int columns = width() < Type::scaled(twoColumnsFrom) ? 1 : 2;
    for (int place = 0; place < int(lines_.size()); ++place) {
        // What a line would like to have must not move the middle.
        lines_.at(place)->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        facts_->addWidget(lines_.at(place), place / columns, place % columns);
    }
    facts_->setColumnStretch(0, 1);
    facts_->setColumnStretch(1, columns - 1);
    facts_->setHorizontalSpacing(columns == 1 ? 0 : besideFact);
}
