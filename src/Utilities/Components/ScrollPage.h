#pragma once

#include <QScrollArea>

/// Content that scrolls up and down when it is taller than its place. It takes the place's width, draws no
/// background and lays the thin scroll bar over its own edge.
class ScrollPage : public QScrollArea
{
    Q_OBJECT

public:
    explicit ScrollPage(QWidget* content, QWidget* parent = nullptr);

    QSize minimumSizeHint() const override { return {}; }

protected:
    /// For a page whose content has to know it.
    ScrollPage();
    void setContent(QWidget* content);
};
