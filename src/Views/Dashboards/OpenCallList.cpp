#include "Dashboards/OpenCallList.h"

#include "Components/PrimaryButton.h"
#include "Launch.h"
#include "Layouts.h"
#include "Lists/RowListView.h"

#include <QEvent>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace {

Button* acceptButton()
{
    auto* button = new PrimaryButton(u"Accept"_s);
    button->setButtonSize(Button::Size::small);
    return button;
}

/// What a button takes when it is widest: while it works.
int widestButton()
{
    const std::unique_ptr<Button> button(acceptButton());
    button->setLoading(true);
    return button->sizeHint().width();
}

ListRowDelegate::Options openCallRows()
{
    ListRowDelegate::Options shape;
    shape.chevron = false;
    shape.pill = ListRowDelegate::Pill::none;
    shape.gap = 0;
    shape.trailingRoom = widestButton() + ListRowDelegate::roomAcross;
    return shape;
}

} // namespace

OpenCallList::OpenCallList(std::shared_ptr<NotaryDashboardModel> model, QWidget* parent)
    : QWidget(parent), model_(std::move(model)),
      list_(new RowListView(u"Open Calls"_s, model_->openCallRows(), openCallRows()))
{
    list_->setShowsAllRows(true);
    setLayout(Layouts::column(0, {list_}));
    // Whatever comes into sight is painted, be it by scrolling, by a resize or by a card above that shrinks.
    list_->viewport()->installEventFilter(this);
    connect(&model_->openCallRows(), &QAbstractItemModel::modelReset, this, &OpenCallList::replace);
    connect(list_->selectionModel(), &QItemSelectionModel::currentChanged, this, &OpenCallList::place);
    connect(model_.get(), &NotaryDashboardModel::acceptingChanged, this, &OpenCallList::place);
}

bool OpenCallList::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Paint)
        placeLater();
    return QWidget::eventFilter(watched, event);
}

void OpenCallList::placeLater()
{
    if (std::exchange(willPlace_, true))
        return;
    const auto placeNow = [this] {
        willPlace_ = false;
        place();
    };
    QMetaObject::invokeMethod(this, placeNow, Qt::QueuedConnection);
}

std::set<int> OpenCallList::rowsWithButton() const
{
    std::set<int> rows;
    const int rowCount = model_->openCallRows().rowCount();
    const QRect inSight = list_->viewport()->visibleRegion().boundingRect();
    if (rowCount > 0 && !inSight.isEmpty()) {
        // As much again above and below, so that buttons are there before scrolling shows their rows.
        const int rowHeight = list_->visualRect(list_->model()->index(0, 0)).height();
        const int first = (inSight.top() - inSight.height()) / rowHeight;
        const int last = (inSight.bottom() + inSight.height()) / rowHeight;
        for (int row = qMax(first, 0); row <= qMin(last, rowCount - 1); ++row)
            rows.insert(row);
    }
    if (list_->currentIndex().isValid())
        rows.insert(list_->currentIndex().row());
    return rows;
}

/// Gives every row that is to have one its button, as it should look now.
void OpenCallList::place()
{
    const std::set<int> rows = rowsWithButton();
    std::erase_if(calls_, [&rows](const auto& entry) {
        const bool goes = !rows.contains(entry.first) && !entry.second.button->hasFocus();
        if (goes)
            drop(entry.second);
        return goes;
    });
    for (const int row : rows) {
        if (!calls_.contains(row))
            calls_.emplace(row, makeCall(row));
        update(calls_.at(row), row);
    }
}

OpenCallList::Call OpenCallList::makeCall(int row)
{
    const QModelIndex index = list_->model()->index(row, 0);
    const qint64 id = index.data(RowListModel::IdRole).toLongLong();
    auto* button = acceptButton();
    button->setParent(this);
    button->setAccessibleName(button->title() + u' ' + index.data(RowListModel::TitleRole).toString());
    connect(button, &Button::clicked, this, [this, id] {
        model_->select(id);
        launch(model_->accept(id));
    });
    setTabOrder(list_, button);
    button->show();
    return {id, button};
}

void OpenCallList::update(const Call& call, int row)
{
    const auto& [id, button] = call;
    button->setLoading(model_->isAccepting(id));
    button->setFocusPolicy(row == list_->currentIndex().row() ? Qt::StrongFocus : Qt::ClickFocus);
    const QRect area = list_->visualRect(list_->model()->index(row, 0))
                           .translated(list_->viewport()->mapTo(this, QPoint()));
    const QRect inner = area.adjusted(ListRowDelegate::roomAcross, 0, -ListRowDelegate::roomAcross, 0);
    button->setGeometry(
        QStyle::alignedRect(layoutDirection(), Qt::AlignRight | Qt::AlignVCenter, button->sizeHint(), inner));
}

/// The rows are others: so are the buttons. The keyboard focus stays with its call, or else with the list.
void OpenCallList::replace()
{
    const std::map<int, Call> before = std::exchange(calls_, {});
    place();
    for (const auto& [row, call] : before) {
        if (call.button->hasFocus()) {
            const auto same = calls_.find(model_->openCallRows().rowOf(call.id));
            if (same != calls_.end())
                same->second.button->setFocus(Qt::OtherFocusReason);
            else
                list_->setFocus(
                    Qt::MouseFocusReason); // no row becomes current: the selection went with the call
        }
        drop(call);
    }
}

void OpenCallList::drop(const Call& call)
{
    call.button->hide();
    call.button->deleteLater();
}
