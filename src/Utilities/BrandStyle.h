#pragma once

#include <QProxyStyle>

/// The program's look: shapes and metrics of Qt's own controls over Fusion, in the colours of Brand. The
/// application has exactly one, made by install().
class BrandStyle : public QProxyStyle
{
    Q_OBJECT

public:
    /// Gives the application its style, palette and font. Call once, before the first widget.
    static BrandStyle* install(bool isDark = false);

    bool isDark() const;
    /// Changes the scheme of every window at once.
    void setDark(bool isDark);
    /// The same for how strongly its colours differ.
    void setHighContrast(bool isHigh);

    void polish(QWidget* widget) override;
    QPalette standardPalette() const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
        QStyleHintReturn* returnData) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
        const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
        const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
        const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
        const QWidget* widget) const override;
    QRect subElementRect(
        SubElement element, const QStyleOption* option, const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
        const QWidget* widget) const override;

signals:
    /// After everything has been told to repaint.
    void schemeChanged();

private:
    BrandStyle();
    void recolour();
};

/// A spin box that arranges its parts itself instead of leaving that to the style.
class SpinBoxArrangement
{
public:
    virtual ~SpinBoxArrangement() = default;
    virtual QRect partRect(QStyle::SubControl part) const = 0;
};
