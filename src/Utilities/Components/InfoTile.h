#pragma once

#include "Surface.h"

/// A small tile with a symbol, a heading and one or two lines of text.
class InfoTile : public Surface
{
    Q_OBJECT

public:
    enum class Background
    {
        card,
        dark
    };

    InfoTile(const QString& systemImage, const QString& title, const QString& text,
        Background background = Background::card, QWidget* parent = nullptr);
};
