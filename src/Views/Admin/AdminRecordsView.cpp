#include "Admin/AdminRecordsView.h"

#include "Admin/AdminRecordDetailView.h"
#include "Bindings.h"
#include "Components/ComboBox.h"
#include "Components/LabeledField.h"

using namespace Qt::StringLiterals;

/// Kind, name, when, document type and status.
static ListRowDelegate::Options rowShape()
{
    ListRowDelegate::Options shape;
    shape.chip = true;
    shape.wraps = true;
    return shape;
}

static QWidget* typePicker(AdminRecordsModel& model)
{
    QList<ComboBox::Option> options;
    for (const AdminRecordsModel::TypeOption& type : AdminRecordsModel::typeOptions())
        options += {type.label, type.value};
    auto* picker = new ComboBox(options);
    bind(picker, model.typeFilter);
    return new LabeledField(u"Type"_s, picker, LabeledField::Placement::beside);
}

AdminRecordsView::AdminRecordsView(std::shared_ptr<AdminRecordsModel> model, QWidget* parent)
    : AdminListView(
        model, rowShape(), [model] { return new AdminRecordDetailView(model->detail()); }, parent)
{
    lists()->addFilter(typePicker(*model));
}
