#include "Admin/AdminUserDetailView.h"

#include "Admin/AdminFields.h"

using namespace Qt::StringLiterals;

AdminUserDetailView::AdminUserDetailView(const std::shared_ptr<AdminUserDetailModel>& model, QWidget* parent)
    : AdminDetailView(model, parent)
{
    addRow({{AdminFields::text(u"Name"_s, model->name)}});
    addRow(
        {{AdminFields::text(u"Email"_s, model->email), 3}, {AdminFields::text(u"Phone"_s, model->phone), 2}});
    addRow({{AdminFields::text(u"Role"_s, model->role), 3}, {AdminFields::newPassword(model->password), 2}});
    addButtons();
}
