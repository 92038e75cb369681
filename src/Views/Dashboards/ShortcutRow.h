#pragma once

#include "Screen/Shortcut.h"

#include <QWidget>

class Button;

/// A row of buttons that lead into other sections.
class ShortcutRow : public QWidget
{
    Q_OBJECT

public:
    explicit ShortcutRow(const QList<Shortcut>& shortcuts, QWidget* parent = nullptr);

    /// The button of the shortcut at a place.
    Button* buttonAt(int place) const { return buttons_.at(place); }

signals:
    void chosen(const Shortcut& shortcut);

private:
    QList<Button*> buttons_;
};
