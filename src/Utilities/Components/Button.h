#pragma once

#include "PlainText.h"

#include <QPushButton>

class ArcAnimation;

/// What the buttons of the kit share: a title, an optional symbol before it, and a state of work in which the
/// button turns an arc, keeps the focus and does not react. Space and Return press it.
class Button : public QPushButton
{
    Q_OBJECT

public:
    enum class Size
    {
        small,
        regular,
        large
    };

    QString title() const { return title_; }
    void setTitle(const QString& title);
    /// \param symbol  empty for none
    void setSystemImage(const QString& symbol);
    const QString& systemImage() const { return symbol_; }
    void setButtonSize(Size size);
    /// Lets the title take more lines than one where large text leaves too little room.
    void setWraps(bool wraps);

    bool isLoading() const { return loading_; }
    void setLoading(bool loading);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return wraps_; }
    int heightForWidth(int width) const override;

protected:
    struct Colors
    {
        QColor fill;
        QColor edge;
        QColor text;
        QColor symbol;
    };
    /// Of the button as it is now: enabled or not, hovered, pressed.
    virtual Colors colors() const = 0;
    /// Room before and after the content.
    virtual int padding() const;

    Button(const QString& title, const QString& systemImage, QWidget* parent);
    bool isHovered() const { return isEnabled() && underMouse() && !loading_; }
    bool isPressed() const { return isEnabled() && isDown(); }

    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    struct Metrics;
    Metrics metrics() const;
    int contentWidth() const;
    /// Of the symbol, or what stands in its place, with the gap to the title.
    int symbolWidth() const;
    /// Whether the title takes several lines now.
    bool isWrapped() const;
    /// As it is broken in a button of this width.
    PlainText::Paragraph titleLines(int width) const;
    void paintTitle(QPainter& painter, const QRectF& box, const QColor& color) const;
    void attachFocusRing();

    QString title_;
    QString symbol_;
    Size size_ = Size::regular;
    bool loading_ = false;
    bool wraps_ = false;
    ArcAnimation* arc_;
};
