#pragma once

#include "Cases.h"
#include "Dashboards/DashboardModel.h"
#include "ScreenTest.h"

#include <functional>

/// One of the three dashboards.
struct Dashboard
{
    const char* name;
    AppRole role;
    std::function<std::shared_ptr<DashboardModel>(const ScreenContext&)> make;
    QList<QString> requests; ///< in the order in which they are awaited
    QString title;
    QString subtitle;
    QString failureTitle;
    QList<QString> tiles; ///< title and symbol
    QList<QString> shortcuts; ///< title, symbol, whether it is the primary one, and where it leads
    /// What the tiles read when the requests bring so many scheduled sessions, or walk-in records.
    std::function<QList<qsizetype>(const QList<qsizetype>& counts)> tileValues;
};

void PrintTo(const Dashboard& dashboard, std::ostream* out);

/// Business, notary and admin, in this order.
const QList<Dashboard>& dashboards();

/// What holds for each of the dashboards.
class DashboardTest : public ScreenTest, public testing::WithParamInterface<Dashboard>
{
protected:
    DashboardTest();

    qsizetype perLoad() const { return GetParam().requests.size(); }

    /// Begins a load. \returns the number of its first request
    qsizetype load();

    /// So many records, of which every kind of tile that is not about open requests counts each.
    static QByteArray records(qsizetype count);

    /// Answers the requests of a load with so many records each.
    void answerAll(qsizetype first, const QList<qsizetype>& counts);

    /// What the tiles read.
    QList<QString> values() const;

    /// What they read when the requests bring so many records.
    static QList<QString> valuesFor(const QList<qsizetype>& counts);

    const QList<qsizetype> nothing{0, 0, 0};
    const QList<qsizetype> few{2, 3, 4};
    const QList<qsizetype> many{1200, 1100, 1000};
    std::shared_ptr<DashboardModel> model;
};
