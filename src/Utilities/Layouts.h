#pragma once

#include <QBoxLayout>

#include <initializer_list>

/// Rows and columns without margins.
namespace Layouts {

QVBoxLayout* column(int spacing, std::initializer_list<QWidget*> widgets = {});
QHBoxLayout* row(int spacing, std::initializer_list<QWidget*> widgets = {});
/// A widget that holds nothing but the layout.
QWidget* holding(QLayout* layout);
/// Takes everything out of the layout and deletes the widgets once control is back in the event loop.
void clear(QLayout* layout);

} // namespace Layouts
