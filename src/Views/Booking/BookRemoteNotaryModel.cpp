#include "Booking/BookRemoteNotaryModel.h"

#include "EmailAddress.h"
#include "Screen/NewYorkTime.h"

#include <algorithm>

using namespace Qt::StringLiterals;

static constexpr auto rush = "priority"_L1;

BookRemoteNotaryModel::BookRemoteNotaryModel(const ScreenContext& context)
    : UploadsModel(context), prefills_(epoch()), submissions_(epoch())
{
    resetForm();
}

const QList<BookRemoteNotaryModel::BillingOption>& BookRemoteNotaryModel::billingOptions()
{
    static const QList<BillingOption> options{
        {u"no_rush"_s, u"No-Rush Document Retrieval"_s,
            u"No-Rush Document Retrieval: $15+ for each notarial act. Document retrieval may be delayed."_s},
        {rush, u"Priority Document Retrieval (Rush)"_s,
            u"Priority Document Retrieval: $25 initial signature + $8 each additional signature."_s},
    };
    return options;
}

const QList<QString>& BookRemoteNotaryModel::documentTypes()
{
    static const QList<QString> types{
        u"Acknowledgment"_s,
        u"Jurat / Affidavit"_s,
        u"Oath / Affirmation"_s,
        u"Power of Attorney"_s,
        u"Real Estate Document"_s,
        u"Loan / Closing Document"_s,
        u"Settlement / Litigation Document"_s,
        u"Translation Affidavit"_s,
        u"Passport / Travel Consent"_s,
        u"Other"_s,
    };
    return types;
}

const QList<QString>& BookRemoteNotaryModel::idTypeOptions()
{
    static const QList<QString> options{
        u"NY Driver License"_s,
        u"Out-of-State Driver License"_s,
        u"Passport"_s,
        u"State ID"_s,
        u"Other Government ID"_s,
    };
    return options;
}

bool BookRemoteNotaryModel::isBusiness() const
{
    return context().auth.role() == AppRole::business;
}

QString BookRemoteNotaryModel::heroSubtitle() const
{
    return isBusiness() ? u"Schedule a remote notarization for a client with signer details, billing option, "
                          "and preferred time."_s
                        : u"Request a remote online notarization with signer details, billing option, and "
                          "preferred time."_s;
}

QString BookRemoteNotaryModel::contactHeading() const
{
    return isBusiness() ? u"Client Information"_s : u"Contact Information"_s;
}

double BookRemoteNotaryModel::estimatedRetrievalFee() const
{
    const int count = std::max(actCount.value(), leastSignatures);
    return documentRetrievalOption.value() == rush ? 25.0 + 8.0 * (count - 1) : 15.0 * count;
}

QString BookRemoteNotaryModel::feeText() const
{
    return u'$' + QString::number(estimatedRetrievalFee(), 'f', 2);
}

QString BookRemoteNotaryModel::feeCaption() const
{
    return documentRetrievalOption.value() == rush ? u"Rush estimate based on the number of signatures."_s
                                                   : u"No-rush estimate based on the number of signatures."_s;
}

QString BookRemoteNotaryModel::signatureCountText() const
{
    return u"Number of Signatures: "_s
        + (actUnknown.value() ? u"Unknown"_s : QString::number(actCount.value()));
}

QString BookRemoteNotaryModel::newYorkTimeText() const
{
    return NewYorkTime::besideLocal(scheduledDate.value());
}

void BookRemoteNotaryModel::editSigner(qsizetype index, const std::function<void(SignerDraft&)>& edit)
{
    edit(signers_[index]);
}

void BookRemoteNotaryModel::addSigner()
{
    if (signers_.size() >= mostSigners)
        return;
    SignerDraft signer;
    signer.idExpirationDate = context().now();
    signers_ += signer;
    emit signerCountChanged();
}

