#include "Dashboards/DashboardCard.h"

#include "Components/ListRowDelegate.h"
#include "Components/LoadingLine.h"
#include "Components/PlainLabel.h"
#include "Components/QuietButton.h"
#include "Layouts.h"

#include <QAbstractItemModel>

using namespace Qt::StringLiterals;

/// Rows have room of their own before and after their texts, which stand flush with the title.
static constexpr int rowPadding = ListRowDelegate::roomAcross;
/// Rows have room of their own under their texts as well.
static constexpr int roomUnderRows = 10;

DashboardCard::DashboardCard(
    const QString& title, QWidget* list, const QAbstractItemModel& rows, const QString& emptyText)
    : rows_(rows), heading_(Layouts::row(Spacing::buttons)), list_(list),
      loadingLine_(new LoadingLine(u"Loading..."_s)),
      emptyLine_(new PlainLabel(emptyText, Type::body, Brand::steel))
{
    auto* name = new PlainLabel(title, Type::heading);
    heading_->addWidget(name, 1);
    heading_->setContentsMargins(rowPadding, 0, rowPadding, 0);
    add(heading_);
    add(list_, 8);
    auto* lines = Layouts::column(0, {loadingLine_, emptyLine_});
    lines->setContentsMargins(rowPadding, 0, rowPadding, 0);
    add(lines);
    connect(&rows_, &QAbstractItemModel::modelReset, this, &DashboardCard::showRows);
    setCompact(false);
}

QuietButton* DashboardCard::addAction(const QString& title)
{
    auto* button = new QuietButton(title);
    heading_->addWidget(button);
    // Its words end where the rows under it do.
    heading_->setContentsMargins(rowPadding, 0, rowPadding - QuietButton::roomAcross, 0);
    return button;
}

void DashboardCard::setLoading(bool loading)
{
    isLoading_ = loading;
    showRows();
}

void DashboardCard::setCompact(bool compact)
{
    constexpr int edge = 1;
    padding_ = edge + (compact ? Spacing::cardCompact : Spacing::card);
    showRows();
}

void DashboardCard::showRows()
{
    const bool isEmpty = rows_.rowCount() == 0;
    list_->setVisible(!isEmpty);
    loadingLine_->setVisible(isEmpty && isLoading_);
    emptyLine_->setVisible(isEmpty && !isLoading_);
    const int below = isEmpty ? padding_ : padding_ - roomUnderRows;
    content()->setContentsMargins(padding_ - rowPadding, padding_, padding_ - rowPadding, below);
}
