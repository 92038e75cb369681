#include "Screen/ListScreenModel.h"

LeaveGuard::Unfinished ListScreenModel::unfinished() const
{
    const std::shared_ptr<EditPaneModel> open = pane();
    return open ? open->unfinished() : LeaveGuard::Unfinished::nothing;
}
