#include "ComboListDelegate.h"

#include "ComboBox.h"
#include "Paint.h"
#include "Palette.h"
#include "PlainText.h"
#include "Spacing.h"
#include "Symbols.h"

#include <QPainter>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace {

constexpr int padding = 10;
constexpr int gap = 12;

} // namespace

ComboListDelegate::ComboListDelegate(ComboBox* box) : QStyledItemDelegate(box), box_(box) { }

QSize ComboListDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const
{
    return {0, Height::compact()};
}

void ComboListDelegate::paint(
    QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const bool highlighted = option.state & QStyle::State_Selected;
    const bool chosen = index.row() == box_->currentIndex();
    const auto text = Palette::color(highlighted ? Brand::navy : Brand::ink);
    if (highlighted)
        Paint::roundedRect(*painter, option.rect, Radius::menuItem, Palette::color(Brand::paleBlue));

    const auto edge = IconSize::button();
    QRect line = option.rect.adjusted(padding, 0, -padding, 0);
    const auto visual
        = [&option](const QRect& rect) { return QStyle::visualRect(option.direction, option.rect, rect); };
    const QRect first(line.left(), line.top() + (line.height() - edge) / 2, edge, edge);
    line.setLeft(first.right() + 1 + gap);
    QRect check = first;
    if (box_->hasSymbols()) {
        Symbols::paint(*painter, visual(first), index.data(SymbolRole).toString(),
            Palette::color(highlighted ? Brand::blue : Brand::steel));
        check.moveRight(line.right());
        line.setRight(check.left() - gap);
    }
    if (chosen)
        Symbols::paint(*painter, visual(check), u"checkmark"_s, Palette::color(Brand::steel));
    PlainText::draw(*painter, visual(line), index.data(Qt::DisplayRole).toString(), Type::body, text);
}
