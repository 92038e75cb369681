#include "ListRowDelegate.h"

#include "Chip.h"
#include "Paint.h"
#include "Palette.h"
#include "PlainText.h"
#include "Spacing.h"
#include "StatusPill.h"
#include "Symbols.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int dividerHeight = 1;
constexpr int metaGap = 4;
constexpr int textGap = 10;
constexpr int chipGap = 12;
constexpr int chipEdge = 36;
constexpr int chevronEdge = 12;
constexpr int barWidth = 3;
constexpr int barInset = 12;
/// Room for texts, in pixels of the design, below which nothing stands beside them any more.
constexpr int stackedBelow = 180;
constexpr int abovePill = 4;
/// A pill never takes more than this share of the row, so that the title stays readable.
constexpr int pillShare = 2;

void paintBackground(QPainter& painter, const QRect& area, QStyle::State state)
{
    const bool selected = state & QStyle::State_Selected;
    const bool focused = state & QStyle::State_HasFocus;
    const auto focusEdge = focused ? Palette::color(Brand::blue) : QColor();
    if (selected) {
        Paint::roundedRect(painter, area, Radius::block, Palette::color(Brand::softBlue), focusEdge, 2);
        QRect bar(area.left(), area.top() + barInset, barWidth, area.height() - 2 * barInset);
        if (painter.layoutDirection() == Qt::RightToLeft)
            bar.moveRight(area.right());
        Paint::roundedRect(painter, bar, barWidth / 2.0, Palette::color(Brand::blue));
    } else if (state & QStyle::State_MouseOver) {
        Paint::roundedRect(painter, area, Radius::block, Palette::color(Brand::panel),
            focused ? focusEdge : Palette::color(Brand::line), focused ? 2 : 1);
    } else if (focused) {
        Paint::roundedRect(painter, area, Radius::block, Qt::transparent, focusEdge, 2);
    }
}

} // namespace

static Chip::Look chipLook(const ListRow& row, QStyle::State state)
{
    if (row.isIdle)
        return Chip::Look::idle;
    return state & QStyle::State_Selected ? Chip::Look::plain : Chip::Look::soft;
}

/// Where the parts of a row are, from left to right; mirrored when painted.
struct ListRowDelegate::Places
{
    QRect row; ///< without the room between rows
    QRect chip;
    QRect title;
    QPoint pillTopRight;
    int pillWidth = 0;
    QRect chevron;
    QList<QRect> lines;
    QRect word;
};

ListRowDelegate::ListRowDelegate(Reader reader, const Options& options, QObject* parent)
    : QStyledItemDelegate(parent), reader_(std::move(reader)), options_(options)
{ }

int ListRowDelegate::firstLineHeight() const
{
    const int title = Type::lineHeight(Type::strong);
    const bool besidePill = options_.pill == Pill::besideTitle && !isStacked_;
    return besidePill ? qMax(title, Height::pill()) : title;
}

int ListRowDelegate::heightUnder() const
{
    if (!isStacked_)
        return 0;
    return options_.word ? Type::lineHeight(Type::caption) : abovePill + Height::pill();
}

bool ListRowDelegate::setWidth(int width)
{
    const bool hasBeside = options_.pill == Pill::besideTitle || options_.word;
    const bool isStacked = hasBeside && roomForTexts({0, 0, width, 0}).width() < Type::scaled(stackedBelow);
    return isStacked != std::exchange(isStacked_, isStacked);
}

QRect ListRowDelegate::roomForTexts(const QRect& row) const
{
    QRect room
        = row.adjusted(roomAcross, options_.padding, -roomAcross - options_.trailingRoom, -options_.padding);
    if (options_.chip)
        room.setLeft(room.left() + Type::scaled(chipEdge) + chipGap);
    if (options_.chevron)
        room.setRight(room.right() - Type::scaled(chevronEdge) - textGap - 2);
    return room;
}

int ListRowDelegate::rowGap() const
{
    return options_.onlyRead ? dividerHeight : options_.gap;
}

QSize ListRowDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const
{
    int texts = firstLineHeight() + options_.textLines * Type::lineHeight(Type::small);
    if (options_.metaLine)
        texts += metaGap;
    texts += heightUnder();
    const int content = options_.chip ? qMax(texts, Type::scaled(chipEdge)) : texts;
    return {0, content + 2 * options_.padding + rowGap()};
}

