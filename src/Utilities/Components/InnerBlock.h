#pragma once

#include "Surface.h"

/// A panel inside a card.
class InnerBlock : public Surface
{
    Q_OBJECT

public:
    explicit InnerBlock(int padding = 16, QWidget* parent = nullptr) : Surface(Kind::block, padding, parent)
    { }
};
