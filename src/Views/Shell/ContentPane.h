#pragma once

#include "Spacing.h"

#include <QWidget>

/// The area beside the sidebar: the content background with its one round corner, and the screen on it.
class ContentPane : public QWidget
{
    Q_OBJECT

public:
    /// Of the round corner inside its line, for a screen that fills it.
    static constexpr qreal innerRadius = Radius::card - 0.5;

    explicit ContentPane(QWidget* parent = nullptr);

    /// Takes the screen's place, and the keyboard focus when that was inside; the screen shown before is
    /// deleted.
    void setScreen(QWidget* screen);
    QWidget* screen() const { return screen_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void placeScreen();

    QWidget* screen_ = nullptr;
};
