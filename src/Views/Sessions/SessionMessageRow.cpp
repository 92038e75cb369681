#include "Sessions/SessionMessageRow.h"

#include "Accessibility.h"
#include "Components/Chip.h"
#include "Components/PlainLabel.h"
#include "Components/SelectableText.h"
#include "FocusRing.h"
#include "Layouts.h"
#include "PlainText.h"
#include "Sessions/SessionMessagesModel.h"
#include "Spacing.h"

using namespace Qt::StringLiterals;

static constexpr int chipEdge = 28;
static constexpr int symbolEdge = 14;
static constexpr int besideChip = 12;
static constexpr int leastName = 24;
static constexpr int leastTime = 100;
/// Keeps the text clear of the scroll bar, which lies over the edge.
static constexpr int scrollBarRoom = 12;

/// What a message says about itself before its text.
static QString introduction(const SessionMessage& message)
{
    QStringList parts{message.senderName, SessionMessagesModel::roleTitle(message), message.createdAt};
    parts.removeAll(QString());
    return parts.join(u", "_s);
}

SessionMessageRow::SessionMessageRow(
    const SessionMessage& message, Part part, const QString& text, int spaceAbove, QWidget* parent)
    : QWidget(parent), text_(new SelectableText(text))
{
    const QString name = introduction(message) + (part == Part::further ? u", continued"_s : QString());
    Accessibility::setRole(this, QAccessible::ListItem);
    setAccessibleName(name);
    text_->setAccessibleName(name);
    text_->setFocusPolicy(Qt::ClickFocus);
    FocusRing::attach(text_, Radius::menuItem);

    auto* column = Layouts::column(0);
    auto* row = Layouts::row(Type::scaled(besideChip));
    if (part == Part::first) {
        column->addWidget(makeHeader(message));
        auto* chip = new Chip(SessionMessagesModel::icon(message), chipEdge);
        chip->setSymbolEdge(symbolEdge);
        row->addWidget(chip, 0, Qt::AlignTop);
    } else {
        row->addSpacing(Type::scaled(chipEdge));
    }
    column->addWidget(text_);
    row->addLayout(column, 1);
    const bool mirrored = isRightToLeft();
    row->setContentsMargins(mirrored ? scrollBarRoom : 0, spaceAbove, mirrored ? 0 : scrollBarRoom, 0);
    setLayout(row);
}

QWidget* SessionMessageRow::makeHeader(const SessionMessage& message)
{
    auto* name = new PlainLabel(message.senderName, Type::strong);
    name->setFit(PlainLabel::Fit::elide);
    name->setMinimumWidth(leastName);
    QStringList about{message.senderName, SessionMessagesModel::roleTitle(message), message.senderEmail};
    about.removeAll(QString());
    name->setToolTip(PlainText::toolTip(about.join(u'\n')));
    auto* time = new PlainLabel(message.createdAt, Type::small, Brand::steel);
    time->setFit(PlainLabel::Fit::elide);
    // A long name gives way to the time, unless that is no time at all.
    time->setMinimumWidth(std::min(time->sizeHint().width(), leastTime));
    auto* header = Layouts::row(8, {name, time});
    header->addStretch();
    QWidget* held = Layouts::holding(header);
    held->setFixedHeight(Type::lineHeight(Type::body));
    return held;
}

int SessionMessageRow::heightOf(Part part, int lines, int spaceAbove)
{
    const int header = part == Part::first ? 1 : 0;
    const int height = (header + lines) * Type::lineHeight(Type::body);
    return spaceAbove + std::max(height, part == Part::first ? Type::scaled(chipEdge) : 0);
}

int SessionMessageRow::textWidth(int rowWidth)
{
    return rowWidth - Type::scaled(chipEdge) - Type::scaled(besideChip) - scrollBarRoom;
}
