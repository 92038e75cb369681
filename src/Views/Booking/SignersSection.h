#pragma once

#include "Components/Card.h"

class BookRemoteNotaryModel;
class SecondaryButton;
class SignerBlock;

/// The signers, one block each, and the buttons that add one and remove the last one.
class SignersSection : public Card
{
    Q_OBJECT

public:
    explicit SignersSection(BookRemoteNotaryModel& model);

    /// \param index  of a signer in the model
    SignerBlock* block(qsizetype index) const { return blocks_.at(index); }

private:
    void showSigners();
    void appendBlock();
    void removeLastBlock();

    BookRemoteNotaryModel& model_;
    QList<SignerBlock*> blocks_;
    QVBoxLayout* column_;
    SecondaryButton* add_;
    SecondaryButton* remove_;
};
