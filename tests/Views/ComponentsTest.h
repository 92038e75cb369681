#pragma once

#include "BrandStyle.h"
#include "Layouts.h"
#include "Screens/Cases.h"
#include "Screens/Printing.h"

#include <gmock/gmock.h>

#include <QAccessible>
#include <QApplication>
#include <QDebug>
#include <QFocusFrame>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <memory>
#include <ostream>

inline void PrintTo(const QDateTime& instant, std::ostream* out)
{
    *out << qUtf8Printable(instant.toString(Qt::ISODate));
}

/// Components shown in an active window, in the light scheme.
class ComponentsTest : public testing::Test
{
protected:
    ComponentsTest()
    {
        style()->setDark(false);
        window.setLayout(Layouts::column(10));
        window.layout()->setContentsMargins(20, 20, 20, 20);
    }

    ~ComponentsTest() override { style()->setDark(false); }

    static BrandStyle* style() { return qobject_cast<BrandStyle*>(QApplication::style()); }

    /// Takes the components over, shows the window and gives the focus to nobody.
    void show(std::initializer_list<QWidget*> components)
    {
        for (auto* component : components)
            window.layout()->addWidget(component);
        window.resize(480, 640);
        window.show();
        window.activateWindow();
        QApplication::processEvents();
        if (auto* focus = window.focusWidget())
            focus->clearFocus();
    }

    template <typename W>
    W* shown(W* component)
    {
        show({component});
        return component;
    }

    /// The focus ring on screen, or null.
    QFocusFrame* ring() const { return window.findChild<QFocusFrame*>(); }

    QWidget window;
};

inline QAccessibleInterface* accessible(QWidget* widget)
{
    return QAccessible::queryAccessibleInterface(widget);
}

inline QString accessibleName(QWidget* widget)
{
    return accessible(widget)->text(QAccessible::Name);
}

/// The colour of a component's pixel as it is painted now.
inline QColor pixel(QWidget* widget, const QPoint& spot)
{
    return widget->grab().toImage().pixelColor(spot);
}
