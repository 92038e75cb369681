#pragma once

#include <QObject>

class QWidget;

/// The mark on a field that a check has refused. The field keeps the edge of the focus, and the fault as its
/// accessible description, until its value changes or another field is marked in its window.
class FaultMark : public QObject
{
    Q_OBJECT

public:
    /// Scrolls a field into view and gives it the focus, a line of text selected so that typing replaces it.
    /// \param fault  what is wrong with the field; empty when it may be right, and then it is not marked
    static void leadTo(QWidget* field, const QString& fault);
    /// Whether a control, and not one that only hands its focus on, bears the mark.
    static bool isOn(const QWidget* control);

private slots:
    void remove();

private:
    FaultMark(QWidget* control, const QString& fault);

    QWidget* control_;
    QString description_; ///< the control's own
};
