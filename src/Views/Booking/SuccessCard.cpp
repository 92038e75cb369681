#include "Booking/SuccessCard.h"

#include "Components/Emblem.h"
#include "Components/PlainLabel.h"
#include "Components/PrimaryButton.h"
#include "Components/SecondaryButton.h"
#include "Layouts.h"

using namespace Qt::StringLiterals;

static constexpr int padding = 48;
static constexpr int widestText = 520;
static constexpr int symbolEdge = 40;

SuccessCard::SuccessCard(QWidget* parent)
    : Card(padding, parent), message_(new PlainLabel({}, Type::body, Brand::steel)),
      viewSessions_(new PrimaryButton(u"View Sessions"_s))
{
    auto* title = new PlainLabel(u"Request Submitted"_s, Type::title);
    title->setAlignment(Qt::AlignHCenter);
    message_->setAlignment(Qt::AlignHCenter);
    message_->setMaximumWidth(Type::scaled(widestText));
    auto* another = new SecondaryButton(u"Book Another"_s);
    connect(viewSessions_, &Button::clicked, this, &SuccessCard::sessionsWanted);
    connect(another, &Button::clicked, this, &SuccessCard::anotherWanted);

    content()->addWidget(new Emblem(u"checkmark.circle.fill"_s, symbolEdge), 0, Qt::AlignHCenter);
    add(title, 16);
    auto* centred = Layouts::row(0);
    centred->addStretch(1);
    centred->addWidget(message_, 1000);
    centred->addStretch(1);
    add(centred, 8);
    content()->addSpacing(24);
    auto* buttons = Layouts::holding(Layouts::row(Spacing::buttons, {viewSessions_, another}));
    content()->addWidget(buttons, 0, Qt::AlignHCenter);
}

void SuccessCard::setMessage(const QString& message)
{
    message_->setText(message);
}

void SuccessCard::focusFirstAction(Qt::FocusReason reason)
{
    viewSessions_->setFocus(reason);
}
