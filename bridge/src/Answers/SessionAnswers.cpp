#include "Answers/SessionAnswers.h"

#include "Answers/Loose.h"

namespace bridge {

using Json = nlohmann::json;

static void addSigners(Json& answer, Variant variant, const std::vector<Signer>& signers)
{
    if (variant == Variant::Plain) {
        answer["signer_names"] = listOf(signers, [](const Signer& signer) { return signer.name; });
    } else if (variant == Variant::Aliases && signers.size() == 1) {
        answer["signer_name"] = signers.front().name;
    } else {
        // Names go by two keys within one list.
        bool isEven = true;
        answer["signers"] = listOf(signers, [&isEven](const Signer& signer) {
            const char* key = isEven ? "name" : "full_name";
            isEven = !isEven;
            return Json{{key, signer.name}, {"email", signer.email}, {"phone", signer.phone},
                {"id_type", signer.idType}, {"id_expiration", signer.idExpiration}};
        });
    }
}

Json sessionAnswer(const Session& session)
{
    const Variant variant = variantOf(session.id);
    const auto text = [variant](const std::string& value) { return looseText(variant, value); };
    const auto flag = [variant](bool value) { return looseFlag(variant, value); };

    Json answer;
    answer[variant == Variant::Texts ? "session_id" : "id"] = looseNumber(variant, session.id);
    answer["reference_id"] = session.referenceId;
    // A session that is only requested may as well say nothing.
    answer["status"] = session.status == "requested" ? text({}) : Json(session.status);
    if (variant == Variant::Plain)
        answer["status"] = session.status;

    answer["contact_name"] = session.contactName;
    answer["contact_email"] = session.contactEmail;
    answer["contact_phone"] = text(session.contactPhone);
    if (session.businessId != 0) {
        answer["client_name"] = text(session.clientName);
        answer["client_email"] = text(session.clientEmail);
        answer["client_phone"] = text(session.clientPhone);
    }
    answer["user_full_name"] = text(session.ownerName);
    answer["user_email"] = text(session.ownerEmail);

    answer["preferred_date"] = text(session.preferredDate);
    answer["preferred_time"] = text(session.preferredTime);
    answer["scheduled_date"] = text(session.scheduledDate);
    answer["scheduled_time"] = text(session.scheduledTime);
    answer["appointment_asap"] = flag(session.asap);
    answer["timezone"] = text(session.timezone);

    answer["document_type"] = text(session.documentType);
    answer["document_retrieval_option"] = text(session.retrievalOption);
    answer["notary_act_unknown"] = flag(session.actUnknown);
    answer["notary_act_count"] = session.actUnknown ? text({}) : looseNumber(variant, session.actCount);
    answer["remote_signing_details"] = session.details;
    answer["notes"] = text(session.notes);
    answer["requires_witness"] = flag(session.requiresWitness);
    answer["witness_name"] = text(session.witnessName);
    answer["needs_apostille"] = flag(session.needsApostille);
    answer["booking_source"] = text(session.bookingSource);
    addSigners(answer, variant, session.signers);
    answer["signer_count"] = looseNumber(variant, static_cast<long long>(session.signers.size()));

    answer["assigned_notary_id"] = looseId(variant, session.notaryId);
    answer["assigned_notary_name"] = text(session.notaryName);
    answer["proposed_fee"] = text(session.proposedFee);
    // The note of the office goes by two keys.
    answer["status_note"] = variant == Variant::Aliases ? Json() : text(session.statusNote);
    if (variant == Variant::Aliases)
        answer["admin_notes"] = text(session.statusNote);
    answer["created_at"] = shownMoment(session.createdAt);
    answer["updated_at"] = changeMoment(session.updatedAt);
    return answer;
}

Json wrappedSession(const Session& session)
{
    switch (variantOf(session.id)) {
    case Variant::Plain:
        return {{"data", sessionAnswer(session)}};
    case Variant::Texts:
        return {{"data", nullptr}, {"session", sessionAnswer(session)}};
    case Variant::Aliases:
        return sessionAnswer(session);
    }
    return {};
}

Json createdAnswer(const Session& session)
{
    switch (session.id % 4) {
    case 0:
        return {{"session", {{"id", session.id}, {"reference_id", session.referenceId}}},
            {"reference_id", session.referenceId}};
    case 1:
        return {{"session_id", std::to_string(session.id)}, {"reference_id", session.referenceId}};
    case 2:
        return {{"data",
            {{"remote_notary_session_id", session.id}, {"id", nullptr},
                {"reference_id", session.referenceId}}}};
    default:
        return {{"reference_id", session.referenceId}, {"message", "Your request was received."}};
    }
}

Json messageAnswer(const Message& message)
{
    const Variant variant = variantOf(message.id);
    const bool isAliased = variant == Variant::Aliases;
    return {{"id", looseNumber(variant, message.id)},
        {isAliased ? "role" : "sender_type", message.senderType},
        {isAliased ? "name" : "sender_name", message.senderName},
        {isAliased ? "email" : "sender_email", message.senderEmail}, {"message", message.text},
        {"created_at", shownMoment(message.createdAt)}};
}

std::string addressOf(const Upload& upload, const std::string& origin, Moment now)
{
    return origin + "/files/" + std::to_string(upload.id) + "?key=" + addressKey(upload, now);
}

Json uploadAnswer(const Upload& upload, const std::string& address)
{
    const Variant variant = variantOf(upload.id);
    const bool isPdf = upload.mimeType == "application/pdf";
    const bool isAliased = variant == Variant::Aliases;

    Json answer;
    answer[variant == Variant::Texts ? "upload_id" : "id"] = looseNumber(variant, upload.id);
    answer[isAliased ? "file_name" : "original_filename"] = upload.originalName;
    answer[isAliased ? "label" : "document_name"] = looseText(variant, upload.label);
    answer["category"] = upload.category;
    answer["mime_type"] = upload.mimeType;
    answer["file_size"] = looseNumber(variant, upload.byteSize);
    answer["sha256"] = upload.sha256;
    answer["uploaded_by_name"] = upload.uploadedBy;
    answer[isPdf ? "pdf_url" : isAliased ? "download_url" : "file_url"] = looseText(variant, address);
    answer["created_at"] = shownMoment(upload.createdAt);
    return answer;
}

} // namespace bridge
