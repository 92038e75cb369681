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
/// The same for rows that may wrap, without counting the chip.
constexpr int wrappedBelow = 240;
constexpr int mostLines = 2;
constexpr int metaEdge = 14;
constexpr int besideMeta = 6;
constexpr int abovePill = 4;
/// A pill never takes more than this share of the row, so that the title stays readable.
constexpr int pillShare = 2;

void paintBackground(QPainter& painter, const QRect& area, QStyle::State state)
{
    const bool selected = state & QStyle::State_Selected;
    const bool focused = state & QStyle::State_HasFocus;
    const bool isOutlined = focused || (selected && Palette::hasHighContrast());
    const auto focusEdge = isOutlined ? Palette::color(Brand::blue) : QColor();
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
    int bottom = 0; ///< under the last of the texts
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
    const int room = roomForTexts({0, 0, width, 0}).width();
    const int chip = options_.chip ? Type::scaled(chipEdge) + chipGap : 0;
    const bool isNarrow
        = room < Type::scaled(stackedBelow) || (options_.wraps && room + chip < Type::scaled(wrappedBelow));
    const bool wasStacked = std::exchange(isStacked_, hasBeside && isNarrow);
    const int oldWidth = std::exchange(width_, width);
    return wasStacked != isStacked_ || (wraps() && width != oldWidth);
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

int ListRowDelegate::heightOf(const QString& text, const Type::Style& style, int width) const
{
    return (wraps() ? PlainText::lines(text, style, width, mostLines) : 1) * Type::lineHeight(style);
}

QString ListRowDelegate::textOn(const ListRow& row, int line) const
{
    return isMeta(line) ? row.meta : row.lines.value(line, row.meta);
}

QSize ListRowDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex& index) const
{
    if (wraps() && index.isValid()) {
        const Places places = placesOf(reader_(index), {0, 0, width_, 0});
        return {0, places.bottom + options_.padding + rowGap()};
    }
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
    const int first = qMax(firstLineHeight(), heightOf(row.title, Type::strong, inner.width()));
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
    for (int line = 0; line < options_.textLines; ++line) {
        const int indent = isMeta(line) ? Type::scaled(metaEdge) + besideMeta : 0;
        if (isMeta(line))
            top += metaGap;
        const int height = heightOf(textOn(row, line), Type::small, linesRight + 1 - inner.left() - indent);
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
    const int texts = top + heightUnder() - inner.top();
    places.bottom = inner.top() + (options_.chip ? qMax(texts, Type::scaled(chipEdge)) : texts);
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
    PlainText::drawLines(*painter, visual(places.title), row.title, Type::strong, Palette::color(Brand::ink));
    if (row.showsPill()) {
        const QRect box(places.pillTopRight.x() - places.pillWidth, places.pillTopRight.y(), places.pillWidth,
            Height::pill());
        const auto shown = visual(box);
        StatusPill::draw(*painter, {qreal(shown.right() + 1), qreal(shown.top())}, row.pill, shown.width());
    }
    const auto steel = Palette::color(Brand::steel);
    for (int line = 0; line < places.lines.size(); ++line) {
        auto box = places.lines[line];
        if (isMeta(line)) {
            const int edge = Type::scaled(metaEdge);
            const int middle = box.top() + Type::lineHeight(Type::small) / 2;
            const QRect icon(box.left(), middle - edge / 2, edge, edge);
            if (!row.metaSymbol.isEmpty())
                Symbols::paint(*painter, visual(icon), row.metaSymbol, steel);
            box.setLeft(icon.right() + 1 + besideMeta);
        }
        PlainText::drawLines(*painter, visual(box), textOn(row, line), Type::small, steel);
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
    QStringList cut;
    const auto note = [&cut](const QString& text, const Type::Style& style, const QRect& box) {
        const int room = box.height() / Type::lineHeight(style);
        if (PlainText::lines(text, style, box.width(), room + 1) > room)
            cut += text;
    };
    note(row.title, Type::strong, places.title);
    for (int line = 0; line < places.lines.size(); ++line) {
        const int indent = isMeta(line) ? Type::scaled(metaEdge) + besideMeta : 0;
        note(textOn(row, line), Type::small, places.lines[line].adjusted(indent, 0, 0, 0));
    }
    if (cut.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(event->globalPos(), PlainText::toolTip(cut.join(u'\n')), view);
    return true;
}
