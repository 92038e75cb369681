#include "Layouts.h"

#include <QWidget>

#include <memory>

namespace Layouts {
namespace {

template <typename Box>
Box* filled(int spacing, std::initializer_list<QWidget*> widgets)
{
    auto* box = new Box;
    box->setContentsMargins(0, 0, 0, 0);
    box->setSpacing(spacing);
    for (auto* widget : widgets)
        box->addWidget(widget);
    return box;
}

} // namespace

QVBoxLayout* column(int spacing, std::initializer_list<QWidget*> widgets)
{
    return filled<QVBoxLayout>(spacing, widgets);
}

QHBoxLayout* row(int spacing, std::initializer_list<QWidget*> widgets)
{
    return filled<QHBoxLayout>(spacing, widgets);
}

QWidget* holding(QLayout* layout)
{
    auto* widget = new QWidget;
    widget->setLayout(layout);
    return widget;
}

void clear(QLayout* layout)
{
    while (const std::unique_ptr<QLayoutItem> item{layout->takeAt(0)}) {
        if (auto* inner = item->layout())
            clear(inner);
        if (auto* widget = item->widget()) {
            widget->hide();
            widget->deleteLater();
        }
    }
}

} // namespace Layouts
