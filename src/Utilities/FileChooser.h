#pragma once

#include <QList>
#include <QUrl>

#include <functional>

class QWidget;

/// The system's dialog for choosing files.
namespace FileChooser {

/// Opens the dialog over the window of a widget and returns at once. The dialog goes with the widget.
/// \param chosen  told the files; not called when the person cancels
void open(QWidget* over, std::function<void(QList<QUrl>)> chosen);

} // namespace FileChooser
