#pragma once

#include <QList>
#include <QString>
#include <QUrl>

#include <functional>

class QWidget;

/// The system's dialog for choosing files.
namespace FileChooser {

struct Texts
{
    QString title;
    QString confirm; ///< on the button that confirms; the system's own word when empty
};

/// Opens the dialog over the window of a widget and returns at once. The dialog goes with the widget.
/// \param chosen  told the files; not called when the person cancels
void open(QWidget* over, const Texts& texts, std::function<void(QList<QUrl>)> chosen);

} // namespace FileChooser
