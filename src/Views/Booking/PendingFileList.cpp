#include "Booking/PendingFileList.h"

#include "Accessibility.h"
#include "Booking/TabOrder.h"
#include "Components/IconButton.h"
#include "Components/LineInput.h"
#include "Components/PendingFileRow.h"

#include <QApplication>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>

using namespace Qt::StringLiterals;

static constexpr int gap = 8;
/// So many rows cost nothing, and all of them are there.
static constexpr qsizetype few = 30;
/// Rows beyond the visible ones, so that Tab finds the next one and a short scroll shows no gap.
static constexpr int margin = 2;

/// The row may be in the middle of reporting something.
static void discard(PendingFileRow* row)
{
    row->hide();
    row->deleteLater();
}

PendingFileList::PendingFileList(
    const QString& placeholder, QWidget& before, QScrollArea& page, QWidget* parent)
    : QWidget(parent), placeholder_(placeholder), before_(before), page_(page)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    connect(page_.verticalScrollBar(), &QScrollBar::valueChanged, this, &PendingFileList::updateRows);
    connect(page_.verticalScrollBar(), &QScrollBar::rangeChanged, this, &PendingFileList::updateRows);
}

void PendingFileList::setDrafts(const QList<DesktopUploadDraft>& drafts)
{
    QSet<QUuid> staying;
    for (const DesktopUploadDraft& draft : drafts)
        staying.insert(draft.id);
    moveFocusFromRemoved(staying);
    drafts_ = drafts;
    for (const QUuid& id : rows_.keys()) {
        if (!staying.contains(id))
            discard(rows_.take(id));
    }
    if (rowHeight_ == 0 && !drafts_.isEmpty()) {
        PendingFileRow* first = makeRow(drafts_.constFirst());
        rowHeight_ = first->sizeHint().height();
        rows_.insert(drafts_.constFirst().id, first);
    }
    const auto count = static_cast<int>(drafts_.size());
    setFixedHeight(count == 0 ? 0 : count * (rowHeight_ + gap) - gap);
    updateRows();
}

/// To the label of the next row, or of the last one before; a focus left to itself would end on a button.
void PendingFileList::moveFocusFromRemoved(const QSet<QUuid>& staying)
{
    const qsizetype focused = focusedIndex();
    if (focused < 0 || staying.contains(drafts_.at(focused).id))
        return;
    const auto stays = [&staying](const DesktopUploadDraft& draft) { return staying.contains(draft.id); };
    auto next = std::find_if(drafts_.cbegin() + focused, drafts_.cend(), stays);
    if (next == drafts_.cend()) {
        const auto before = std::find_if(drafts_.crend() - focused, drafts_.crend(), stays);
        next = before == drafts_.crend() ? drafts_.cend() : before.base() - 1;
    }
    if (next == drafts_.cend())
        return;
    if (PendingFileRow* row = rows_.value(next->id))
        row->labelField()->setFocus(Qt::OtherFocusReason);
}

qsizetype PendingFileList::indexOf(const QUuid& id) const
{
    const auto found = std::find_if(
        drafts_.begin(), drafts_.end(), [&id](const DesktopUploadDraft& draft) { return draft.id == id; });
    return found == drafts_.end() ? -1 : found - drafts_.begin();
}

qsizetype PendingFileList::focusedIndex() const
{
    const QWidget* focus = QApplication::focusWidget();
    for (const auto [id, row] : rows_.asKeyValueRange()) {
        if (row->isAncestorOf(focus))
            return indexOf(id);
    }
    return -1;
}

/// In ascending order.
QList<qsizetype> PendingFileList::neededRows() const
{
    const qsizetype count = drafts_.size();
    QList<qsizetype> needed;
    const auto need = [&needed, count](qsizetype first, qsizetype last) {
        for (qsizetype index = std::max<qsizetype>(first, 0); index <= std::min(last, count - 1); ++index)
            needed += index;
    };
    if (count <= few) {
        need(0, count - 1);
        return needed;
    }
    const int step = rowHeight_ + gap;
    const int top = mapFrom(page_.viewport(), QPoint()).y();
    need(0, 0);
    need(top / step - margin, (top + page_.viewport()->height()) / step + margin);
    if (const qsizetype focused = focusedIndex(); focused >= 0)
        need(focused - 1, focused + 1);
    need(count - 1, count - 1);
    std::sort(needed.begin(), needed.end());
    needed.erase(std::unique(needed.begin(), needed.end()), needed.end());
    return needed;
}

void PendingFileList::updateRows()
{
    if (!isVisible() || drafts_.isEmpty())
        return;
    QHash<QUuid, PendingFileRow*> kept;
    QWidget* previous = &before_;
    for (const qsizetype index : neededRows()) {
        const DesktopUploadDraft draft = drafts_.at(index);
        PendingFileRow* row = rows_.take(draft.id);
        if (!row)
            row = makeRow(draft);
        kept.insert(draft.id, row);
        row->setGeometry(0, static_cast<int>(index) * (rowHeight_ + gap), width(), rowHeight_);
        row->setVisible(true);
        previous = TabOrder::append(
            previous, {row->labelField(), row->findChild<IconButton*>(), row->typePicker()});
    }
    for (PendingFileRow* row : std::as_const(rows_))
        discard(row);
    rows_ = kept;
}

PendingFileRow* PendingFileList::makeRow(const DesktopUploadDraft& draft)
{
    static const QList<ComboBox::Option> categories = [] {
        QList<ComboBox::Option> options;
        for (const UploadCategory& category : uploadCategories())
            options.append({category.label, category.value});
        return options;
    }();
    PendingFileRow::Texts texts;
    texts.label = draft.label;
    texts.placeholder = placeholder_;
    texts.type = draft.category;
    texts.remove = u"Remove "_s + draft.fileName();
    auto* row = new PendingFileRow(DesktopFileHelpers::icon(draft.url), texts, categories, this);
    Accessibility::setRole(row, QAccessible::Grouping);
    row->setAccessibleName(draft.fileName());

    const QUuid id = draft.id;
    connect(row, &PendingFileRow::labelChanged, this, [this, id](const QString& label) {
        drafts_[indexOf(id)].label = label;
        emit labelEdited(id, label);
    });
    connect(row, &PendingFileRow::typeChanged, this, [this, id](const QString& category) {
        drafts_[indexOf(id)].category = category;
        emit categoryPicked(id, category);
    });
    connect(row, &PendingFileRow::removeRequested, this, [this, id] { emit removeRequested(id); });
    return row;
}

void PendingFileList::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    updateRows();
}

void PendingFileList::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    updateRows();
}