ListRowDelegate::Places ListRowDelegate::placesOf(const ListRow& row, const QRect& area) const
{
    Places places;
    places.row = area.adjusted(0, 0, 0, -rowGap());
    const QRect inner = roomForTexts(places.row);
    const auto centred = [&places](int left, int edge) {
        return QRect(left, places.row.center().y() - edge / 2 + 1, edge, edge);
    };
    places.chip = centred(places.row.left() + roomAcross, Type::scaled(chipEdge));
    places.chevron = centred(inner.right() + 1 + textGap + 2, Type::scaled(chevronEdge));
    const int first = firstLineHeight();
    places.title = QRect(inner.left(), inner.top(), inner.width(), first);
    int linesRight = inner.right();
    const int pillWidth
        = row.showsPill() ? PlainText::width(StatusPill::wording(row.pill), Type::group) + 20 : 0;
    if (pillWidth > 0 && !isStacked_) {
        places.pillWidth = qMin(pillWidth, inner.width() / pillShare);
        const bool besideAll = options_.pill == Pill::centred;
        const int top = besideAll ? places.row.center().y() - Height::pill() / 2 + 1
                                  : inner.top() + (first - Height::pill()) / 2;
        places.pillTopRight = {inner.right() + 1, top};
        places.title.setRight(inner.right() - places.pillWidth - textGap);
        if (besideAll)
            linesRight = places.title.right();
    }
    int top = inner.top() + first;
    const int height = Type::lineHeight(Type::small);
    for (int line = 0; line < options_.textLines; ++line) {
        if (options_.metaLine && line == options_.textLines - 1)
            top += metaGap;
        places.lines += QRect(QPoint(inner.left(), top), QPoint(linesRight, top + height - 1));
        top += height;
    }
    if (isStacked_) {
        places.pillWidth = qMin(pillWidth, inner.width());
        places.pillTopRight = {inner.left() + places.pillWidth, top + abovePill};
        places.word = QRect(inner.left(), top, inner.width(), Type::lineHeight(Type::caption));
    } else if (!row.trailing.isEmpty()) {
        QRect& last = places.lines.last();
        const int width = qMin(PlainText::width(row.trailing, Type::caption), last.width() / 2);
        places.word = QRect(last.right() - width + 1, last.top(), width, last.height());
        last.setRight(places.word.left() - 1 - textGap);
    }
    return places;
}

void ListRowDelegate::paintDivider(QPainter& painter, const QRect& row) const
{
    const QRect line(row.left() + roomAcross, row.bottom() + 1, row.width() - 2 * roomAcross, dividerHeight);
    painter.fillRect(line, Palette::color(Brand::line));
}

void ListRowDelegate::paint(
    QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const auto row = reader_(index);
    auto places = placesOf(row, option.rect);
    const auto visual
        = [&](const QRect& box) { return QStyle::visualRect(option.direction, option.rect, box); };
    const bool mirrored = option.direction == Qt::RightToLeft;
    painter->save();
    painter->setLayoutDirection(option.direction);
    auto state = option.state;
    state.setFlag(QStyle::State_HasFocus, showsFocus_ && state & QStyle::State_HasFocus);
    const bool isLast = index.isValid() && index.row() == index.model()->rowCount() - 1;
    if (!options_.onlyRead)
        paintBackground(*painter, places.row, state);
    else if (!isLast)
        paintDivider(*painter, places.row);
    if (options_.chip)
        Chip::draw(*painter, visual(places.chip), row.chip, chipLook(row, option.state));
    PlainText::draw(*painter, visual(places.title), row.title, Type::strong, Palette::color(Brand::ink));
    if (row.showsPill()) {
        const QRect box(places.pillTopRight.x() - places.pillWidth, places.pillTopRight.y(), places.pillWidth,
            Height::pill());
        const auto shown = visual(box);
        StatusPill::draw(*painter, {qreal(shown.right() + 1), qreal(shown.top())}, row.pill, shown.width());
    }
    const auto steel = Palette::color(Brand::steel);
    for (int line = 0; line < places.lines.size(); ++line) {
        auto box = places.lines[line];
        const bool last = line == places.lines.size() - 1;
        if (last && options_.metaLine) {
            const int edge = Type::scaled(14);
            const QRect icon(box.left(), box.center().y() - edge / 2 + 1, edge, edge);
            if (!row.metaSymbol.isEmpty())
                Symbols::paint(*painter, visual(icon), row.metaSymbol, steel);
            box.setLeft(icon.right() + 1 + 6);
            PlainText::draw(*painter, visual(box), row.meta, Type::small, steel);
        } else {
            PlainText::draw(*painter, visual(box), row.lines.value(line, row.meta), Type::small, steel);
        }
    }
    if (!row.trailing.isEmpty())
        PlainText::draw(*painter, visual(places.word), row.trailing, Type::caption, steel);
    if (options_.chevron)
        Symbols::paint(*painter, visual(places.chevron), mirrored ? u"chevron.left"_s : u"chevron.right"_s,
            Palette::color(Brand::muted));
    painter->restore();
}

bool ListRowDelegate::helpEvent(
    QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option, const QModelIndex& index)
{
    if (event->type() != QEvent::ToolTip || !index.isValid())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    const auto row = reader_(index);
    const auto places = placesOf(row, option.rect);
    const bool cut = PlainText::width(row.title, Type::strong) > places.title.width();
    if (cut)
        QToolTip::showText(event->globalPos(), PlainText::toolTip(row.title), view);
    else
        QToolTip::hideText();
    return true;
}
