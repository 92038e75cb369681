#include "Sessions/SessionsView.h"

#include "Bindings.h"
#include "Components/ComboBox.h"
#include "Components/EmptyStateView.h"
#include "Components/LabeledField.h"
#include "Lists/RowListView.h"
#include "Sessions/SessionDetailView.h"

using namespace Qt::StringLiterals;

static ListDetailView::Texts texts()
{
    return {u"Sessions"_s, SessionsModel::searchPlaceholder(), u"Loading sessions..."_s,
        u"doc.text.magnifyingglass"_s, u"No Sessions Found"_s,
        u"Book a remote notary session or adjust your search filters."_s};
}

static QWidget* makeDetail(const SessionsModel& model)
{
    if (model.detail())
        return new SessionDetailView(model.detail());
    return new EmptyStateView(u"hand.point.left.fill"_s, u"Select a Session"_s,
        u"Choose a session from the list to view details, messages, and admin or notary controls."_s);
}

static QWidget* statusPicker(SessionsModel& model)
{
    QList<ComboBox::Option> options;
    for (const SessionsModel::StatusOption& status : SessionsModel::statuses())
        options += {status.label, status.value};
    auto* picker = new ComboBox(options);
    bind(picker, model.statusFilter);
    return new LabeledField(u"Status"_s, picker, LabeledField::Placement::beside);
}

SessionsView::SessionsView(std::shared_ptr<SessionsModel> model, QWidget* parent)
    : ListScreenView(
        model, texts(), recordRows(), [model] { return makeDetail(*model); }, parent)
{
    lists()->addFilter(statusPicker(*model));
    follow(this, model->role, [this, model](AppRole) { lists()->setSubtitle(model->subtitle()); });
}
