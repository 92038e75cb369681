#pragma once

#include <QDateTime>
#include <QString>
#include <QUuid>

#include <optional>

/// One signer entered in the booking form.
struct SignerDraft
{
    QUuid id = QUuid::createUuid();
    QString name;
    QString email;
    QString phone;
    QString idType;
    QDateTime idExpirationDate = QDateTime::currentDateTimeUtc();

    QByteArray encoded() const;
    /// \returns nothing unless all six keys are there with the right types.
    static std::optional<SignerDraft> decode(const QByteArray& json);

    bool operator==(const SignerDraft&) const = default;
};
