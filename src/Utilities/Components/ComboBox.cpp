#include "ComboBox.h"

#include "ComboListDelegate.h"
#include "Paint.h"
#include "Palette.h"
#include "PlainText.h"
#include "RoundedPopup.h"
#include "Spacing.h"
#include "Symbols.h"

#include <QCursor>
#include <QListView>
#include <QPainter>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;

namespace {

constexpr int symbolGap = 8;
constexpr int chevronGap = 8;

} // namespace

ComboBox::ComboBox(const QList<Option>& options, QWidget* parent) : QComboBox(parent)
{
    setAttribute(Qt::WA_Hover);
    setFont(Type::font(Type::body));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setMaxVisibleItems(12);
    auto* list = new QListView;
    list->setFrameShape(QFrame::NoFrame);
    list->viewport()->setAutoFillBackground(false);
    list->setTextElideMode(Qt::ElideRight);
    list->setItemDelegate(new ComboListDelegate(this));
    setView(list);
    auto* popup = list->window();
    popup->setWindowFlag(Qt::NoDropShadowWindowHint);
    RoundedPopup::prepare(popup, Radius::menu);
    connect(this, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (index >= 0)
            wanted_ = value();
        emit valueChanged(value());
    });
    setOptions(options);
}

void ComboBox::setOptions(const QList<Option>& options)
{
    {
        const QSignalBlocker quiet(this);
        clear();
        hasSymbols_ = false;
        for (const auto& option : options) {
            addItem(option.text, option.value);
            setItemData(count() - 1, option.symbol, ComboListDelegate::SymbolRole);
            hasSymbols_ = hasSymbols_ || !option.symbol.isEmpty();
        }
        setCurrentIndex(findData(wanted_));
    }
    updateGeometry();
    update();
}

void ComboBox::setPrompt(const QString& prompt)
{
    setPlaceholderText(prompt);
    update();
}

void ComboBox::setPreferredWidth(int width)
{
    preferredWidth_ = width;
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void ComboBox::setCompact(bool compact)
{
    compact_ = compact;
    updateGeometry();
    update();
}

void ComboBox::setSymbolOnly()
{
    view()->setMinimumWidth(sizeHint().width());
    symbolOnly_ = true;
    connect(this, &QComboBox::currentIndexChanged, this, &ComboBox::nameSymbol);
    nameSymbol();
    updateGeometry();
}

void ComboBox::nameSymbol()
{
    setToolTip(PlainText::toolTip(currentText()));
}

void ComboBox::setValue(const QString& value)
{
    wanted_ = value;
    setCurrentIndex(findData(value));
}

int ComboBox::padding() const
{
    return (compact_ ? 10 : Spacing::fieldPadding) + 1;
}

int ComboBox::boxHeight() const
{
    return compact_ ? Height::compact() : Height::control();
}

QSize ComboBox::sizeHint() const
{
    if (symbolOnly_)
        return {boxHeight(), boxHeight()};
    if (preferredWidth_ > 0)
        return {preferredWidth_, boxHeight()};
    int widest = PlainText::width(placeholderText(), Type::body);
    for (int index = 0; index < count(); ++index)
        widest = qMax(widest, PlainText::width(itemText(index), Type::body));
    const int symbol = hasSymbols_ ? IconSize::button() + symbolGap : 0;
    return {widest + symbol + chevronGap + IconSize::chevron() + 2 * padding(), boxHeight()};
}

QSize ComboBox::minimumSizeHint() const
{
    if (symbolOnly_)
        return sizeHint();
    return {Type::scaled(72), boxHeight()};
}

void ComboBox::hidePopup()
{
    QComboBox::hidePopup();
    // Nobody tells the box that the pointer has left it while its list was open.
    setAttribute(Qt::WA_UnderMouse, rect().contains(mapFromGlobal(QCursor::pos())));
    update();
}

void ComboBox::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    auto state = Paint::stateOf(*this);
    state.focused = state.focused || view()->isVisible();
    Paint::field(painter, rect(), state);
    const bool mirrored = isRightToLeft();
    const auto place = [this, mirrored](QRectF box) {
        if (mirrored)
            box.moveRight(width() - box.left());
        return box;
    };

    const auto symbol = currentData(ComboListDelegate::SymbolRole).toString();
    const auto written = Palette::color(isEnabled() ? Brand::ink : Brand::muted);
    if (symbolOnly_) {
        const auto edge = IconSize::button();
        return Symbols::paint(
            painter, QRectF((width() - edge) / 2.0, (height() - edge) / 2.0, edge, edge), symbol, written);
    }
    const auto chevron = IconSize::chevron();
    Symbols::paint(painter,
        place(QRectF(width() - padding() - chevron, (height() - chevron) / 2.0, chevron, chevron)),
        u"chevron.up.chevron.down"_s, Palette::color(isEnabled() ? Brand::steel : Brand::muted));

    qreal left = padding();
    if (!symbol.isEmpty()) {
        const auto edge = IconSize::button();
        Symbols::paint(painter, place(QRectF(left, (height() - edge) / 2.0, edge, edge)), symbol,
            Palette::color(isEnabled() ? Brand::steel : Brand::muted));
        left += edge + symbolGap;
    }
    const bool prompts = currentIndex() < 0;
    const QRectF textBox(left, 0, width() - left - padding() - chevron - chevronGap, height());
    PlainText::draw(painter, place(textBox), prompts ? placeholderText() : currentText(), Type::body,
        prompts && isEnabled() ? Palette::placeholder() : written);
}
