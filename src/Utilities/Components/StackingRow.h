#pragma once

#include <QWidget>

class QBoxLayout;

/// Widgets side by side; below one another where they do not fit beside one another, as in large text.
class StackingRow : public QWidget
{
    Q_OBJECT

public:
    /// \param spacing  between the widgets, in pixels
    explicit StackingRow(int spacing, QWidget* parent = nullptr) : StackingRow(spacing, spacing, parent) { }
    /// \param across  between widgets side by side
    /// \param down  between widgets below one another
    StackingRow(int across, int down, QWidget* parent = nullptr);

    void add(QWidget* widget, int stretch = 0, Qt::Alignment alignment = {});
    /// Keeps what follows at the trailing end of the row.
    void addStretch();
    /// Where the row is narrower, in pixels of the design, what it holds is stacked even if it would fit.
    void setStackedBelow(int width);

    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void arrange();

    QBoxLayout* row_;
    int across_;
    int down_;
    int stackedBelow_ = 0;
};
