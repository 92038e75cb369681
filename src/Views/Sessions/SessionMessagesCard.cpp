#include "Sessions/SessionMessagesCard.h"

#include "AlertPresenter.h"
#include "Components/SectionTitle.h"
#include "Sessions/SessionMessagesModel.h"

using namespace Qt::StringLiterals;

SessionMessagesCard::SessionMessagesCard(std::shared_ptr<SessionMessagesModel> model, QWidget* parent)
    : Card(Spacing::card, parent), model_(std::move(model))
{
    add(new SectionTitle(u"Messages"_s));
    presentAlerts(this, model_->alert, [model = model_] { model->dismissAlert(); });
}

SessionMessagesCard::~SessionMessagesCard() = default;
