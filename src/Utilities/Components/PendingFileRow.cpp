#include "PendingFileRow.h"

#include "Chip.h"
#include "FieldCaption.h"
#include "IconButton.h"
#include "Layouts.h"
#include "LineInput.h"
#include "Spacing.h"

#include <QResizeEvent>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int padding = 12;
constexpr int typeWidth = 196;
constexpr int removeSymbol = 18;
/// From this width on the detail stands beside the type.
constexpr int wideFrom = 600;

} // namespace

PendingFileRow::PendingFileRow(
    const QString& systemImage, const Texts& texts, const QList<ComboBox::Option>& types, QWidget* parent)
    : InnerBlock(padding, parent), label_(new LineInput),
      detail_(new PlainLabel(texts.detail, Type::small, Brand::steel)), type_(new ComboBox(types)),
      lower_(new QBoxLayout(QBoxLayout::TopToBottom))
{
    label_->setText(texts.label);
    label_->setPlaceholderText(texts.placeholder);
    label_->setAccessibleName(texts.placeholder);
    detail_->setFit(PlainLabel::Fit::elide);
    detail_->setVisible(!texts.detail.isEmpty());
    type_->setCompact(true);
    type_->setPreferredWidth(Type::scaled(typeWidth));
    type_->setValue(texts.type);
    type_->setAccessibleName(u"Type"_s);
    auto* caption = new FieldCaption(u"Type"_s);
    caption->setBuddy(type_);
    caption->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    auto* remove = new IconButton(texts.remove, u"xmark.circle.fill"_s, removeSymbol);

    auto* upper = Layouts::row(8, {label_, remove});
    auto* picker = Layouts::row(8, {caption, type_});
    lower_->setContentsMargins(0, texts.detail.isEmpty() ? 8 : 4, 0, 0);
    lower_->setSpacing(8);
    lower_->addWidget(detail_, 1);
    lower_->addLayout(picker);
    lower_->setAlignment(picker, Qt::AlignLeading);
    auto* fields = Layouts::column(0);
    fields->addLayout(upper);
    fields->addLayout(lower_);
    auto* row = Layouts::row(12);
    row->addWidget(new Chip(systemImage), 0, Qt::AlignTop);
    row->addLayout(fields, 1);
    add(row);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);

    connect(label_, &QLineEdit::textChanged, this, &PendingFileRow::labelChanged);
    connect(type_, &ComboBox::valueChanged, this, &PendingFileRow::typeChanged);
    connect(remove, &QAbstractButton::clicked, this, &PendingFileRow::removeRequested);
}

QString PendingFileRow::label() const
{
    return label_->text();
}

QString PendingFileRow::type() const
{
    return type_->value();
}

void PendingFileRow::resizeEvent(QResizeEvent* event)
{
    InnerBlock::resizeEvent(event);
    const bool wide = width() >= wideFrom && !detail_->text().isEmpty();
    lower_->setDirection(wide ? QBoxLayout::RightToLeft : QBoxLayout::TopToBottom);
    if (!detail_->text().isEmpty())
        lower_->setContentsMargins(0, wide ? 8 : 4, 0, 0);
}
