#include "SearchField.h"

#include "Palette.h"
#include "Spacing.h"
#include "Symbols.h"

#include <QKeyEvent>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

constexpr int padding = 10;
constexpr int gap = 6;

} // namespace

SearchField::SearchField(const QString& placeholder, QWidget* parent) : LineInput(parent)
{
    setPlaceholderText(placeholder);
    setAccessibleName(placeholder);
    const int shift = padding + IconSize::button() + gap - Spacing::fieldPadding;
    setTextMargins(isRightToLeft() ? 0 : shift, 0, isRightToLeft() ? shift : 0, 0);
    connect(this, &QLineEdit::textChanged, this, &SearchField::valueChanged);
}

void SearchField::setValue(const QString& value)
{
    if (value != text())
        setText(value);
}

void SearchField::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && !text().isEmpty())
        clear();
    else
        LineInput::keyPressEvent(event);
}

void SearchField::paintEvent(QPaintEvent* event)
{
    LineInput::paintEvent(event);
    QPainter painter(this);
    const auto edge = IconSize::button();
    const int left = isRightToLeft() ? width() - padding - 1 - edge : padding + 1;
    Symbols::paint(painter, QRectF(left, (height() - edge) / 2.0, edge, edge), u"magnifyingglass"_s,
        Palette::color(isEnabled() ? Brand::steel : Brand::muted));
}
