#include "SearchField.h"

#include "IconButton.h"
#include "Palette.h"
#include "Spacing.h"
#include "Symbols.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace {

constexpr int padding = 10;
constexpr int gap = 6;
/// Between the button and the edge of the field.
constexpr int aroundClear = 4;

} // namespace

SearchField::SearchField(const QString& placeholder, QWidget* parent)
    : LineInput(parent), clear_(new IconButton(u"Clear Search"_s, u"xmark.circle.fill"_s))
{
    setPlaceholderText(placeholder);
    setAccessibleName(placeholder);
    clear_->setParent(this);
    clear_->setCursor(Qt::ArrowCursor);
    // By keyboard Escape does the same, and Tab goes on to the list without a stop.
    clear_->setFocusPolicy(Qt::NoFocus);
    clear_->hide();
    connect(clear_, &QAbstractButton::clicked, this, [this] {
        clear();
        setFocus(Qt::OtherFocusReason);
    });
    connect(this, &QLineEdit::textChanged, this, [this] { arrange(); });
    connect(this, &QLineEdit::textChanged, this, &SearchField::valueChanged);
    arrange();
}

/// The text keeps clear of the symbol before it and of the button behind it.
void SearchField::arrange()
{
    const bool hasText = !text().isEmpty();
    const int before = padding + IconSize::button() + gap - Spacing::fieldPadding;
    const int behind = hasText ? clear_->sizeHint().width() + aroundClear - Spacing::fieldPadding + gap : 0;
    setTextMargins(isRightToLeft() ? behind : before, 0, isRightToLeft() ? before : behind, 0);
    const QSize size = clear_->sizeHint();
    const QRect place(
        width() - aroundClear - size.width(), (height() - size.height()) / 2, size.width(), size.height());
    clear_->setGeometry(QStyle::visualRect(layoutDirection(), rect(), place));
    clear_->setVisible(hasText);
}

void SearchField::resizeEvent(QResizeEvent* event)
{
    LineInput::resizeEvent(event);
    arrange();
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
