#pragma once

#include <QWidget>

/// One line of a list of features: a symbol, a bold title and a text that explains it.
class FeatureLine : public QWidget
{
    Q_OBJECT

public:
    enum class Background
    {
        card,
        dark
    };

    FeatureLine(const QString& systemImage, const QString& title, const QString& text,
        Background background = Background::card, QWidget* parent = nullptr);
};
