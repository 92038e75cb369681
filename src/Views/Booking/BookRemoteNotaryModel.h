#pragma once

#include "AppError.h"
#include "SignerDraft.h"
#include "Uploads/UploadsModel.h"

/// The request form for a remote notary session: its fields, the fee estimate, the checks, and submitting it
/// together with the attached files. Outlives visits to other sections, so that nothing typed is lost.
class BookRemoteNotaryModel : public UploadsModel
{
    Q_OBJECT

public:
    explicit BookRemoteNotaryModel(const ScreenContext& context);

    static constexpr int leastSignatures = 1;
    static constexpr int mostSignatures = 25;
    static constexpr int mostSigners = 10;

    struct BillingOption
    {
        QString value;
        QString label;
        QString description;
    };
    static const QList<BillingOption>& billingOptions();
    static const QList<QString>& documentTypes();
    static const QList<QString>& idTypeOptions();

    enum class Field
    {
        contactName,
        contactEmail,
        scheduledDate,
        details,
        signerName,
        signerIdType
    };
    /// Why the form cannot be submitted, and which field says so.
    class Fault : public AppError
    {
    public:
        Fault(Field where, const QString& sentence, qsizetype whose = 0)
            : AppError(sentence), field(where), signer(whose)
        { }

        Field field;
        qsizetype signer; ///< whose field it is, where it is a signer's
    };

    QProperty<QString> contactName;
    QProperty<QString> contactEmail;
    QProperty<QString> contactPhone;
    QProperty<bool> asap{false};
    QProperty<QDateTime> scheduledDate;
    QProperty<QString> documentRetrievalOption;
    QProperty<QString> documentType;
    QProperty<int> actCount{leastSignatures};
    QProperty<bool> actUnknown{false};
    QProperty<QString> details;
    QProperty<bool> witnessRequired{false};
    QProperty<bool> apostilleNeeded{false};
    QProperty<QString> notes;

    QProperty<bool> isSubmitting{false};
    QProperty<std::optional<QString>> successMessage;

    const QList<SignerDraft>& signers() const { return signers_; }
    void editSigner(qsizetype index, const std::function<void(SignerDraft&)>& edit);
    /// Nothing happens at ten signers.
    void addSigner();
    /// Removes the last signer; nothing happens when it is the only one.
    void removeSigner();

    void addBookingFileURLs(const QList<QUrl>& files) { addUploads(files); }

    bool isBusiness() const;
    QString heroSubtitle() const;
    QString contactHeading() const;
    /// In dollars. An unknown count is estimated by the count that is set.
    double estimatedRetrievalFee() const;
    /// The fee as shown, e.g. "$41.00".
    QString feeText() const;
    QString feeCaption() const;
    /// "Number of Signatures: 3"
    QString signatureCountText() const;
    /// The appointment in New York time where the local clocks differ; empty where they agree.
    QString newYorkTimeText() const;

    /// Fills the contact and the first signer from the signed-in user, once in the life of the form.
    QCoro::Task<> prefill();
    /// \throws Fault, the first of the fields
    void validate() const;
    /// The fault that the alert on screen tells of, so that the person can be led to its field. Only the
    /// first to ask gets it.
    std::optional<Fault> takeFault() { return std::exchange(fault_, std::nullopt); }
    /// Every field back to its default, the attached files forgotten.
    void resetForm();
    /// Checks the form, books the session, and sends the attached files into it. Does nothing while a
    /// submission is under way.
    QCoro::Task<> submit();
    void viewSessions();
    /// A fresh form. It stays empty: its person may be booking for somebody else now.
    void bookAnother();

    /// The request's body for the form as it stands.
    QJsonObject requestBody() const;
    /// The id of the session that was created by the request with this answer, when it can be found.
    QCoro::Task<std::optional<qint64>> resolveCreatedSessionId(
        JSONObject response, QString reference, QString token);

signals:
    /// A signer was added or removed.
    void signerCountChanged();
    /// The form itself changed the fields of a signer.
    void signerChanged(qsizetype index);

private:
    /// A request that the bridge has accepted.
    struct Booked
    {
        QJsonObject form; ///< what was asked for
        QString reference;
        std::optional<qint64> sessionId;
        QList<QUuid> sentFiles; ///< drafts that are in the session already
    };

    QJsonObject formBody() const;
    bool isBooked() const;
    void prefillFrom(const JSONObject& profile, const AuthUser& user);
    QCoro::Task<> book(Turn turn, QString token);
    QCoro::Task<std::shared_ptr<Booked>> create(Turn turn, QString token);
    QCoro::Task<> uploadBookingFiles(std::shared_ptr<Booked> booked, Turn turn, QString token);

    QList<SignerDraft> signers_;
    std::optional<Fault> fault_;
    bool loadedProfile_ = false;
    bool isSessionEnding_ = false; ///< looking for a session has shown that the person is signed in no more
    /// The session of a submission that failed while its files were sent. Submitting the same form again goes
    /// on with the files that are missing, rather than booking a second session, whatever the clock or the
    /// role say by then.
    std::shared_ptr<Booked> booked_;
    Turns prefills_;
    Turns submissions_;
};
