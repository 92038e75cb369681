#pragma once

#include "ListRow.h"
#include "Type.h"

#include <QStyledItemDelegate>

#include <functional>

/// Draws the rows of a list. Every row of a list is equally high, whatever its texts; what does not fit is
/// elided and shown whole in a tool tip. In a narrow list, which large text makes of most, what stands beside
/// the texts otherwise stands under them, and rows that may wrap are as high as their texts need.
class ListRowDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /// Between the edge of a row and what stands in it, in pixels.
    static constexpr int roomAcross = 10;

    enum class Pill
    {
        none, ///< in no row of the list
        besideTitle,
        centred, ///< beside all lines
    };
    struct Options
    {
        int textLines = 2; ///< under the title, the meta line included
        bool metaLine = false; ///< whether the last of them is a meta line
        bool chip = false;
        bool chevron = true;
        Pill pill = Pill::besideTitle;
        int padding = 12; ///< above and below the texts
        int gap = 2; ///< between a row and the next one
        bool word = false; ///< whether the rows have a word at the end of their last line
        bool onlyRead = false; ///< a line between the rows, and neither highlights nor room between them
        bool wraps = false; ///< whether texts take two lines where the list is narrow, before they elide
        int trailingRoom = 0; ///< left free at the trailing end, for a control of its own
    };
    using Reader = std::function<ListRow(const QModelIndex&)>;

    /// \param reader  gives a row's texts; called for rows on screen only
    ListRowDelegate(Reader reader, const Options& options, QObject* parent = nullptr);

    /// Whether the current row of a focused list is outlined; a list that was clicked need not say so.
    void setShowsFocus(bool shows) { showsFocus_ = shows; }
    /// \param width  of the rows, in pixels
    /// \returns whether this may make rows of another height
    bool setWidth(int width);
    /// Whether the rows are as high as their texts need, instead of all alike.
    bool wraps() const { return options_.wraps && isStacked_; }

    void paint(
        QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
        const QModelIndex& index) override;

private:
    struct Places;
    Places placesOf(const ListRow& row, const QRect& area) const;
    /// Between chip and chevron.
    QRect roomForTexts(const QRect& row) const;
    int firstLineHeight() const;
    /// Of one text, in pixels.
    int heightOf(const QString& text, const Type::Style& style, int width) const;
    /// What stands on a line under the title.
    QString textOn(const ListRow& row, int line) const;
    bool isMeta(int line) const { return options_.metaLine && line == options_.textLines - 1; }
    /// Of what stands under the texts where there is no room beside them, with the room above it.
    int heightUnder() const;
    /// Between the texts of a row and the next row.
    int rowGap() const;
    void paintDivider(QPainter& painter, const QRect& row) const;

    Reader reader_;
    Options options_;
    bool showsFocus_ = true;
    bool isStacked_ = false;
    int width_ = 0; ///< of the rows
};
