#include "Operations/Booking.h"

#include "Http/Problem.h"

namespace bridge {

static constexpr std::size_t mostSigners = 20;

// The lists are preferred; a client that only sends signer_name_1, signer_name_2 and so on is understood too.
static std::vector<std::string> signerTexts(const Fields& fields, const std::string& what)
{
    if (std::vector<std::string> list = fields.texts("signer_" + what + "s"); !list.empty())
        return list;
    std::vector<std::string> numbered;
    for (std::size_t i = 1; fields.has("signer_name_" + std::to_string(i)) && i <= mostSigners + 1; ++i)
        numbered.push_back(fields.text("signer_" + what + '_' + std::to_string(i)));
    return numbered;
}

static std::vector<Signer> readSigners(const Fields& fields)
{
    const std::vector<std::string> names = signerTexts(fields, "name");
    const std::vector<std::string> emails = signerTexts(fields, "email");
    const std::vector<std::string> phones = signerTexts(fields, "phone");
    const std::vector<std::string> idTypes = signerTexts(fields, "id_type");
    const std::vector<std::string> expirations = signerTexts(fields, "id_expiration");
    const auto at = [](const std::vector<std::string>& list, std::size_t i) {
        return i < list.size() ? list[i] : std::string();
    };
    std::vector<Signer> signers;
    for (std::size_t i = 0; i < names.size(); ++i)
        signers.push_back({names[i], at(emails, i), at(phones, i), at(idTypes, i), at(expirations, i)});
    return signers;
}

static void validate(const Session& session)
{
    if (session.contactName.empty())
        throw invalidField("contact_name", "Enter the contact name.");
    if (!isEmailAddress(session.contactEmail))
        throw invalidField("contact_email", "Enter a valid contact email.");
    if (session.details.empty())
        throw invalidField("remote_signing_details", "Describe what needs to be notarized.");
    if (!session.asap && session.preferredDate.empty())
        throw invalidField("preferred_date", "Choose a preferred date.");
    if (session.signers.empty() || session.signers.size() > mostSigners)
        throw invalidField("signer_names", "Enter between 1 and 20 signers.");
    for (const Signer& signer : session.signers) {
        if (signer.name.empty())
            throw invalidField("signer_names", "Enter each signer name.");
    }
    if (!session.actUnknown && (session.actCount < 1 || session.actCount > 25))
        throw invalidField("notary_act_count", "Choose between 1 and 25 signatures.");
}

Session readBooking(const Fields& fields, const std::string& requestJson, const Account& account)
{
    Session session;
    session.ownerId = account.id;
    session.contactName = fields.text("contact_name");
    session.contactEmail = fields.text("contact_email");
    session.contactPhone = fields.text("contact_phone");
    session.asap = fields.flag("appointment_asap");
    session.retrievalOption = fields.text("document_retrieval_option");
    session.documentType = fields.text("document_type");
    session.actUnknown = fields.flag("notary_act_unknown");
    session.actCount = session.actUnknown ? 0 : fields.number("notary_act_count").value_or(0);
    session.details = fields.text("remote_signing_details", Fields::longText);
    session.signers = readSigners(fields);
    session.requiresWitness = fields.flag("requires_witness");
    session.needsApostille = fields.flag("needs_apostille");
    session.notes = fields.text("notes", Fields::longText);
    session.preferredDate = fields.text("preferred_date");
    session.preferredTime = fields.text("preferred_time");
    session.timezone = fields.text("timezone");
    session.bookingSource = fields.text("booking_source");
    session.requestJson = requestJson;
    if (fields.flag("scheduled_by_business")) {
        if (!account.isBusiness())
            throw forbidden();
        session.businessId = account.businessId;
        session.clientName = fields.text("client_name");
        session.clientEmail = fields.text("client_email");
        session.clientPhone = fields.text("client_phone");
    }
    validate(session);
    return session;
}

} // namespace bridge
