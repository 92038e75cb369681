#include "Sessions/SessionDocumentsCard.h"

#include "AlertPresenter.h"
#include "Components/SectionTitle.h"
#include "FileChooser.h"
#include "Sessions/SessionDocumentsModel.h"

using namespace Qt::StringLiterals;

SessionDocumentsCard::SessionDocumentsCard(
    std::shared_ptr<SessionDocumentsModel> model, QScrollArea&, QWidget* parent)
    : Card(Spacing::card, parent), chooseFiles(FileChooser::open), model_(std::move(model))
{
    add(new SectionTitle(u"Session Documents"_s,
        u"Drag and drop files into this session and label exactly what each item is."_s));
    presentAlerts(this, model_->alert, [model = model_] { model->dismissAlert(); });
}

SessionDocumentsCard::~SessionDocumentsCard() = default;
