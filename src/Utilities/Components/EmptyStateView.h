#pragma once

#include <QWidget>

class PlainLabel;

/// A placeholder centred on the whole of its pane: for empty lists, refused access, failures.
class EmptyStateView : public QWidget
{
    Q_OBJECT

public:
    EmptyStateView(
        const QString& systemImage, const QString& title, const QString& message, QWidget* parent = nullptr);

    void setSystemImage(const QString& symbol);
    void setTitle(const QString& title);
    void setMessage(const QString& message);
    /// Puts a widget, such as a row of buttons, under the message.
    void setActions(QWidget* actions);

private:
    class Emblem;
    Emblem* emblem_;
    PlainLabel* title_;
    PlainLabel* message_;
};
