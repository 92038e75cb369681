#pragma once

#include <QWidget>

class ArcAnimation;
class PlainLabel;

/// A turning arc and what is being waited for, for example "Loading sessions…".
class LoadingLine : public QWidget
{
    Q_OBJECT

public:
    explicit LoadingLine(const QString& text, QWidget* parent = nullptr);

    void setText(const QString& text);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    PlainLabel* text_;
    ArcAnimation* arc_;
};
