#pragma once

#include "OverlayDialog.h"

/// An alert over its window: title, message and one "OK", which Return and Escape press too.
class AlertDialog : public OverlayDialog
{
    Q_OBJECT

public:
    /// Opens an alert over the window of `widget`. An alert that is open there shows the new texts instead.
    static AlertDialog* present(QWidget* widget, const QString& title, const QString& message);

    Button* okButton() const { return ok_; }

private:
    explicit AlertDialog(QWidget* window);

    Button* ok_;
};
