#include "Admin/AdminListView.h"

#include "Bindings.h"
#include "Components/EmptyStateView.h"
#include "Components/SecondaryButton.h"

using namespace Qt::StringLiterals;

static ListDetailView::Texts listTexts(const AdminListModel::Texts& texts)
{
    return {texts.title, texts.searchPlaceholder, texts.loading, texts.noneFound.systemImage,
        texts.noneFound.title, texts.noneFound.message};
}

static QWidget* makeDetail(const AdminListModel& model, const ListScreenView::MakeDetail& makePane)
{
    if (model.pane())
        return makePane();
    const AdminListModel::Placeholder& none = model.texts().noneSelected;
    return new EmptyStateView(none.systemImage, none.title, none.message);
}

AdminListView::AdminListView(std::shared_ptr<AdminListModel> model, const ListRowDelegate::Options& rowShape,
    MakeDetail makePane, QWidget* parent)
    : ListScreenView(
        model, listTexts(model->texts()), rowShape,
        [model, makePane = std::move(makePane)] { return makeDetail(*model, makePane); }, parent)
{
    lists()->setSubtitle(model->texts().subtitle);
    auto* refresh = new SecondaryButton(u"Refresh"_s, u"arrow.clockwise"_s);
    refresh->setButtonSize(Button::Size::small);
    connect(refresh, &Button::clicked, this, [model] { model->refresh(); });
    lists()->addAction(refresh);
    follow(refresh, model->isLoading, [refresh](bool loading) { refresh->setLoading(loading); });
}
