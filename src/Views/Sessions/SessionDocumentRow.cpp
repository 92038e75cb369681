#include "Sessions/SessionDocumentRow.h"

#include "Accessibility.h"
#include "Components/Chip.h"
#include "Components/PlainLabel.h"
#include "Components/SecondaryButton.h"
#include "Components/SoftDivider.h"
#include "Layouts.h"
#include "Sessions/SessionDocumentsModel.h"
#include "Spacing.h"

using namespace Qt::StringLiterals;

static constexpr int besideChip = 12;
static constexpr int besideDivider = 12;
static constexpr int dividerHeight = 1;
/// In large text, so that the button beside it is whole.
static constexpr int leastTitle = 24;

/// On one line, which a tool tip completes. In large text that would leave too little of a name.
static PlainLabel* line(const QString& text, const Type::Style& style, Brand::Tone tone)
{
    auto* label = new PlainLabel(text, style, tone);
    label->setFit(Type::factor() > 1 ? PlainLabel::Fit::wrap : PlainLabel::Fit::elide);
    return label;
}

SessionDocumentRow::SessionDocumentRow(const RemoteDocumentUpload& document, Divider divider, QWidget* parent)
    : QWidget(parent), open_(new SecondaryButton(u"Open"_s, u"arrow.up.right.square"_s))
{
    const QString name = document.displayName();
    Accessibility::setRole(this, QAccessible::ListItem);
    setAccessibleName(name);
    open_->setButtonSize(Button::Size::small);
    open_->setAccessibleName(u"Open "_s + name);
    open_->setEnabled(SessionDocumentsModel::canOpen(document));
    connect(open_, &Button::clicked, this, &SessionDocumentRow::openRequested);

    auto* top = Layouts::row(Spacing::fieldsAcross);
    PlainLabel* title = line(name, Type::strong, Brand::ink);
    title->setMinimumWidth(leastTitle);
    top->addWidget(title, 1);
    top->addWidget(open_, 0, Qt::AlignTop);
    auto* texts = Layouts::column(0);
    texts->addLayout(top);
    texts->addWidget(line(document.displayDetail(), Type::small, Brand::steel));
    if (const QString uploader = SessionDocumentsModel::uploader(document); !uploader.isEmpty())
        texts->addWidget(line(uploader, Type::small, Brand::steel));
    auto* row = Layouts::row(besideChip);
    row->addWidget(new Chip(SessionDocumentsModel::icon(document)), 0, Qt::AlignTop);
    row->addLayout(texts, 1);

    auto* column = Layouts::column(besideDivider);
    if (divider == Divider::above) {
        column->setContentsMargins(0, besideDivider, 0, 0);
        column->addWidget(new SoftDivider);
    }
    column->addLayout(row);
    setLayout(column);
}

int SessionDocumentRow::heightOf(const RemoteDocumentUpload& document, Divider divider)
{
    const int smallLines = SessionDocumentsModel::uploader(document).isEmpty() ? 1 : 2;
    const int above = divider == Divider::above ? 2 * besideDivider + dividerHeight : 0;
    return above + Height::small() + smallLines * Type::lineHeight(Type::small);
}
