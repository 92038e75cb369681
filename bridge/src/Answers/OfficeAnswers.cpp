#include "Answers/OfficeAnswers.h"

#include "Answers/Loose.h"
#include "Answers/SessionAnswers.h"

namespace bridge {

using Json = nlohmann::json;

Json remoteRecordAnswer(const Session& session)
{
    Json answer = sessionAnswer(session);
    // In a record this key means its notes, not what the notary said about the status.
    answer.erase("admin_notes");
    switch (variantOf(session.id)) {
    case Variant::Plain:
        answer["record_type"] = "remote";
        answer["source"] = "remote_notary_sessions";
        break;
    case Variant::Texts:
        answer["type"] = "remote";
        answer["source"] = nullptr;
        break;
    case Variant::Aliases:
        // A record that says nothing is a session.
        answer.erase("id");
        answer["record_id"] = session.id;
        break;
    }
    return answer;
}

Json walkInAnswer(const WalkIn& record)
{
    const Variant variant = variantOf(record.id);
    const auto text = [variant](const std::string& value) { return looseText(variant, value); };
    const bool isAliased = variant == Variant::Aliases;

    Json answer;
    answer[isAliased ? "record_id" : "id"] = looseNumber(variant, record.id);
    answer[variant == Variant::Texts ? "type" : "record_type"] = "walkin";
    // Most are complete, and those need not say so.
    answer["status"]
        = variant != Variant::Plain && record.status == "complete" ? text({}) : Json(record.status);
    answer["source"] = text(record.source);
    answer[isAliased ? "name" : "contact_name"] = text(record.contactName);
    answer[isAliased ? "email" : "contact_email"] = text(record.contactEmail);
    answer[isAliased ? "phone" : "contact_phone"] = text(record.contactPhone);
    answer[isAliased ? "document_types" : "document_type"] = text(record.documentType);
    answer[isAliased ? "preferred_date" : "scheduled_date"] = text(record.scheduledDate);
    answer[isAliased ? "preferred_time" : "scheduled_time"] = text(record.scheduledTime);
    answer[isAliased ? "admin_notes" : "notes"] = text(record.notes);
    if (variant == Variant::Texts)
        answer["signers"] = listOf(record.signerNames, [](const std::string& name) {
            return Json{{"full_name", name}};
        });
    else
        answer["signer_names"] = record.signerNames;
    answer[isAliased ? "ny_datetime" : "created_at"] = shownMoment(record.createdAt);
    answer["updated_at"] = changeMoment(record.updatedAt);
    return answer;
}

Json notaryAnswer(const Notary& notary)
{
    const Variant variant = variantOf(notary.id);
    const auto text = [variant](const std::string& value) { return looseText(variant, value); };
    const bool isAliased = variant == Variant::Aliases;
    const bool isText = variant == Variant::Texts;

    Json answer;
    answer[isAliased ? "notary_id" : "id"] = looseNumber(variant, notary.id);
    answer["user_id"] = looseId(variant, notary.userId);
    answer[isText ? "full_name" : "name"] = notary.name;
    answer["email"] = text(notary.email);
    answer["phone"] = text(notary.phone);
    answer[isAliased ? "state" : "notarial_state"] = text(notary.state);
    answer["county"] = text(notary.county);
    answer[isText ? "notary_commission_number" : "commission_number"] = text(notary.commissionNumber);
    answer[isAliased ? "commission_expires_at" : "commission_expiration_date"]
        = text(notary.commissionExpiration);
    answer[isAliased ? "status" : "billing_status"] = text(notary.billingStatus);
    answer[isText ? "active" : "is_active"] = looseFlag(variant, notary.isActive);
    if (variant == Variant::Plain)
        answer["active"] = notary.isActive ? 1 : 0;
    return answer;
}

Json businessClientAnswer(const BusinessClient& client)
{
    const Variant variant = variantOf(client.id);
    const bool isAliased = variant == Variant::Aliases;
    Json answer{{"id", looseNumber(variant, client.id)}, {"phone", looseText(variant, client.phone)}};
    answer[isAliased ? "client_name" : variant == Variant::Texts ? "full_name" : "name"] = client.name;
    answer[isAliased ? "client_email" : "email"] = client.email;
    return answer;
}

} // namespace bridge
