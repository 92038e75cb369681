#pragma once

#include <QWidget>

/// A rounded tile with a symbol in it: decoration, with no name of its own.
class Chip : public QWidget
{
    Q_OBJECT

public:
    enum class Look
    {
        soft, ///< on cards
        plain, ///< on a selected row
        idle, ///< for what is out of use
        onDark, ///< on darkGradient
        dark, ///< filled with darkGradient
    };

    /// \param edge  of the square; the symbol takes a little more than half of it
    explicit Chip(
        const QString& systemImage, int edge = 36, Look look = Look::soft, QWidget* parent = nullptr);

    void setSystemImage(const QString& symbol);
    const QString& systemImage() const { return symbol_; }
    /// Where the symbol is to be smaller or larger than usual, in pixels of the design.
    void setSymbolEdge(int edge);
    QSize sizeHint() const override;

    /// Draws a chip elsewhere, for example in a list row.
    static void draw(QPainter& painter, const QRectF& box, const QString& symbol, Look look);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    static void draw(QPainter& painter, const QRectF& box, const QString& symbol, Look look, int symbolEdge);

    QString symbol_;
    int edge_;
    int symbolEdge_;
    Look look_;
};
