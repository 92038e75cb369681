#include "Screen/ListScreenModel.h"

ListScreenModel::ListScreenModel(const ScreenContext& context) : LoadingModel(context)
{
    onSearch_ = search.addNotifier([this] { rows_.setSearch(search.value()); });
}

LeaveGuard::Unfinished ListScreenModel::unfinished() const
{
    const std::shared_ptr<EditPaneModel> open = pane();
    return open ? open->unfinished() : LeaveGuard::Unfinished::nothing;
}
