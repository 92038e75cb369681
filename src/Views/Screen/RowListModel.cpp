#include "Screen/RowListModel.h"

#include "Worker.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

RowListModel::Content RowListModel::Content::of(QList<RowTexts> rows)
{
    QList<QString> texts;
    texts.reserve(rows.size());
    for (const RowTexts& row : rows)
        texts += row.search;
    return {std::move(rows), SearchIndex::of(texts)};
}

void RowListModel::setContent(Content content)
{
    beginResetModel();
    discardOnWorker(std::exchange(content_, std::move(content)));
    refilter();
    endResetModel();
}

void RowListModel::remove(qint64 id)
{
    QList<RowTexts> rows = content_.rows;
    if (rows.removeIf([id](const RowTexts& row) { return row.id == id; }) > 0)
        setContent(Content::of(std::move(rows)));
}

void RowListModel::setSearch(const QString& search)
{
    beginResetModel();
    search_ = search;
    refilter();
    endResetModel();
}

void RowListModel::setFilter(Accepts accepts)
{
    beginResetModel();
    accepts_ = std::move(accepts);
    refilter();
    endResetModel();
}

void RowListModel::refilter()
{
    shown_ = content_.index.matches(search_);
    if (accepts_)
        shown_.removeIf([this](int row) { return !accepts_(content_.rows.at(row).filter); });
}

int RowListModel::placeOf(qint64 id) const
{
    const auto found = std::find_if(
        content_.rows.begin(), content_.rows.end(), [id](const RowTexts& row) { return row.id == id; });
    return found == content_.rows.end() ? -1 : int(found - content_.rows.begin());
}

int RowListModel::rowOf(qint64 id) const
{
    const auto found = std::find_if(
        shown_.begin(), shown_.end(), [this, id](int row) { return content_.rows.at(row).id == id; });
    return found == shown_.end() ? -1 : int(found - shown_.begin());
}

int RowListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(shown_.size());
}

/// What a screen reader says of a row: the title first, then its other texts.
static QString spokenRow(const RowTexts& row)
{
    QStringList texts{row.title, row.secondary, row.meta, row.trailing, row.pill};
    texts.removeAll(QString());
    return texts.join(u", "_s);
}

QVariant RowListModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const RowTexts& row = content_.rows.at(shown_.at(index.row()));
    switch (role) {
    case TitleRole:
        return row.title;
    case IdRole:
        return row.id;
    case SecondaryRole:
        return row.secondary;
    case MetaIconRole:
        return row.metaIcon;
    case MetaRole:
        return row.meta;
    case PillRole:
        return row.pill;
    case TrailingRole:
        return row.trailing;
    case IdleRole:
        return row.isIdle;
    case Qt::AccessibleTextRole:
        return spokenRow(row);
    default:
        return {};
    }
}
