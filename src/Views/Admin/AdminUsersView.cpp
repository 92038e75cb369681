#include "Admin/AdminUsersView.h"

#include "Admin/AdminUserDetailView.h"

/// Name, e-mail address and role.
static ListRowDelegate::Options rowShape()
{
    ListRowDelegate::Options shape;
    shape.textLines = 1;
    shape.chip = true;
    shape.wraps = true;
    shape.chevron = false;
    shape.pill = ListRowDelegate::Pill::none;
    shape.word = true;
    shape.padding = 8;
    return shape;
}

AdminUsersView::AdminUsersView(std::shared_ptr<AdminUsersModel> model, QWidget* parent)
    : AdminListView(
        model, rowShape(), [model] { return new AdminUserDetailView(model->detail()); }, parent)
{ }
