#include "Lists/ListDetailView.h"

#include "Components/EmptyStateView.h"
#include "Components/LoadingLine.h"
#include "Components/PlainLabel.h"
#include "Components/SearchField.h"
#include "Components/SoftDivider.h"
#include "Layouts.h"
#include "Lists/RowListView.h"
#include "Paint.h"
#include "Palette.h"
#include "PaneKeys.h"
#include "PlainText.h"
#include "Shell/ContentPane.h"
#include "Spacing.h"
#include "TabOrder.h"
#include "Type.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStackedLayout>
#include <QStyle>

namespace {

constexpr double listShare = 0.375;
constexpr int listLeast = 312;
constexpr int listMost = 400;
constexpr int headerPadding = 16;

} // namespace

ListDetailView::ListDetailView(
    const Texts& texts, RowListModel& rows, const ListRowDelegate::Options& rowShape, QWidget* parent)
    : QWidget(parent), pane_(new QWidget(this)), title_(new PlainLabel(texts.title, Type::title)),
      titleRow_(Layouts::row(Spacing::buttons)), subtitle_(new PlainLabel({}, Type::small, Brand::steel)),
      search_(new SearchField(texts.searchPlaceholder)), filters_(Layouts::row(Spacing::fieldsAcross)),
      list_(new RowListView(texts.title, rows, rowShape)), listArea_(new QStackedLayout)
{
    auto* column = Layouts::column(0, {makeHeader(), new SoftDivider});
    column->addWidget(makeListArea(texts), 1);
    pane_->setLayout(column);
    PaneKeys::mark(pane_);
    search_->installEventFilter(this);
    connect(&rows, &QAbstractItemModel::modelReset, this, &ListDetailView::updateListArea);
    updateListArea();
}

QWidget* ListDetailView::makeHeader()
{
    auto* column = Layouts::column(0);
    titleRow_->addWidget(title_, 1);
    column->addLayout(titleRow_);
    column->setContentsMargins(headerPadding, 20, headerPadding, 12);
    column->addSpacing(4);
    column->addWidget(subtitle_);
    column->addSpacing(12);
    column->addWidget(search_);
    column->addLayout(filters_);
    return Layouts::holding(column);
}

QWidget* ListDetailView::makeListArea(const Texts& texts)
{
    auto* loading = Layouts::column(0, {new LoadingLine(texts.loading)});
    loading->setContentsMargins(headerPadding, headerPadding, headerPadding, headerPadding);
    loading->addStretch();
    loadingPlace_ = Layouts::holding(loading);
    emptyPlace_ = new EmptyStateView(texts.emptyIcon, texts.emptyTitle, texts.emptyMessage);
    emptyPlace_->centreOn(pane_);
    // A stack without a widget would show its first page as a window of its own.
    QWidget* area = Layouts::holding(listArea_);
    listArea_->addWidget(list_);
    listArea_->addWidget(loadingPlace_);
    listArea_->addWidget(emptyPlace_);
    return area;
}

void ListDetailView::setSubtitle(const QString& subtitle)
{
    subtitle_->setText(subtitle);
}

void ListDetailView::addAction(QWidget* button)
{
    titleRow_->addWidget(button, 0, Qt::AlignLeft | Qt::AlignVCenter);
    actions_ += button;
    arrangeTitle();
}

/// Where the Tab key comes from to a control; null when nothing else takes the focus.
static QWidget* stopBefore(const QWidget* control)
{
    QWidget* stop = control->previousInFocusChain();
    while (stop != control && !(stop->focusPolicy() & Qt::TabFocus))
        stop = stop->previousInFocusChain();
    return stop == control ? nullptr : stop;
}

/// The buttons were made later than the search, and stand before it.
void ListDetailView::showEvent(QShowEvent*)
{
    for (QWidget* action : std::as_const(actions_)) {
        QWidget* before = stopBefore(search_);
        if (before && before != action)
            setTabOrder(before, action);
    }
}

/// In a large text size the buttons go below the title.
void ListDetailView::arrangeTitle()
{
    int needed = PlainText::width(title_->text(), Type::title);
    for (int i = 1; i < titleRow_->count(); ++i)
        needed += titleRow_->spacing() + titleRow_->itemAt(i)->sizeHint().width();
    const bool fits = needed <= pane_->width() - 2 * headerPadding;
    titleRow_->setDirection(fits ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
}

void ListDetailView::addFilter(QWidget* filter)
{
    filters_->setContentsMargins(0, Spacing::fieldsAcross, 0, 0);
    filters_->addWidget(filter);
    TabOrder::append(search_, {filter});
}

void ListDetailView::setLoading(bool loading)
{
    loading_ = loading;
    updateListArea();
}

void ListDetailView::updateListArea()
{
    QWidget* shown = list_;
    if (list_->model()->rowCount() == 0)
        shown = loading_ ? loadingPlace_ : emptyPlace_;
    // In large text the header needs the room that the hidden ones would ask for.
    for (QWidget* place : {static_cast<QWidget*>(list_), loadingPlace_, static_cast<QWidget*>(emptyPlace_)})
        place->setSizePolicy(
            QSizePolicy::Preferred, place == shown ? QSizePolicy::Preferred : QSizePolicy::Ignored);
    listArea_->setCurrentWidget(shown);
}

void ListDetailView::setDetail(QWidget* detail)
{
    if (detail_) {
        // Before its place disappears: a focus left to itself would move on to anything in the window.
        if (PaneKeys::focusWithin(detail_))
            focusList();
        detail_->hide();
        detail_->deleteLater();
    }
    detail_ = detail;
    detail_->setParent(this);
    PaneKeys::mark(detail_);
    arrange();
    detail_->show();
}

/// Where somebody goes on whose field or button went with a detail. No row becomes the current one by that.
void ListDetailView::focusList()
{
    if (listArea_->currentWidget() == list_)
        list_->setFocus(Qt::MouseFocusReason);
    else
        search_->setFocus(Qt::OtherFocusReason);
}

/// From the search, the arrow and page keys go on in the list.
bool ListDetailView::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == search_ && event->type() == QEvent::KeyPress) {
        const auto key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Down || key == Qt::Key_PageDown) {
            list_->setFocus(Qt::TabFocusReason);
            if (!list_->currentIndex().isValid())
                list_->setCurrentIndex(list_->model()->index(0, 0));
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void ListDetailView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area = pane_->geometry();
    painter.fillPath(
        Paint::leadingCorner(area, ContentPane::innerRadius, layoutDirection()), Palette::color(Brand::card));
    painter.fillRect(QStyle::visualRect(layoutDirection(), rect(), QRect(pane_->width(), 0, 1, height())),
        Palette::color(Brand::line));
}

void ListDetailView::resizeEvent(QResizeEvent*)
{
    arrange();
}

/// Large text makes the list wider than the design, up to half of the room.
void ListDetailView::arrange()
{
    const int least = std::min(Type::scaled(listLeast), std::max(listLeast, width() / 2));
    const int most = std::max(least, Type::scaled(listMost));
    const int paneWidth = std::clamp(qRound(width() * listShare), least, most);
    const auto place
        = [this](const QRect& area) { return QStyle::visualRect(layoutDirection(), rect(), area); };
    pane_->setGeometry(place(QRect(0, 0, paneWidth, height())));
    arrangeTitle();
    if (detail_)
        detail_->setGeometry(place(rect().adjusted(paneWidth + 1, 0, 0, 0)));
}
