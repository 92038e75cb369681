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

#include <QStyle>

#include <algorithm>

using namespace Qt::StringLiterals;

static constexpr int chipEdge = 28;
static constexpr int symbolEdge = 14;
static constexpr int besideChip = 12;
static constexpr int besideName = 8;
/// Keeps the text clear of the scroll bar, which lies over the edge.
static constexpr int scrollBarRoom = 12;

/// What a message says about itself before its text.
static QString introduction(const SessionMessage& message)
{
    QStringList parts{message.senderName, SessionMessagesModel::roleTitle(message), message.createdAt};
    parts.removeAll(QString());
    return parts.join(u", "_s);
}

namespace {

/// Who sent a message, and when: below one another where they do not fit side by side.
class MessageHeader : public QWidget
{
public:
    explicit MessageHeader(const SessionMessage& message)
        : name_(new PlainLabel(message.senderName, Type::strong, Brand::ink, this)),
          time_(new PlainLabel(message.createdAt, Type::small, Brand::steel, this))
    {
        name_->setFit(PlainLabel::Fit::elide);
        time_->setFit(PlainLabel::Fit::elide);
        QStringList about{message.senderName, SessionMessagesModel::roleTitle(message), message.senderEmail};
        about.removeAll(QString());
        name_->setToolTip(PlainText::toolTip(about.join(u'\n')));
        QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
        policy.setHeightForWidth(true);
        setSizePolicy(policy);
    }

    QSize sizeHint() const override { return {wholeWidth(), Type::lineHeight(Type::body)}; }
    int heightForWidth(int width) const override
    {
        const int name = Type::lineHeight(Type::body);
        return wholeWidth() <= width ? name : name + Type::lineHeight(Type::small);
    }

protected:
    void resizeEvent(QResizeEvent*) override
    {
        const auto place
            = [this](const QRect& box) { return QStyle::visualRect(layoutDirection(), rect(), box); };
        const int line = Type::lineHeight(Type::body);
        const bool areBeside = wholeWidth() <= width();
        const int nameWidth = std::min(name_->sizeHint().width(), width());
        const QPoint corner = areBeside ? QPoint(nameWidth + besideName, 0) : QPoint(0, line);
        const int timeHeight = areBeside ? line : Type::lineHeight(Type::small);
        name_->setGeometry(place({0, 0, nameWidth, line}));
        time_->setGeometry(place({corner, QSize(width() - corner.x(), timeHeight)}));
    }

private:
    int wholeWidth() const { return name_->sizeHint().width() + besideName + time_->sizeHint().width(); }

    PlainLabel* name_;
    PlainLabel* time_;
};

} // namespace

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
        column->addWidget(new MessageHeader(message));
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
