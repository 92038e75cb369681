#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QWidget>

#include <vector>

class QScrollArea;

/// Rows under one another in a scroll area. There may be thousands: only those in view exist as widgets, and
/// the few that the Tab key can reach from where the focus is. A row that does not exist counts with an
/// estimated height; what is in view stays where it is when an estimate turns out to be wrong.
///
/// Rows are known by keys. A row whose key stays keeps its widget, with focus, cursor and selection.
class LazyColumn : public QWidget
{
    Q_OBJECT

public:
    using Key = QByteArray;

    qsizetype count() const { return keys_.size(); }
    /// The widget of a row; null while it does not exist.
    QWidget* row(qsizetype index) const { return rows_.value(keys_.at(index)); }
    /// The place of a row that exists, or -1.
    qsizetype indexOf(const QWidget* row) const;
    /// The row that has the focus, or -1.
    qsizetype focusedRow() const;
    /// The first and the last row of which something is in view.
    std::pair<qsizetype, qsizetype> rowsInView() const;
    /// Scrolls a row into view, which exists then; a row higher than the view with its upper end.
    void reveal(qsizetype index);
    /// Scrolls up or down (negative or positive) as long as more of the row comes into view.
    /// \returns whether more of it came
    bool revealMore(qsizetype index, int pixels);

    /// Keeps the end in view as rows come and grow, until the person scrolls away from it.
    void setFollowsEnd(bool follows);
    void scrollToEnd();

signals:
    /// In pixels; so high is the whole column now.
    void heightChanged(int height);

protected:
    /// \param page  in which the column scrolls
    /// \param gap  between rows, in pixels
    LazyColumn(QScrollArea& page, int gap, QWidget* parent);

    /// The rows from top to bottom. The keys differ from one another.
    void setKeys(const QList<Key>& keys);

    /// A child of this column.
    virtual QWidget* makeRow(qsizetype index) = 0;
    /// Unless told better, that rows are much alike.
    virtual int estimatedHeight(qsizetype index, int width) const;
    /// What Tab goes through in a row, at least one control. The first gets the focus of a removed neighbour.
    virtual QList<QWidget*> tabStops(QWidget* row) const = 0;

    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    /// What stays in its place while heights change.
    struct Anchor
    {
        qsizetype row = -1;
        double above = 0; ///< share of the row that is out of view
    };

    void scrolled();
    void rangeChanged();
    void rowsChanged();
    void moveFocusFromRemoved(const QHash<Key, qsizetype>& staying);
    Anchor anchor() const;
    void arrange(Anchor anchor);
    void layOut();
    int restore(Anchor anchor);
    QList<qsizetype> neededRows(int top) const;
    bool measure(const QList<qsizetype>& needed);
    void place(const QList<qsizetype>& needed);
    qsizetype rowAt(int y) const;
    int viewTop() const;
    void scrollBy(int pixels);

    QScrollArea& page_;
    int gap_;
    QList<Key> keys_;
    QHash<Key, qsizetype> places_; ///< of the keys
    QHash<Key, QWidget*> rows_; ///< those that exist
    std::vector<int> heights_; ///< as measured at the present width, or unknown
    std::vector<int> tops_; ///< where rows begin, and where the next one would
    int typicalHeight_ = 0;
    int width_ = 0; ///< for which the heights hold
    bool followsEnd_ = false;
    bool isAtEnd_ = true;
    bool arranging_ = false;
};
