#include "Booking/SignerBlock.h"

#include "Accessibility.h"
#include "Booking/BookRemoteNotaryModel.h"
#include "Booking/FieldRows.h"
#include "Components/DateField.h"
#include "Components/PlainLabel.h"
#include "Components/StackingRow.h"
#include "Components/TextField.h"
#include "Screen/NewYorkTime.h"
#include "Spacing.h"

using namespace Qt::StringLiterals;

static constexpr int underTitle = 12;

SignerBlock::SignerBlock(BookRemoteNotaryModel& model, qsizetype index)
    : model_(model), index_(index), name_(FieldRows::name()), email_(FieldRows::email()),
      phone_(FieldRows::phone()),
      idType_(new ComboBox(FieldRows::options(BookRemoteNotaryModel::idTypeOptions()))),
      idExpiration_(new DateField)
{
    const QString title = u"Signer "_s + QString::number(index_ + 1);
    Accessibility::setRole(this, QAccessible::Grouping);
    setAccessibleName(title);
    idType_->setPrompt(u"Select ID"_s);

    auto* idType = new LabeledField(u"ID Type"_s, idType_);
    auto* idExpiration = new LabeledField(u"ID Expiration"_s, idExpiration_);
    fields_ = {name_, email_, phone_, idType, idExpiration};

    add(new PlainLabel(title, Type::sub));
    add(name_, underTitle);
    add(FieldRows::threeToTwo(email_, phone_), Spacing::fieldsDown);
    add(FieldRows::threeToTwo(idType, idExpiration), Spacing::fieldsDown);
    showSigner();
    writeBack();
}

/// The bridge is told the day that it is in New York at the moment of expiration.
static QDate dayInNewYork(const QDateTime& moment)
{
    return QDate::fromString(NewYorkTime::dateText(moment), Qt::ISODate);
}

/// A moment in the middle of that day in New York.
static QDateTime momentOf(const QDate& dayInNewYork)
{
    return QDateTime(dayInNewYork, QTime(17, 0), Qt::UTC);
}

void SignerBlock::showSigner()
{
    // A copy: the fields report while they are being set.
    const SignerDraft signer = model_.signers().at(index_);
    name_->setText(signer.name);
    email_->setText(signer.email);
    phone_->setText(signer.phone);
    idType_->setValue(signer.idType);
    idExpiration_->setValue(dayInNewYork(signer.idExpirationDate));
}

void SignerBlock::edit(const std::function<void(SignerDraft&)>& change)
{
    model_.editSigner(index_, change);
}

void SignerBlock::writeBack()
{
    connect(name_, &TextField::valueChanged, this,
        [this](const QString& text) { edit([&text](SignerDraft& signer) { signer.name = text; }); });
    connect(email_, &TextField::valueChanged, this,
        [this](const QString& text) { edit([&text](SignerDraft& signer) { signer.email = text; }); });
    connect(phone_, &TextField::valueChanged, this,
        [this](const QString& text) { edit([&text](SignerDraft& signer) { signer.phone = text; }); });
    connect(idType_, &ComboBox::valueChanged, this,
        [this](const QString& value) { edit([&value](SignerDraft& signer) { signer.idType = value; }); });
    connect(idExpiration_, &DateField::valueChanged, this, [this](const QDate& day) {
        edit([&day](SignerDraft& signer) {
            if (dayInNewYork(signer.idExpirationDate) != day)
                signer.idExpirationDate = momentOf(day);
        });
    });
}
