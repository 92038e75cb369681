#include "Sessions/SessionSummaryCard.h"

#include "Components/PlainLabel.h"
#include "Components/SoftDivider.h"
#include "Components/StatusPill.h"
#include "Components/SymbolLine.h"
#include "Layouts.h"
#include "Screen/SessionRow.h"

#include <QGridLayout>

using namespace Qt::StringLiterals;

SessionSummaryCard::SessionSummaryCard(const SessionSummary& session, QWidget* parent)
    : Card(Spacing::card, parent)
{
    addHeading(session);
    add(new SoftDivider, 16);
    addFacts(session);
}

void SessionSummaryCard::addHeading(const SessionSummary& session)
{
    auto* reference = new PlainLabel(session.reference(), Type::small, Brand::steel);
    reference->setFit(PlainLabel::Fit::elide);
    auto* names = new PlainLabel(sessionRow(session, {}).title, Type::heading);
    auto* row = Layouts::row(12);
    row->addLayout(Layouts::column(0, {reference, names}), 1);
    row->addWidget(new StatusPill(session.status()), 0, Qt::AlignTop);
    add(row);
}

void SessionSummaryCard::addFacts(const SessionSummary& session)
{
    constexpr int perRow = 2;
    struct Fact
    {
        QString icon;
        QString text;
    };
    const SessionPeople people = sessionPeople(session);
    const QString notary = session.raw.string(u"assigned_notary_name"_s);
    QList<Fact> facts{
        {u"calendar"_s, session.displayDateTime()},
        {u"doc.text.fill"_s, session.raw.string(u"document_type"_s, u"Remote notary session"_s)},
        {u"person.fill"_s, people.client},
        {u"envelope.fill"_s, people.email},
        {u"checkmark.seal.fill"_s, notary.isEmpty() ? QString() : u"Assigned Notary: "_s + notary},
    };
    facts.removeIf([](const Fact& fact) { return fact.text.isEmpty(); });

    auto* grid = new QGridLayout;
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(Spacing::fieldsAcross);
    grid->setVerticalSpacing(12);
    for (int place = 0; place < int(facts.size()); ++place) {
        auto* line = new SymbolLine(facts.at(place).icon, facts.at(place).text);
        grid->addWidget(line, place / perRow, place % perRow);
    }
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    add(grid, 16);
}
