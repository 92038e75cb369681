#include "Specimens.h"

#include "Components/PlainLabel.h"
#include "Layouts.h"
#include "Palette.h"
#include "Spacing.h"

#include <QApplication>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

namespace Specimens {
namespace {

/// Room around a widget that its focus ring may take.
constexpr int ringRoom = 6;

} // namespace

Sheet::Sheet() : column_(new QVBoxLayout(this))
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFixedWidth(1180);
    column_->setContentsMargins(24, 24, 24, 24);
    column_->setSpacing(Spacing::betweenCards);
}

void Sheet::stage(QWidget* widget, std::function<void()> enter, std::function<void()> leave)
{
    scenes_.append({widget, std::move(enter), std::move(leave)});
}

QImage Sheet::picture()
{
    show();
    activateWindow();
    QApplication::processEvents();
    setFixedHeight(layout()->heightForWidth(width()));
    QApplication::processEvents();
    if (auto* focus = focusWidget())
        focus->clearFocus();
    auto whole = grab();
    for (const auto& scene : scenes_) {
        scene.enter();
        QApplication::processEvents();
        const QRect area(scene.widget->mapTo(this, QPoint()), scene.widget->size());
        const auto part = area.adjusted(-ringRoom, -ringRoom, ringRoom, ringRoom);
        QPainter(&whole).drawPixmap(part.topLeft(), grab(part));
        if (scene.leave)
            scene.leave();
    }
    return whole.toImage();
}

void Sheet::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), Palette::gradient(rect()));
}

QWidget* captioned(const QString& caption, QWidget* component, int width)
{
    auto* label = new PlainLabel(caption, Type::caption, Brand::steel);
    label->setFit(PlainLabel::Fit::elide);
    if (width > 0)
        component->setFixedWidth(width);
    auto* column = Layouts::column(8);
    column->addWidget(label);
    column->addWidget(component, 0, width > 0 ? Qt::Alignment() : Qt::AlignLeading);
    column->addStretch();
    return Layouts::holding(column);
}

QWidget* strip(std::initializer_list<QWidget*> specimens, int spacing)
{
    auto* row = Layouts::row(spacing, specimens);
    row->addStretch();
    return Layouts::holding(row);
}

QWidget* heading(const QString& text)
{
    return new PlainLabel(text, Type::sub);
}

QWidget* picture(const QPixmap& pixmap)
{
    auto* label = new QLabel;
    label->setPixmap(pixmap);
    label->setFixedSize(pixmap.deviceIndependentSize().toSize());
    return label;
}

} // namespace Specimens
