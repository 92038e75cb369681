#pragma once

#include "Components/Button.h"
#include "Components/PlainLabel.h"
#include "Components/SidebarEntry.h"
#include "Components/Switch.h"

#include <gtest/gtest.h>

#include <QLayout>
#include <QScrollArea>
#include <QScrollBar>

/// Checks of what is on screen that no picture has to be looked at for.
namespace Clipping {

template <typename W, typename Check>
void checkAll(const QWidget& in, Check check)
{
    for (W* widget : in.findChildren<W*>()) {
        if (widget->isVisible())
            check(widget);
    }
}

inline std::string nameOf(const QWidget* widget)
{
    const auto* label = qobject_cast<const PlainLabel*>(widget);
    const QString name = label ? label->text() : widget->accessibleName();
    return widget->metaObject()->className() + (" \"" + name.toStdString() + '"');
}

/// In which a control of its width shows all lines of its text.
inline int neededHeight(const QWidget* control)
{
    return control->hasHeightForWidth() ? control->heightForWidth(control->width())
                                        : control->sizeHint().height();
}

/// Every text has the room that it needs, or elides because it is meant to.
inline void expectRoomForTexts(const QWidget& in)
{
    checkAll<PlainLabel>(in, [](const PlainLabel* label) {
        EXPECT_GE(label->height(), label->heightForWidth(label->width())) << nameOf(label);
    });
    checkAll<Button>(in, [](const Button* button) {
        // A title is cut off only where there is no more room.
        const QWidget* around = button->parentWidget();
        const int room = around->layout() ? around->layout()->contentsRect().width() : around->width();
        EXPECT_GE(button->width(), qMin(button->sizeHint().width(), room)) << nameOf(button);
        EXPECT_GE(button->height(), neededHeight(button)) << nameOf(button);
    });
    checkAll<Switch>(in, [](const Switch* control) {
        EXPECT_GE(control->height(), neededHeight(control)) << nameOf(control);
    });
    checkAll<SidebarEntry>(in, [](const SidebarEntry* entry) {
        EXPECT_GE(entry->height(), entry->sizeHint().height()) << nameOf(entry);
    });
}

/// Nothing sticks out of what it lies in; what scrolls does so up and down only.
inline void expectInsideParents(const QWidget& in)
{
    checkAll<QWidget>(in, [](const QWidget* widget) {
        const QWidget* parent = widget->parentWidget();
        if (widget->isWindow() || qobject_cast<const QAbstractScrollArea*>(parent->parentWidget()))
            return;
        EXPECT_TRUE(parent->rect().contains(widget->geometry())) << nameOf(widget);
    });
    checkAll<QScrollArea>(in, [](const QScrollArea* area) {
        EXPECT_LE(area->widget()->width(), area->viewport()->width()) << nameOf(area);
        EXPECT_EQ(area->horizontalScrollBar()->maximum(), 0) << nameOf(area);
    });
}

struct Place
{
    QRect onPage; ///< as far as what scrolls within its page lets it be seen
    QRect inSight; ///< as far as its page lets it be seen as well
    const QWidget* page = nullptr; ///< the outermost of what scrolls around it
};

inline Place placeIn(const QWidget& in, const QWidget* widget)
{
    const QRect whole(widget->mapTo(&in, QPoint()), widget->size());
    Place place{whole, whole};
    for (const QWidget* around = widget->parentWidget(); around && around != &in;
         around = around->parentWidget()) {
        if (!qobject_cast<const QAbstractScrollArea*>(around->parentWidget()))
            continue;
        place.page = around;
        place.onPage = place.inSight;
        place.inSight &= QRect(around->mapTo(&in, QPoint()), around->size());
    }
    return place;
}

/// No text lies over another one.
inline void expectTextsApart(const QWidget& in)
{
    QList<std::pair<const QWidget*, Place>> places;
    const auto note = [&](const QWidget* widget) { places.emplace_back(widget, placeIn(in, widget)); };
    checkAll<PlainLabel>(in, note);
    checkAll<Button>(in, note);
    for (qsizetype i = 0; i < places.size(); ++i) {
        for (qsizetype j = 0; j < i; ++j) {
            const QWidget* a = places[i].first;
            const QWidget* b = places[j].first;
            if (a->isAncestorOf(b) || b->isAncestorOf(a))
                continue;
            const auto& [ofA, ofB] = std::pair(places[i].second, places[j].second);
            const bool overlap = ofA.page == ofB.page ? ofA.onPage.intersects(ofB.onPage)
                                                      : ofA.inSight.intersects(ofB.inSight);
            EXPECT_FALSE(overlap) << nameOf(a) << " and " << nameOf(b);
        }
    }
}

inline void expectNothingClipped(const QWidget& in)
{
    expectRoomForTexts(in);
    expectInsideParents(in);
}

} // namespace Clipping
