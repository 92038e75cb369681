#pragma once

#include "Launch.h"
#include "Screen/ListScreenModel.h"
#include "Worker.h"

#include <QCoroFuture>

#include <algorithm>
#include <utility>

/// One of the lists of the administration, as far as its view sees it.
class AdminListModel : public ListScreenModel
{
    Q_OBJECT

public:
    /// What stands in an empty place.
    struct Placeholder
    {
        QString systemImage;
        QString title;
        QString message;
    };
    struct Texts
    {
        QString title;
        QString subtitle;
        QString searchPlaceholder;
        QString loading;
        QString cannotLoad; ///< title of the alert
        Placeholder noneFound;
        Placeholder noneSelected;
    };

    AdminListModel(const ScreenContext& context, Texts texts)
        : ListScreenModel(context), texts_(std::move(texts))
    { }

    const Texts& texts() const { return texts_; }
    void refresh() override { launch(load()); }

protected:
    QString loadFailureTitle() const override { return texts_.cannotLoad; }

private:
    Texts texts_;
};

/// A list of the administration with the records that it holds. Rows are known by the places in which their
/// records were loaded, because records may lack an id or share one.
/// \tparam Detail  an AdminDetailOf<Record>
template <typename Record, typename Detail>
class AdminListOf : public AdminListModel
{
public:
    /// What is particular about the records.
    struct Kind
    {
        Texts texts;
        QCoro::Task<QList<Record>> (APIClient::*request)(QString idToken) const;
        /// Called off the main thread.
        RowTexts (*row)(const Record& record);
        /// Whether the records of two loads are the same one.
        bool (*isSame)(const Record& a, const Record& b);
        /// Whether a selected record that a load no longer brings stays selected.
        bool keepsMissing = true;
    };

    AdminListOf(const ScreenContext& context, const Kind& kind)
        : AdminListModel(context, kind.texts), kind_(kind)
    { }
    ~AdminListOf() override { selectNone(); }

    /// The loaded records, in the bridge's order.
    const QList<Record>& records() const { return records_; }
    /// Those that pass the search and the pickers.
    QList<Record> filtered() const
    {
        QList<Record> filtered;
        filtered.reserve(rows().shown().size());
        for (const int place : rows().shown())
            filtered += records_.at(place);
        return filtered;
    }
    const std::optional<Record>& selected() const { return selected_; }
    /// The detail of the selected record; null when none is selected.
    const std::shared_ptr<Detail>& detail() const { return detail_; }

    std::shared_ptr<EditPaneModel> pane() const override { return detail_; }
    std::optional<qint64> selectedRow() const override { return selectedRow_; }
    void select(qint64 row) override;

protected:
    QCoro::Task<Store> fetch(APIClient client, QString idToken) override;

private:
    static RowListModel::Content rowsOf(const QList<Record>& records, RowTexts (*row)(const Record&));
    void show(const QList<Record>& records, const RowListModel::Content& content);
    /// The place of a record that an earlier load has brought, or of the first that is the same; or -1.
    int placeOf(const Record& record) const;
    void open(int place);
    void selectNone();
    void remove(const Detail& deleted);

    Kind kind_;
    QList<Record> records_;
    std::optional<Record> selected_;
    std::optional<qint64> selectedRow_; ///< nothing also when the selected record is not in the list
    std::shared_ptr<Detail> detail_;
};

template <typename Record, typename Detail>
QCoro::Task<typename AdminListOf<Record, Detail>::Store> AdminListOf<Record, Detail>::fetch(
    APIClient client, QString idToken)
{
    const QList<Record> received = co_await (client.*kind_.request)(idToken);
    auto deriving = [received, row = kind_.row] { return rowsOf(received, row); };
    const QFuture<RowListModel::Content> derived = onWorker(std::move(deriving));
    const RowListModel::Content content = co_await derived;
    Store store = [this, received, content] { show(received, content); };
    co_return store;
}

template <typename Record, typename Detail>
RowListModel::Content AdminListOf<Record, Detail>::rowsOf(
    const QList<Record>& records, RowTexts (*row)(const Record&))
{
    QList<RowTexts> rows;
    rows.reserve(records.size());
    for (const Record& record : records) {
        rows += row(record);
        rows.last().id = rows.size() - 1;
    }
    return RowListModel::Content::of(std::move(rows));
}

template <typename Record, typename Detail>
void AdminListOf<Record, Detail>::show(const QList<Record>& records, const RowListModel::Content& content)
{
    discardOnWorker(std::exchange(records_, records));
    rows().setContent(content);
    const int place = selected_ ? placeOf(*selected_) : -1;
    selectedRow_ = std::nullopt;
    if (place >= 0) {
        selected_ = records_.at(place);
        selectedRow_ = rows().idAt(place);
        detail_->loadFrom(*selected_);
    } else if (!kind_.keepsMissing && unfinished() == LeaveGuard::Unfinished::nothing) {
        // What is unfinished is not taken from the person, even though its record is gone.
        selectNone();
    }
    emit selectionChanged();
}

template <typename Record, typename Detail>
int AdminListOf<Record, Detail>::placeOf(const Record& record) const
{
    const auto found = std::find_if(
        records_.begin(), records_.end(), [&](const Record& loaded) { return kind_.isSame(loaded, record); });
    return found == records_.end() ? -1 : int(found - records_.begin());
}

template <typename Record, typename Detail>
void AdminListOf<Record, Detail>::select(qint64 row)
{
    const int place = rows().placeOf(row);
    if (place < 0 || row == selectedRow_)
        return;
    const std::weak_ptr<AdminListOf> weak = keep(this);
    context().leaving.leave([weak, row, record = records_.at(place)] {
        const std::shared_ptr<AdminListOf> model = weak.lock();
        if (!model)
            return;
        // While the person was asked, another load may have moved the record.
        int now = model->rows().placeOf(row);
        if (now < 0 || !model->kind_.isSame(model->records_.at(now), record))
            now = model->placeOf(record);
        if (now >= 0)
            model->open(now);
    });
}

template <typename Record, typename Detail>
void AdminListOf<Record, Detail>::open(int place)
{
    selectNone();
    selected_ = records_.at(place);
    selectedRow_ = rows().idAt(place);
    detail_ = std::make_shared<Detail>(context(), *selected_);
    connect(detail_.get(), &EditPaneModel::changed, this, [this] { loadChange(); });
    connect(
        detail_.get(), &EditPaneModel::deleted, this, [this, opened = detail_.get()] { remove(*opened); });
    emit selectionChanged();
}

template <typename Record, typename Detail>
void AdminListOf<Record, Detail>::selectNone()
{
    if (detail_)
        detail_->close();
    detail_ = nullptr;
    selected_ = std::nullopt;
    selectedRow_ = std::nullopt;
}

/// A record that has been deleted leaves the list at once, whatever becomes of the next load.
template <typename Record, typename Detail>
void AdminListOf<Record, Detail>::remove(const Detail& deleted)
{
    const int place = placeOf(deleted.record());
    if (place >= 0) {
        records_.removeAt(place);
        rows().remove(rows().idAt(place));
    }
    if (detail_.get() == &deleted)
        selectNone();
    emit selectionChanged();
    loadChange();
}
