#include "Admin/AdminRecordDetailView.h"

#include "Admin/AdminFields.h"
#include "Components/InnerBlock.h"
#include "Components/PlainLabel.h"
#include "Components/SymbolLine.h"
#include "Components/TextEditor.h"
#include "Layouts.h"

using namespace Qt::StringLiterals;

static constexpr int betweenSigners = 8;

static void showSigners(QLayout* lines, const QList<QString>& names)
{
    Layouts::clear(lines);
    for (const QString& name : names)
        lines->addWidget(new SymbolLine(u"person.fill"_s, name));
    if (names.isEmpty())
        lines->addWidget(new PlainLabel(u"No signer names found."_s, Type::body, Brand::steel));
}

static QWidget* signersBlock(const AdminRecordDetailModel& model)
{
    auto* block = new InnerBlock;
    auto* lines = Layouts::column(betweenSigners);
    block->add(new PlainLabel(u"Signers"_s, Type::sub));
    block->add(lines, 8);
    const auto show = [lines, &model] { showSigners(lines, model.record().signerNames()); };
    show();
    QObject::connect(&model, &AdminDetailModel::recordChanged, block, show);
    return block;
}

AdminRecordDetailView::AdminRecordDetailView(
    const std::shared_ptr<AdminRecordDetailModel>& model, QWidget* parent)
    : AdminDetailView(model, parent)
{
    auto* notes = new TextEditor(u"Notes"_s);
    bind(notes, model->notes);

    addRow({{AdminFields::text(u"Status"_s, model->status), 2},
        {AdminFields::text(u"Document Type"_s, model->documentType), 3}});
    addRow({{AdminFields::text(u"Contact Name"_s, model->contactName), 2},
        {AdminFields::text(u"Contact Email"_s, model->contactEmail), 3}});
    addRow({{AdminFields::text(u"Contact Phone"_s, model->contactPhone)},
        {AdminFields::text(u"Date"_s, model->scheduledDate)},
        {AdminFields::text(u"Time"_s, model->scheduledTime)}});
    addRow({{notes}});
    addBlock(signersBlock(*model));
    addButtons();
}
