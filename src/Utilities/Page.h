#pragma once

#include "Components/ScrollPage.h"

#include <QList>
#include <QPointer>

class Card;
class QVBoxLayout;

/// A screen that scrolls as one column over the content background. The column is at most so
/// wide; where the page is narrow it is compact: less room around and between the cards.
class Page : public ScrollPage
{
    Q_OBJECT

public:
    enum class Place
    {
        screen, ///< the whole content area; the column is centred in it
        detail, ///< beside a list; the column keeps to its leading edge
        pane, ///< the same with more room around, for one card alone or two columns
    };

    /// \param maxWidth  of the column, in pixels, without the room around it
    explicit Page(int maxWidth, QWidget* parent = nullptr) : Page(maxWidth, Place::screen, parent) { }
    Page(int maxWidth, Place place, QWidget* parent = nullptr);

    /// Where the page's content goes, from top to bottom. Room between its items follows the page's width.
    QVBoxLayout* column() const { return column_; }
    /// Appends what names the page. The room under it does not shrink where the page is compact.
    void addHeader(QWidget* header);
    /// Lets the padding of a card on the page follow the page's width.
    void fit(Card* card);
    bool isCompact() const { return compact_; }
    void setMaxWidth(int maxWidth);
    void setPlace(Place place);
    /// Leaves the room between the column's items as it is where the page is compact.
    void keepSpacing();

signals:
    void compactChanged(bool compact);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void arrange();

    int maxWidth_;
    Place place_;
    bool compact_ = false;
    bool keepsSpacing_ = false;
    QWidget* header_ = nullptr;
    QList<QPointer<Card>> cards_;
    QVBoxLayout* column_;
};