void BookRemoteNotaryModel::removeSigner()
{
    if (signers_.size() <= 1)
        return;
    signers_.removeLast();
    emit signerCountChanged();
}

void BookRemoteNotaryModel::resetForm()
{
    // What is still under way belongs to the form as it was.
    prefills_.next();
    submissions_.next();
    contactName = QString();
    contactEmail = QString();
    contactPhone = QString();
    asap = false;
    scheduledDate = context().now();
    documentRetrievalOption = billingOptions().constFirst().value;
    documentType = documentTypes().constFirst();
    actCount = leastSignatures;
    actUnknown = false;
    details = QString();
    witnessRequired = false;
    apostilleNeeded = false;
    notes = QString();
    isSubmitting = false;
    alert = std::nullopt;
    fault_.reset();
    loadedProfile_ = false;
    isDropTarget = false;
    uploadProgressText = QString();
    uploadProgress = 0;
    booked_.reset();
    clearUploads();
    signers_.clear();
    addSigner();
    // Last, because the form shows itself again as soon as the message is gone.
    successMessage = std::nullopt;
}

void BookRemoteNotaryModel::validate() const
{
    constexpr qint64 toleratedSecondsPast = 60;
    if (contactName.value().trimmed().isEmpty())
        throw Fault(Field::contactName, u"Enter the contact name."_s);
    if (!isValidEmail(contactEmail.value()))
        throw Fault(Field::contactEmail, u"Enter a valid contact email."_s);
    if (!asap.value() && scheduledDate.value() < context().now().addSecs(-toleratedSecondsPast))
        throw Fault(Field::scheduledDate, u"Choose a future date and time."_s);
    if (details.value().trimmed().isEmpty())
        throw Fault(Field::details, u"Describe what needs to be notarized."_s);
    for (qsizetype index = 0; index < signers_.size(); ++index) {
        const SignerDraft& signer = signers_.at(index);
        if (signer.name.trimmed().isEmpty())
            throw Fault(Field::signerName, u"Enter each signer name."_s, index);
        if (signer.idType.trimmed().isEmpty())
            throw Fault(Field::signerIdType, u"Select each signer ID type."_s, index);
    }
}

void BookRemoteNotaryModel::viewSessions()
{
    router().open(AppSection::sessions);
}

void BookRemoteNotaryModel::bookAnother()
{
    resetForm();
    loadedProfile_ = true;
}

QCoro::Task<> BookRemoteNotaryModel::prefill()
{
    const auto self = keep(this);
    if (std::exchange(loadedProfile_, true))
        co_return;
    const std::optional<AuthUser> user = auth().user.value();
    if (!user)
        co_return;
    contactEmail = user->email;
    contactName = auth().displayName();
    signers_.first().email = user->email;
    signers_.first().name = contactName.value();
    emit signerChanged(0);
    const Turn turn = prefills_.next();
    try {
        const JSONObject answer = co_await api(turn).getProfile(user->idToken, std::nullopt);
        if (!turn.isOver())
            prefillFrom(answer, *user);
    } catch (const AppError& error) {
        if (!turn.isOver() && isSessionExpired(error))
            auth().signOut();
    }
}

void BookRemoteNotaryModel::prefillFrom(const JSONObject& answer, const AuthUser& user)
{
    const JSONObject profile = answer.object(u"user"_s).value_or(answer);
    if (contactName.value().isEmpty())
        contactName = profile.string(u"full_name"_s, profile.string(u"name"_s));
    if (contactPhone.value().isEmpty())
        contactPhone = profile.string(u"phone"_s);
    if (contactEmail.value().isEmpty())
        contactEmail = profile.string(u"email"_s, user.email);
    SignerDraft& signer = signers_.first();
    if (signer.name.isEmpty())
        signer.name = contactName.value();
    if (signer.email.isEmpty())
        signer.email = contactEmail.value();
    if (signer.phone.isEmpty())
        signer.phone = contactPhone.value();
    emit signerChanged(0);
}
