#include "Operations/Operations.h"

#include "Answers/SessionAnswers.h"
#include "Http/Problem.h"
#include "Operations/SessionRules.h"
#include "People/Notaries.h"

namespace bridge {

static void accept(Service& service, Call& call)
{
    const Session session = service.write(call, [&](soci::session& sql, const Account& notary) {
        if (!notary.isNotaryActive)
            throw refusal(409, "Your notary profile is not active.");
        const AcceptResult result = acceptSession(sql, notary, call.id(), service.now());
        if (result == AcceptResult::Taken)
            throw refusal(409, "Another notary has already accepted this call.");
        if (result == AcceptResult::NotOpen)
            throw refusal(409, "This call is no longer open.");
        if (result == AcceptResult::Absent)
            throw notFound();
        return visibleSession(sql, notary, call.id());
    });
    call.answer(wrappedSession(session));
}

// The date and the time come twice, as confirmed and as scheduled; the confirmed ones are what was typed.
static void readAppointment(const Fields& fields, Session& session)
{
    fields.take({"status"}, session.status);
    session.status = lowerCased(session.status);
    if (!isStatus(session.status))
        throw invalidField("status", "That status is not known.");
    fields.take({"confirmed_date", "scheduled_date"}, session.scheduledDate);
    fields.take({"confirmed_time", "scheduled_time"}, session.scheduledTime);
    fields.take({"proposed_fee"}, session.proposedFee);
    fields.take({"status_note"}, session.statusNote, Fields::longText);
}

static void updateByNotary(Service& service, Call& call)
{
    const Fields fields = call.json();
    const Session updated = service.write(call, [&](soci::session& sql, const Account& self) {
        Session session = visibleSession(sql, self, call.id());
        if (session.notaryId != self.notaryId)
            throw forbidden();
        readAppointment(fields, session);
        if (fields.has("requires_witness"))
            session.requiresWitness = fields.flag("requires_witness");
        fields.take({"witness_name"}, session.witnessName);
        updateSession(sql, session, self.id, service.now());
        return visibleSession(sql, self, call.id());
    });
    call.answer(wrappedSession(updated));
}

static void assign(Service& service, Call& call)
{
    const Fields fields = call.json();
    const Session updated = service.write(call, [&](soci::session& sql, const Account& self) {
        Session session = visibleSession(sql, self, call.id());
        readAppointment(fields, session);
        if (fields.has("assigned_notary_id")) {
            const Id notary = fields.number("assigned_notary_id").value_or(0);
            if (!findNotary(sql, notary))
                throw invalidField("assigned_notary_id", "Choose a notary from the list.");
            session.notaryId = notary;
        }
        updateSession(sql, session, self.id, service.now());
        return visibleSession(sql, self, call.id());
    });
    call.answer(wrappedSession(updated));
}

Routes assignmentRoutes()
{
    static const Route routes[] = {
        {"POST", bridgeBase + "/notary/open-calls/{id}/accept", Access::Notary, accept},
        {"POST", bridgeBase + "/notary/remote-notary/sessions/{id}/status", Access::Notary, updateByNotary},
        {"POST", bridgeBase + "/admin/remote-notary/sessions/{id}/assign", Access::Admin, assign},
    };
    return routes;
}

} // namespace bridge
