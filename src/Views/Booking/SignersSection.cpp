#include "Booking/SignersSection.h"

#include "Booking/BookRemoteNotaryModel.h"
#include "Booking/SignerBlock.h"
#include "Components/SecondaryButton.h"
#include "Components/SectionTitle.h"
#include "Layouts.h"
#include "TabOrder.h"

using namespace Qt::StringLiterals;

static constexpr int betweenBlocks = 12;
static constexpr int betweenButtons = 8;

SignersSection::SignersSection(BookRemoteNotaryModel& model)
    : model_(model), column_(Layouts::column(betweenBlocks)),
      add_(new SecondaryButton(u"Add Signer"_s, u"plus.circle.fill"_s)),
      remove_(new SecondaryButton(u"Remove Signer"_s, u"minus.circle"_s))
{
    add(new SectionTitle(u"Signers"_s));
    add(column_, Spacing::fieldsDown);
    showSigners();
    auto* buttons = Layouts::row(betweenButtons, {add_, remove_});
    buttons->addStretch();
    add(buttons, Spacing::fieldsDown);

    connect(add_, &Button::clicked, this, [this] {
        model_.addSigner();
        blocks_.constLast()->fields().constFirst()->setFocus(Qt::OtherFocusReason);
    });
    connect(remove_, &Button::clicked, this, [this] { model_.removeSigner(); });
    connect(&model_, &BookRemoteNotaryModel::signerCountChanged, this, &SignersSection::showSigners);
    connect(&model_, &BookRemoteNotaryModel::signerChanged, this,
        [this](qsizetype index) { blocks_.at(index)->showSigner(); });
}

void SignersSection::showSigners()
{
    const qsizetype count = model_.signers().size();
    while (blocks_.size() > count)
        removeLastBlock();
    for (SignerBlock* block : std::as_const(blocks_))
        block->showSigner();
    while (blocks_.size() < count)
        appendBlock();
    add_->setEnabled(count < BookRemoteNotaryModel::mostSigners);
    remove_->setEnabled(count > 1);
}

void SignersSection::appendBlock()
{
    auto* block = new SignerBlock(model_, blocks_.size());
    column_->addWidget(block);
    if (isAncestorOf(add_)) {
        // The buttons come after the blocks, also after one that is made later.
        QWidget* last = TabOrder::append(blocks_.constLast()->fields().constLast(), block->fields());
        TabOrder::append(last, {add_, remove_});
        // At once, so that it can take the focus.
        block->setVisible(true);
    }
    blocks_ += block;
}

void SignersSection::removeLastBlock()
{
    SignerBlock* block = blocks_.takeLast();
    block->hide();
    block->deleteLater();
}
