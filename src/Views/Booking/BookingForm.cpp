#include "Booking/BookingForm.h"

#include "Bindings.h"
#include "Booking/FeePanel.h"
#include "Booking/ScheduleSection.h"
#include "Booking/SignerBlock.h"
#include "Booking/SignersSection.h"
#include "Booking/UploadSection.h"
#include "Components/ComboBox.h"
#include "Components/PlainLabel.h"
#include "Components/PrimaryButton.h"
#include "Components/TextField.h"
#include "FaultMark.h"
#include "Launch.h"
#include "Layouts.h"
#include "Spacing.h"

#include <QEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>

using namespace Qt::StringLiterals;

static constexpr int widestColumn = 720;
static constexpr int narrowRail = 288;
static constexpr int wideRail = 320;
static constexpr int wideRailAbove = 1200;

static_assert(BookingForm::widest == widestColumn + Spacing::betweenCards + wideRail);

BookingForm::BookingForm(BookRemoteNotaryModel& model, QScrollArea& page, QWidget* parent)
    : QWidget(parent), model_(model), page_(page), column_(Layouts::column(Spacing::betweenCards))
{
    setLayout(column_);
    addSections();
    addSubmission();
    connect(page_.verticalScrollBar(), &QScrollBar::valueChanged, this, &BookingForm::placeFee);
}

/// In the order in which Tab goes through them.
void BookingForm::addSections()
{
    addSection(BookingSections::contact(model_, fields_));
    addSection(BookingSections::billing(model_));
    auto* schedule = new ScheduleSection(model_);
    fields_[BookRemoteNotaryModel::Field::scheduledDate] = schedule->picker();
    addSection(schedule);
    placeOfFee_ = column_->count();
    fee_ = new FeePanel(model_, this);
    addSection(BookingSections::document(model_, fields_));
    signers_ = new SignersSection(model_);
    addSection(signers_);
    addSection(BookingSections::extras(model_));
    uploads_ = new UploadSection(model_, page_);
    connect(uploads_, &UploadSection::filesWanted, this, &BookingForm::filesWanted);
    connect(uploads_, &UploadSection::filesDropped, this, &BookingForm::filesDropped);
    addSection(uploads_);
}

void BookingForm::addSection(Surface* section)
{
    sections_ += section;
    column_->addWidget(section);
}

void BookingForm::addSubmission()
{
    auto* submit = new PrimaryButton(u"Submit Remote Notary Request"_s);
    submit->setButtonSize(Button::Size::large);
    submit->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(submit, &Button::clicked, this, [this] { launch(model_.submit()); });
    follow(submit, model_.isSubmitting, [this, submit](bool submitting) {
        submit->setLoading(submitting);
        setLocked(submitting);
    });

    auto* note = new PlainLabel(u"We will review the request and update the session status as it moves "
                                "through the remote notary workflow."_s,
        Type::small, Brand::steel);
    note->setAlignment(Qt::AlignHCenter);
    column_->addLayout(Layouts::column(12, {submit, note}));
}

/// What is on its way is shown and cannot be edited any more.
void BookingForm::setLocked(bool locked)
{
    for (Surface* section : std::as_const(sections_)) {
        if (section != uploads_)
            section->setEnabled(!locked);
    }
    uploads_->setLocked(locked);
    fee_->setLocked(locked);
}

void BookingForm::arrange(int pageWidth)
{
    const bool compact = pageWidth < Spacing::compactBelow;
    for (Surface* section : std::as_const(sections_))
        section->setPadding(compact ? Spacing::cardCompact : Spacing::card);
    column_->setSpacing(compact ? Spacing::betweenCardsCompact : Spacing::betweenCards);

    // Large text needs the rail's room for itself.
    const bool hasRail = pageWidth >= Type::scaled(Spacing::compactBelow);
    rail_ = !hasRail ? 0 : pageWidth > wideRailAbove ? wideRail : narrowRail;
    const int beside = hasRail ? rail_ + Spacing::betweenCards : 0;
    column_->setContentsMargins(isRightToLeft() ? beside : 0, 0, isRightToLeft() ? 0 : beside, 0);
    fee_->setAcross(!hasRail);
    if (hasRail)
        column_->removeWidget(fee_);
    else if (column_->indexOf(fee_) < 0)
        column_->insertWidget(placeOfFee_, fee_);
    placeFee();
}

int BookingForm::widestNow() const
{
    return rail_ == 0 ? widestColumn : widestColumn + Spacing::betweenCards + rail_;
}

bool BookingForm::event(QEvent* event)
{
    const bool handled = QWidget::event(event);
    if (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest)
        placeFee();
    return handled;
}

/// Beside the column's top, or as far below it as the top has scrolled out of the page.
void BookingForm::placeFee()
{
    if (rail_ == 0)
        return;
    const int height = fee_->heightForWidth(rail_);
    const int pageTop = mapFrom(page_.viewport(), QPoint(0, Spacing::page)).y();
    const int top = std::clamp(pageTop, 0, std::max(0, this->height() - height));
    const QRect place(width() - rail_, top, rail_, height);
    fee_->setGeometry(QStyle::visualRect(layoutDirection(), rect(), place));
}

QWidget* BookingForm::fieldOf(const BookRemoteNotaryModel::Fault& fault) const
{
    switch (fault.field) {
    case BookRemoteNotaryModel::Field::signerName:
        return signers_->block(fault.signer)->nameField();
    case BookRemoteNotaryModel::Field::signerIdType:
        return signers_->block(fault.signer)->idTypePicker();
    default:
        return fields_.value(fault.field);
    }
}

void BookingForm::leadTo(const BookRemoteNotaryModel::Fault& fault)
{
    FaultMark::leadTo(fieldOf(fault), fault.message());
}

void BookingForm::focusFirstField()
{
    sections_.constFirst()->setFocus(Qt::OtherFocusReason);
}
