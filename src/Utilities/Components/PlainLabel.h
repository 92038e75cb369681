#pragma once

#include "Brand.h"
#include "PlainText.h"
#include "Type.h"

#include <QHash>
#include <QLabel>

#include <memory>

/// A text that is shown as it stands, in a style and a tone of the design. It either wraps, and grows in
/// height, or stays on one line and elides; an elided text appears whole in the tool tip.
class PlainLabel : public QLabel
{
    Q_OBJECT

public:
    enum class Fit
    {
        wrap,
        elide
    };

    explicit PlainLabel(const QString& text = {}, const Type::Style& style = Type::body,
        Brand::Tone tone = Brand::ink, QWidget* parent = nullptr);

    void setText(const QString& text);
    void setTextStyle(const Type::Style& style);
    void setTone(Brand::Tone tone);
    void setFit(Fit fit);
    /// Captions keep their tone beside a control that is disabled.
    void setMutedWhenDisabled(bool muted);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return fit_ == Fit::wrap; }
    int heightForWidth(int width) const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// What laying out the text came to: layouts ask again and again, and long texts take long.
    struct Laid
    {
        double factor = 0; ///< of the type when this was worked out
        QSize unbroken; ///< without breaks but the text's own
        QHash<int, int> heights; ///< by width
        std::unique_ptr<PlainText::Paragraph> painted;
        int paintedWidth = 0;
    };

    void textChanged();
    Laid& laid() const;
    QSize unbroken() const;
    const PlainText::Paragraph& painted() const;

    Type::Style style_;
    Brand::Tone tone_;
    Fit fit_ = Fit::wrap;
    bool mutedWhenDisabled_ = true;
    mutable Laid laid_;
};
