#pragma once

#include "Brand.h"

#include <QWidget>

/// A symbol by itself: decoration, with no name of its own.
class SymbolView : public QWidget
{
    Q_OBJECT

public:
    /// \param edge  of the square in pixels
    SymbolView(const QString& systemImage, int edge, Brand::Tone tone, QWidget* parent = nullptr);

    void setSystemImage(const QString& symbol);
    const QString& systemImage() const { return symbol_; }
    QSize sizeHint() const override { return {edge_, edge_}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString symbol_;
    int edge_;
    Brand::Tone tone_;
};
