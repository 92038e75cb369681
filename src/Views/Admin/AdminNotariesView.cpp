#include "Admin/AdminNotariesView.h"

#include "Admin/AdminNotaryDetailView.h"

/// Name, county and state, and billing status.
static ListRowDelegate::Options rowShape()
{
    ListRowDelegate::Options shape;
    shape.textLines = 1;
    shape.chip = true;
    shape.wraps = true;
    shape.chevron = false;
    return shape;
}

AdminNotariesView::AdminNotariesView(std::shared_ptr<AdminNotariesModel> model, QWidget* parent)
    : AdminListView(
        model, rowShape(), [model] { return new AdminNotaryDetailView(model->detail()); }, parent)
{ }
