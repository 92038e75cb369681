#pragma once

#include "Spacing.h"
#include "Surface.h"

#include <initializer_list>

/// A rounded panel that groups content, from top to bottom.
class Card : public Surface
{
    Q_OBJECT

public:
    /// \param padding  between the edge and the content, in pixels
    explicit Card(int padding = Spacing::card, QWidget* parent = nullptr)
        : Surface(Kind::card, padding, parent)
    { }
    /// A card of these widgets, the room between form fields apart.
    explicit Card(std::initializer_list<QWidget*> widgets) : Card()
    {
        for (auto* widget : widgets)
            add(widget, Spacing::fieldsDown);
    }
};
