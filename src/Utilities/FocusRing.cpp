#include "FocusRing.h"

#include "Paint.h"
#include "Palette.h"

#include <QApplication>
#include <QFocusEvent>
#include <QFocusFrame>
#include <QPainter>
#include <QPointer>

namespace {

constexpr int ringWidth = 2;
constexpr int gap = 2;
constexpr char radiusProperty[] = "focusRingRadius";
constexpr char aroundProperty[] = "focusRingAround";

class RingFrame : public QFocusFrame
{
public:
    explicit RingFrame(int radius) : radius_(radius) { }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        Paint::roundedRect(
            painter, rect(), radius_ + gap + ringWidth, Qt::NoBrush, Palette::color(Brand::blue), ringWidth);
    }

private:
    int radius_;
};

/// Follows the focus among the attached controls; at most one ring is on screen.
class Follower : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        auto* control = static_cast<QWidget*>(watched);
        const bool isPressed = event->type() == QEvent::MouseButtonPress && control == ringOwner_;
        if (event->type() == QEvent::FocusIn)
            focusIn(control, static_cast<QFocusEvent*>(event)->reason());
        else if (event->type() == QEvent::FocusOut || isPressed)
            hideRing();
        return false;
    }

    bool showsRing(const QWidget* control) const { return ringOwner_ == control; }

private:
    void focusIn(QWidget* control, Qt::FocusReason reason)
    {
        const bool comesBack = reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason;
        if (!comesBack || control != lastControl_)
            byMouse_ = reason == Qt::MouseFocusReason;
        lastControl_ = control;
        if (!byMouse_)
            showRing(control);
    }

    void showRing(QWidget* control)
    {
        hideRing();
        auto* around = control->property(aroundProperty).value<QWidget*>();
        ring_ = new RingFrame(control->property(radiusProperty).toInt());
        ring_->setWidget(around ? around : control);
        ringOwner_ = control;
    }

    void hideRing()
    {
        delete ring_;
        ringOwner_.clear();
    }

    QPointer<QWidget> lastControl_;
    QPointer<QWidget> ringOwner_;
    QPointer<QFocusFrame> ring_;
    bool byMouse_ = false;
};

Follower* follower()
{
    static QPointer<Follower> instance;
    if (!instance)
        instance = new Follower(qApp);
    return instance;
}

} // namespace

void FocusRing::attach(QWidget* control, int radius, QWidget* around)
{
    control->setProperty(radiusProperty, radius);
    control->setProperty(aroundProperty, QVariant::fromValue(around));
    control->installEventFilter(follower());
}

Qt::FocusReason FocusRing::passedOnFrom(const QWidget* control)
{
    const bool isAttached = control->property(radiusProperty).isValid();
    return isAttached && !follower()->showsRing(control) ? Qt::MouseFocusReason : Qt::OtherFocusReason;
}
