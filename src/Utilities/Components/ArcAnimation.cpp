#include "ArcAnimation.h"

#include <QEvent>
#include <QStyle>
#include <QWidget>

ArcAnimation::ArcAnimation(QWidget* widget) : QVariantAnimation(widget), widget_(widget)
{
    setStartValue(0.0);
    setEndValue(360.0);
    setDuration(900);
    setLoopCount(-1);
    connect(this, &QVariantAnimation::valueChanged, widget, qOverload<>(&QWidget::update));
    widget->installEventFilter(this);
}

void ArcAnimation::setTurning(bool turning)
{
    turning_ = turning;
    update();
}

bool ArcAnimation::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::Show || event->type() == QEvent::Hide)
        update();
    return false;
}

void ArcAnimation::update()
{
    const bool animated
        = widget_->style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, widget_) > 0;
    const bool run = turning_ && animated && widget_->isVisible();
    if (run && state() != Running)
        start();
    else if (!run && state() == Running)
        stop();
}
