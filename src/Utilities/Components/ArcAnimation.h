#pragma once

#include <QVariantAnimation>

class QWidget;

/// The turning of a loading arc. It repaints its widget while it runs, and runs only while the widget is on
/// screen. Where the desktop asks for no animations the arc stands still.
class ArcAnimation : public QVariantAnimation
{
    Q_OBJECT

public:
    explicit ArcAnimation(QWidget* widget);

    void setTurning(bool turning);
    qreal degrees() const { return currentValue().toReal(); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void update();

    QWidget* widget_;
    bool turning_ = false;
};
