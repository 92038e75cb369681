#pragma once

class QWidget;

/// F6 and Shift+F6 take the keyboard focus from one pane of a window to the next: the sidebar, a list, what
/// is selected in it. Each pane gives the focus to the control that had it last, or else to its first.
namespace PaneKeys {

/// Makes a part of a window one of its panes. A pane that holds other panes steps back for them.
void mark(QWidget* pane);
/// Lets the keys work in a window.
void install(QWidget* window);

} // namespace PaneKeys
