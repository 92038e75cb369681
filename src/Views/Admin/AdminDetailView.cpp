#include "Admin/AdminDetailView.h"

#include "Accessibility.h"
#include "AlertPresenter.h"
#include "Components/Card.h"
#include "Components/DestructiveButton.h"
#include "Components/PrimaryButton.h"
#include "Components/SectionTitle.h"
#include "Components/StackingRow.h"
#include "Launch.h"
#include "Layouts.h"
#include "Lists/WorkButtons.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int widest = 760;
constexpr int betweenParts = 20;
constexpr int stackedBelow = 380;

} // namespace

AdminDetailView::AdminDetailView(std::shared_ptr<AdminDetailModel> model, QWidget* parent)
    : Page(widest, Place::pane, parent), model_(std::move(model)), card_(new Card),
      rows_(Layouts::column(Spacing::fieldsDown))
{
    const AdminDetailModel::Texts texts = model_->texts();
    card_->add(new SectionTitle(texts.heading));
    card_->add(rows_, betweenParts);
    Accessibility::setRole(card_, QAccessible::Grouping);
    card_->setAccessibleName(texts.heading);
    column()->addWidget(card_);
    const auto fit
        = [this](bool compact) { card_->setPadding(compact ? Spacing::cardCompact : Spacing::card); };
    fit(isCompact());
    connect(this, &Page::compactChanged, this, fit);
    presentAlerts(this, model_->alert, [model = model_] { model->dismissAlert(); });
}

void AdminDetailView::addRow(std::initializer_list<Cell> cells)
{
    auto* row = Layouts::row(Spacing::fieldsAcross);
    for (const Cell& cell : cells)
        row->addWidget(cell.field, cell.share, Qt::AlignBottom);
    rows_->addLayout(row);
    fieldRows_ += row;
}

void AdminDetailView::addBlock(QWidget* block)
{
    card_->add(block, betweenParts);
}

void AdminDetailView::addButtons()
{
    using Work = EditPaneModel::Work;
    auto* remove = new DestructiveButton(u"Delete"_s, u"trash"_s);
    showWork(remove, *model_, Work::deletion);
    connect(remove, &Button::clicked, this, [this] { launch(model_->deleteRecord()); });
    auto* save = new PrimaryButton(model_->texts().save, u"checkmark.circle"_s);
    showWork(save, *model_, Work::adminChanges);
    connect(save, &Button::clicked, this, [this] { launch(model_->save()); });

    auto* buttons = new StackingRow(Spacing::buttons);
    buttons->add(remove);
    buttons->addStretch();
    buttons->add(save);
    card_->add(buttons, betweenParts);
}

void AdminDetailView::resizeEvent(QResizeEvent* event)
{
    const bool isStacked = width() < Type::scaled(stackedBelow);
    for (QBoxLayout* row : std::as_const(fieldRows_)) {
        row->setDirection(isStacked ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
        row->setSpacing(isStacked ? Spacing::fieldsDown : Spacing::fieldsAcross);
    }
    Page::resizeEvent(event);
}
