#pragma once

#include <QAbstractButton>

/// A small square button that shows only a symbol, such as the one that removes a row. Its title is read out
/// and shown as the tool tip.
class IconButton : public QAbstractButton
{
    Q_OBJECT

public:
    /// \param edge  of the symbol, at the design's text size
    IconButton(const QString& title, const QString& systemImage, int edge = 16, QWidget* parent = nullptr);

    QString systemImage() const { return symbol_; }
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QString symbol_;
    int edge_;
};
