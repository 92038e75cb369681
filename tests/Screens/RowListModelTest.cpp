#include "Screen/RowListModel.h"

#include "Printing.h"

#include <QAbstractItemModelTester>

#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

using namespace Qt::StringLiterals;

namespace {

RowTexts row(qint64 id, const QString& title, const QString& filter = {})
{
    RowTexts texts;
    texts.id = id;
    texts.title = title;
    texts.search = title;
    texts.filter = filter;
    return texts;
}

QList<qint64> ids(const RowListModel& model)
{
    QList<qint64> ids;
    for (int i = 0; i < model.rowCount(); ++i)
        ids += model.data(model.index(i), RowListModel::IdRole).toLongLong();
    return ids;
}

class RowListModelTest : public testing::Test
{
protected:
    RowListModelTest()
    {
        model.setContent(RowListModel::Content::of({row(7, u"Anna"_s, u"scheduled"_s),
            row(3, u"Bertha"_s, u"requested"_s), row(9, u"Hannah"_s, u"requested"_s)}));
    }

    static bool isRequested(const QString& filter) { return filter == u"requested"_s; }

    RowListModel model;
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(RowListModelTest, ShowsRowsInLoadOrder)
{
    EXPECT_EQ(ids(model), (QList<qint64>{7, 3, 9}));
}

TEST_F(RowListModelTest, ShowsWhatPassesSearchAndFilter)
{
    model.setSearch(u"ANN"_s);
    EXPECT_EQ(ids(model), (QList<qint64>{7, 9}));
    model.setFilter(isRequested);
    EXPECT_EQ(ids(model), (QList<qint64>{9}));
    EXPECT_EQ(model.shown(), (QList<int>{2}));
    model.setSearch({});
    EXPECT_EQ(ids(model), (QList<qint64>{3, 9}));
    model.setFilter({});
    EXPECT_EQ(ids(model), (QList<qint64>{7, 3, 9}));
}

TEST_F(RowListModelTest, NewContentKeepsSearchAndFilter)
{
    model.setSearch(u"ann"_s);
    model.setFilter(isRequested);
    model.setContent(RowListModel::Content::of({row(1, u"Joanna"_s, u"requested"_s),
        row(2, u"Anna"_s, u"done"_s), row(4, u"Carl"_s, u"requested"_s)}));
    EXPECT_EQ(ids(model), (QList<qint64>{1}));
}

TEST_F(RowListModelTest, FindsTheShownRowOfARecord)
{
    EXPECT_EQ(model.rowOf(9), 2);
    model.setSearch(u"hannah"_s);
    EXPECT_EQ(model.rowOf(9), 0);
    EXPECT_EQ(model.rowOf(7), -1) << "hidden by the search";
    EXPECT_EQ(model.rowOf(4711), -1);
}

TEST_F(RowListModelTest, HandsOutEveryText)
{
    RowTexts texts = row(5, u"Title"_s);
    texts.secondary = u"Second"_s;
    texts.metaIcon = u"doc.fill"_s;
    texts.meta = u"Third"_s;
    texts.pill = u"requested"_s;
    model.setContent(RowListModel::Content::of({texts}));
    const QModelIndex first = model.index(0);
    EXPECT_EQ(first.data(RowListModel::TitleRole).toString(), u"Title"_s);
    EXPECT_EQ(first.data(RowListModel::IdRole).toLongLong(), 5);
    EXPECT_EQ(first.data(RowListModel::SecondaryRole).toString(), u"Second"_s);
    EXPECT_EQ(first.data(RowListModel::MetaIconRole).toString(), u"doc.fill"_s);
    EXPECT_EQ(first.data(RowListModel::MetaRole).toString(), u"Third"_s);
    EXPECT_EQ(first.data(RowListModel::PillRole).toString(), u"requested"_s);
    EXPECT_EQ(first.data(Qt::AccessibleTextRole).toString(), u"Title, Second, Third, requested"_s);
    EXPECT_FALSE(first.data(Qt::DecorationRole).isValid());
}

TEST_F(RowListModelTest, SpeaksOnlyTextsThatAreThere)
{
    model.setContent(RowListModel::Content::of({row(5, u"Title"_s)}));
    EXPECT_EQ(model.index(0).data(Qt::AccessibleTextRole).toString(), u"Title"_s);
}

/// Any sequence of changes leaves a model that the item-model tester accepts.
RC_GTEST_PROP(RowListModelProperty, StaysAValidModel, ())
{
    RowListModel model;
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    const auto steps = *rc::gen::container<std::vector<int>>(rc::gen::inRange(0, 12));
    for (const int step : steps) {
        QList<RowTexts> rows;
        for (int i = 0; i < step; ++i)
            rows += row(i, QString::number(i), QString::number(i % 2));
        switch (step % 3) {
        case 0:
            model.setContent(RowListModel::Content::of(rows));
            break;
        case 1:
            model.setSearch(step < 6 ? QString::number(step) : QString());
            break;
        default:
            model.setFilter(
                [odd = QString::number(step % 2)](const QString& filter) { return filter == odd; });
        }
        RC_ASSERT(model.rowCount() == int(model.shown().size()));
    }
}

} // namespace
