#include "MonthModel.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

constexpr int daysOfWeek = 7;

QLocale english()
{
    return {QLocale::English, QLocale::UnitedStates};
}

/// Qt counts from Monday, 1; the columns from Sunday, 0.
int dayOfColumn(int column)
{
    return column == 0 ? Qt::Sunday : column;
}

} // namespace

void MonthModel::setDates(const QDate& chosen, const QDate& earliest, const QDate& today)
{
    chosen_ = chosen;
    earliest_ = earliest;
    today_ = today;
    setMonthOf(chosen);
}

void MonthModel::setMonthOf(const QDate& date)
{
    beginResetModel();
    first_ = QDate(date.year(), date.month(), 1);
    endResetModel();
}

int MonthModel::blanksBefore() const
{
    return first_.dayOfWeek() % daysOfWeek;
}

QDate MonthModel::dateAt(const QModelIndex& index) const
{
    const int day = index.row() * daysOfWeek + index.column() - blanksBefore() + 1;
    return index.isValid() && day >= 1 && day <= first_.daysInMonth() ? first_.addDays(day - 1) : QDate();
}

QModelIndex MonthModel::indexOf(const QDate& date) const
{
    if (date.year() != first_.year() || date.month() != first_.month())
        return {};
    const int cell = blanksBefore() + date.day() - 1;
    return index(cell / daysOfWeek, cell % daysOfWeek);
}

int MonthModel::rowCount(const QModelIndex& parent) const
{
    if (parent.isValid() || !first_.isValid())
        return 0;
    return (blanksBefore() + first_.daysInMonth() + daysOfWeek - 1) / daysOfWeek;
}

int MonthModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : daysOfWeek;
}

Qt::ItemFlags MonthModel::flags(const QModelIndex& index) const
{
    return isAllowed(dateAt(index)) ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags;
}

QVariant MonthModel::data(const QModelIndex& index, int role) const
{
    const auto date = dateAt(index);
    if (!date.isValid())
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return QString::number(date.day());
    case Qt::AccessibleTextRole:
        return english().toString(date, u"MMMM d, yyyy"_s);
    case DateRole:
        return date;
    case ChosenRole:
        return date == chosen_;
    case TodayRole:
        return date == today_;
    default:
        return {};
    }
}

QVariant MonthModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Vertical)
        return {};
    if (role == Qt::DisplayRole)
        return english().standaloneDayName(dayOfColumn(section), QLocale::NarrowFormat);
    if (role == Qt::AccessibleTextRole)
        return english().standaloneDayName(dayOfColumn(section), QLocale::LongFormat);
    return {};
}
