#pragma once

#include "Dashboards/NotaryDashboardModel.h"

#include <QWidget>

#include <map>
#include <set>

class Button;
class RowListView;

/// The open calls, each with a button that accepts it. Buttons are there for the calls in and near sight
/// only, and for the current one: however long the list, it is one stop of the Tab key, and the button of its
/// current row is the next.
class OpenCallList : public QWidget
{
    Q_OBJECT

public:
    explicit OpenCallList(std::shared_ptr<NotaryDashboardModel> model, QWidget* parent = nullptr);

    RowListView* list() const { return list_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Call
    {
        qint64 id;
        Button* button;
    };

    std::set<int> rowsWithButton() const;
    void placeLater();
    void place();
    void replace();
    Call makeCall(int row);
    void update(const Call& call, int row);
    static void drop(const Call& call);

    std::shared_ptr<NotaryDashboardModel> model_;
    RowListView* list_;
    std::map<int, Call> calls_; ///< those with a button, by row
    bool willPlace_ = false;
};
