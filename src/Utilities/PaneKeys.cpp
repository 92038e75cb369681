#include "PaneKeys.h"

#include "FocusRing.h"

#include <QApplication>
#include <QShortcut>
#include <QWidget>

#include <algorithm>

namespace {

constexpr char paneProperty[] = "isPane";
constexpr char entryProperty[] = "paneEntry";

bool isStop(const QWidget* widget, const QWidget* pane)
{
    return widget && pane->isAncestorOf(widget) && widget->isVisible() && widget->isEnabled()
        && (widget->focusPolicy() & Qt::TabFocus) && !widget->focusProxy();
}

/// Where a pane takes the focus; null when nothing in it can.
QWidget* stopIn(const QWidget* pane)
{
    if (isStop(pane->focusWidget(), pane))
        return pane->focusWidget();
    for (QWidget* next = pane->nextInFocusChain(); next != pane; next = next->nextInFocusChain()) {
        if (isStop(next, pane))
            return next;
    }
    return nullptr;
}

/// In the order in which they were made.
QList<QWidget*> panesOf(const QWidget* window)
{
    QList<QWidget*> panes = window->findChildren<QWidget*>();
    panes.removeIf([](const QWidget* widget) {
        return !widget->property(paneProperty).toBool() || !widget->isVisible() || !stopIn(widget);
    });
    const QList<QWidget*> all = panes;
    panes.removeIf([&all](const QWidget* pane) {
        return std::ranges::any_of(
            all, [pane](const QWidget* other) { return other != pane && pane->isAncestorOf(other); });
    });
    return panes;
}

void go(const QWidget* window, int step)
{
    const QList<QWidget*> panes = panesOf(window);
    if (panes.isEmpty())
        return;
    const auto current = std::ranges::find_if(
        panes, [](const QWidget* pane) { return pane->isAncestorOf(QApplication::focusWidget()); });
    const qsizetype count = panes.size();
    const qsizetype place = current == panes.end() ? (step > 0 ? -1 : 0) : current - panes.begin();
    stopIn(panes.at((place + step + count) % count))
        ->setFocus(step > 0 ? Qt::TabFocusReason : Qt::BacktabFocusReason);
}

} // namespace

void PaneKeys::mark(QWidget* pane)
{
    pane->setProperty(paneProperty, true);
}

void PaneKeys::install(QWidget* window)
{
    const auto addKey = [window](const QKeySequence& key, int step) {
        auto* shortcut = new QShortcut(key, window);
        QObject::connect(shortcut, &QShortcut::activated, window, [window, step] { go(window, step); });
    };
    addKey(Qt::Key_F6, 1);
    addKey(Qt::SHIFT | Qt::Key_F6, -1);
}

void PaneKeys::setEntry(QWidget* part, QWidget* entry)
{
    part->setProperty(entryProperty, QVariant::fromValue(entry));
}

std::optional<Qt::FocusReason> PaneKeys::focusWithin(const QWidget* part)
{
    // Asked of the window, which knows it while it is closed as well.
    const QWidget* focused = part->window()->focusWidget();
    if (!focused || !part->isAncestorOf(focused))
        return std::nullopt;
    return FocusRing::passedOnFrom(focused);
}

void PaneKeys::enter(QWidget* part, Qt::FocusReason reason)
{
    const auto* entry = part->property(entryProperty).value<QWidget*>();
    QWidget* first = entry ? stopIn(entry) : nullptr;
    if (!first)
        first = stopIn(part);
    if (first)
        first->setFocus(reason);
}
