#pragma once

#include "Brand.h"

#include <QWidget>

class PlainLabel;
class SymbolView;

/// A symbol before a text, such as a date in a list of facts. It stands beside the first line of a text that
/// takes several.
class SymbolLine : public QWidget
{
    Q_OBJECT

public:
    SymbolLine(const QString& systemImage, const QString& text, QWidget* parent = nullptr);

    void setText(const QString& text);
    /// Where it is heard with others, for example with a comma behind it.
    void setSpokenText(const QString& text);
    void setSystemImage(const QString& symbol);

private:
    SymbolView* symbol_;
    PlainLabel* text_;
};
