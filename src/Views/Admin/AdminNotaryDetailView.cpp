#include "Admin/AdminNotaryDetailView.h"

#include "Admin/AdminFields.h"
#include "Components/Switch.h"
#include "Layouts.h"
#include "Spacing.h"

using namespace Qt::StringLiterals;

AdminNotaryDetailView::AdminNotaryDetailView(
    const std::shared_ptr<AdminNotaryDetailModel>& model, QWidget* parent)
    : AdminDetailView(model, parent)
{
    auto* active = new Switch(u"Active"_s);
    active->setFixedHeight(Height::control());
    bind(active, model->isActive);
    auto* activeRow = Layouts::row(0, {active});
    activeRow->addStretch();

    addRow({{AdminFields::text(u"Name"_s, model->name)}});
    addRow(
        {{AdminFields::text(u"Email"_s, model->email), 3}, {AdminFields::text(u"Phone"_s, model->phone), 2}});
    addRow({{AdminFields::text(u"State"_s, model->state)}, {AdminFields::text(u"County"_s, model->county)},
        {AdminFields::text(u"Billing Status"_s, model->billingStatus)}});
    addRow({{AdminFields::text(u"Commission Number"_s, model->commissionNumber)},
        {AdminFields::text(u"Commission Expiration"_s, model->commissionExpiration)}});
    addRow({{Layouts::holding(activeRow)}, {AdminFields::newPassword(model->password)}});
    addButtons();
}
