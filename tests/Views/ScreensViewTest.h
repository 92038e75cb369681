#pragma once

#include "BrandStyle.h"
#include "Screens/ScreenTest.h"

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QTest>
#include <QWidget>

/// Screens shown in an active window and worked by real input events.
class ScreensViewTest : public ScreenTest
{
protected:
    ScreensViewTest() { style()->setDark(false); }
    ~ScreensViewTest() override { style()->setDark(false); }

    static BrandStyle* style() { return qobject_cast<BrandStyle*>(QApplication::style()); }

    static void show(QWidget& window)
    {
        window.show();
        window.activateWindow();
        settle();
    }

    /// The visible control that assistive technology calls by this name; null when there is none.
    template <typename Control = QWidget>
    static Control* named(QWidget& in, const QString& name)
    {
        for (Control* control : in.findChildren<Control*>()) {
            const bool isCalledSo = control->accessibleName() == name
                || QAccessible::queryAccessibleInterface(control)->text(QAccessible::Name) == name;
            if (control->isVisible() && isCalledSo)
                return control;
        }
        return nullptr;
    }

    /// The texts of the labels that are visible.
    static QStringList texts(QWidget& in)
    {
        QStringList texts;
        for (const QLabel* label : in.findChildren<QLabel*>()) {
            if (label->isVisible())
                texts += label->text();
        }
        return texts;
    }

    static void click(QWidget* control)
    {
        ASSERT_NE(control, nullptr);
        QTest::mouseClick(control, Qt::LeftButton);
        settle();
    }
};
