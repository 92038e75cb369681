#pragma once

#include "OverlayDialog.h"

/// An alert over its window: title, message and one "OK", which Return and Escape press too. A window shows
/// one alert at a time, in the order in which they come.
class AlertDialog : public OverlayDialog
{
    Q_OBJECT

public:
    /// Opens an alert over the window of `widget`; behind others that are open or waiting there, it opens
    /// once they are dismissed, if the widget still lives then. One with the same texts serves for both.
    static AlertDialog* present(QWidget* widget, const QString& title, const QString& message);

    Button* okButton() const { return ok_; }

private:
    explicit AlertDialog(QWidget* window);

    static QList<AlertDialog*> undismissed(const QWidget* window);
    bool isWanted() const;
    void openNext();

    Button* ok_;
    QList<QPointer<QWidget>> screens_; ///< for whom it is
    bool isDismissed_ = false;
};
