#pragma once

#include <qnamespace.h>

#include <optional>

class QWidget;

/// F6 and Shift+F6 take the keyboard focus from one pane of a window to the next: the sidebar, a list, what
/// is selected in it. Each pane gives the focus to the control that had it last, or else to its first.
namespace PaneKeys {

/// Makes a part of a window one of its panes. A pane that holds other panes steps back for them.
void mark(QWidget* pane);
/// Lets the keys work in a window.
void install(QWidget* window);
/// Says where in a part of a window enter() begins. A focus proxy would take what lies before it out of the
/// round of the Tab key.
void setEntry(QWidget* part, QWidget* entry);
/// How the focus is to be given to what takes the place of a part of a window; nullopt when it is elsewhere.
std::optional<Qt::FocusReason> focusWithin(const QWidget* part);
/// Gives the focus to a part of a window that has just taken the place of the one with the focus: to the
/// first control of its entry, or else to the first of all.
void enter(QWidget* part, Qt::FocusReason reason);

} // namespace PaneKeys
