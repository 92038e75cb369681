#include "EmptyStateView.h"

#include "Layouts.h"
#include "Paint.h"
#include "Palette.h"
#include "PlainLabel.h"
#include "Spacing.h"
#include "Symbols.h"

#include <QPainter>

namespace {

constexpr int widestText = 360;
constexpr int margin = 20;

} // namespace

/// The symbol in its circle.
class EmptyStateView::Emblem : public QWidget
{
public:
    explicit Emblem(const QString& symbol) : symbol_(symbol)
    {
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    }

    void setSymbol(const QString& symbol)
    {
        symbol_ = symbol;
        update();
    }

    QSize sizeHint() const override { return {Type::scaled(72), Type::scaled(72)}; }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        Paint::roundedRect(
            painter, rect(), height() / 2.0, Palette::color(Brand::softBlue), Palette::color(Brand::line));
        QRectF box(0, 0, IconSize::large(), IconSize::large());
        box.moveCenter(QRectF(rect()).center());
        Symbols::paint(painter, box, symbol_, Palette::color(Brand::blue));
    }

private:
    QString symbol_;
};

EmptyStateView::EmptyStateView(
    const QString& systemImage, const QString& title, const QString& message, QWidget* parent)
    : QWidget(parent), emblem_(new Emblem(systemImage)), title_(new PlainLabel(title, Type::heading)),
      message_(new PlainLabel(message, Type::body, Brand::steel))
{
    title_->setAlignment(Qt::AlignHCenter);
    message_->setAlignment(Qt::AlignHCenter);
    auto* texts = Layouts::column(4, {title_, message_});
    auto* block = Layouts::holding(texts);
    block->setMaximumWidth(Type::scaled(widestText));
    auto* centred = Layouts::row(0);
    centred->addStretch(1);
    centred->addWidget(block, 1000);
    centred->addStretch(1);

    auto* column = Layouts::column(0);
    column->setContentsMargins(margin, margin, margin, margin);
    column->addStretch();
    column->addWidget(emblem_, 0, Qt::AlignHCenter);
    column->addSpacing(16);
    column->addLayout(centred);
    column->addStretch();
    setLayout(column);
}

void EmptyStateView::setSystemImage(const QString& symbol)
{
    emblem_->setSymbol(symbol);
}

void EmptyStateView::setTitle(const QString& title)
{
    title_->setText(title);
}

void EmptyStateView::setMessage(const QString& message)
{
    message_->setText(message);
}

void EmptyStateView::setActions(QWidget* actions)
{
    auto* column = static_cast<QVBoxLayout*>(layout());
    const int end = column->count() - 1;
    column->insertWidget(end, actions, 0, Qt::AlignHCenter);
    column->insertSpacing(end, 24);
}
