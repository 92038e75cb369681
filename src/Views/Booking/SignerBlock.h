#pragma once

#include "Components/InnerBlock.h"

class BookRemoteNotaryModel;
class ComboBox;
class DateField;
class TextField;
struct SignerDraft;

/// The fields of one signer.
class SignerBlock : public InnerBlock
{
    Q_OBJECT

public:
    /// \param index  the signer's place in the model
    SignerBlock(BookRemoteNotaryModel& model, qsizetype index);

    /// Shows the signer as the model has it.
    void showSigner();
    /// In the order in which Tab goes through them.
    QList<QWidget*> fields() const { return fields_; }
    TextField* nameField() const { return name_; }
    ComboBox* idTypePicker() const { return idType_; }

private:
    void edit(const std::function<void(SignerDraft&)>& change);
    void writeBack();

    BookRemoteNotaryModel& model_;
    qsizetype index_;
    TextField* name_;
    TextField* email_;
    TextField* phone_;
    ComboBox* idType_;
    DateField* idExpiration_;
    QList<QWidget*> fields_;
};
