#include "Sessions/SessionSummaryCard.h"

#include "Accessibility.h"
#include "Components/PlainLabel.h"
#include "Components/SecondaryButton.h"
#include "Components/SoftDivider.h"
#include "Components/StatusPill.h"
#include "Components/SymbolLine.h"
#include "Layouts.h"
#include "Screen/SessionRow.h"

#include <QGridLayout>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

static constexpr int betweenFacts = 12;
static constexpr int besideFact = 16;

SessionSummaryCard::SessionSummaryCard(QWidget* parent)
    : Card(Spacing::card, parent), reference_(new PlainLabel({}, Type::small, Brand::steel)),
      names_(new PlainLabel({}, Type::heading)), status_(new StatusPill), facts_(new QGridLayout),
      notary_(new SymbolLine(u"checkmark.seal.fill"_s, {})), cancel_(new SecondaryButton(u"Cancel Session"_s))
{
    Accessibility::setRole(this, QAccessible::Grouping);
    setAccessibleName(u"Session"_s);
    reference_->setFit(PlainLabel::Fit::elide);
    auto* heading = Layouts::row(12);
    heading->addLayout(Layouts::column(0, {reference_, names_}), 1);
    heading->addWidget(status_, 0, Qt::AlignTop);
    add(heading);
    add(new SoftDivider, 16);

    facts_->setContentsMargins(0, 0, 0, 0);
    facts_->setHorizontalSpacing(besideFact);
    facts_->setVerticalSpacing(betweenFacts);

    cancel_->setButtonSize(Button::Size::small);
    auto* row = Layouts::row(Spacing::fieldsAcross);
    row->addWidget(notary_, 1);
    row->addStretch();
    row->addWidget(cancel_);
    lastRow_ = Layouts::holding(row);
    auto* rows = Layouts::column(betweenFacts);
    rows->addLayout(facts_);
    rows->addWidget(lastRow_);
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
    // Both columns share the room in the ratio of what they need, so that an address is cut off last.
    constexpr int perRow = 2;
    std::array<int, perRow> needed{1, 1};
    for (int place = 0; place < int(facts.size()); ++place) {
        auto* line = new SymbolLine(facts.at(place).icon, facts.at(place).text);
        const int column = place % perRow;
        facts_->addWidget(line, place / perRow, column);
        int& width = needed.at(size_t(column));
        width = std::max(width, line->sizeHint().width());
        facts_->setColumnStretch(column, width);
    }

    const QString notary = session.raw.string(u"assigned_notary_name"_s);
    notary_->setText(u"Assigned Notary: "_s + notary);
    notary_->setVisible(!notary.isEmpty());
    cancel_->setVisible(session.canCancel());
    lastRow_->setVisible(!notary.isEmpty() || session.canCancel());
}
