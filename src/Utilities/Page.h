#pragma once

#include <QScrollArea>

class QVBoxLayout;

/// A screen that scrolls as one column over the content background. The column is centred and at most so
/// wide; where the page is narrow it is compact: less room around and between the cards.
class Page : public QScrollArea
{
    Q_OBJECT

public:
    /// \param maxWidth  of the column, in pixels, without the room around it
    explicit Page(int maxWidth, QWidget* parent = nullptr);

    /// Where the page's content goes, from top to bottom. Room between its items follows the page's width.
    QVBoxLayout* column() const { return column_; }
    bool isCompact() const { return compact_; }

signals:
    void compactChanged(bool compact);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void arrange();

    int maxWidth_;
    bool compact_ = false;
    QWidget* content_;
    QVBoxLayout* column_;
};
