#pragma once

#include <QWidget>

/// A large symbol in a circle, above a text that says how things stand.
class Emblem : public QWidget
{
    Q_OBJECT

public:
    /// \param symbolEdge  of the symbol's box, in pixels at the design's text size
    explicit Emblem(const QString& systemImage, int symbolEdge = 32, QWidget* parent = nullptr);

    void setSystemImage(const QString& symbol);
    const QString& systemImage() const { return symbol_; }

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString symbol_;
    int symbolEdge_;
};
