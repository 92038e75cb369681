#include "Uploads/PendingFileList.h"

#include "Accessibility.h"
#include "Components/IconButton.h"
#include "Components/LineInput.h"
#include "Components/PendingFileRow.h"

#include <algorithm>

using namespace Qt::StringLiterals;

static constexpr int gap = 8;

static const QList<ComboBox::Option>& categoryOptions()
{
    static const QList<ComboBox::Option> options = [] {
        QList<ComboBox::Option> made;
        for (const UploadCategory& category : uploadCategories())
            made.append({category.label, category.value});
        return made;
    }();
    return options;
}

PendingFileList::PendingFileList(Detail detail, QScrollArea& page, QWidget* parent)
    : LazyColumn(page, gap, parent), detail_(detail)
{ }

void PendingFileList::setDrafts(const QList<DesktopUploadDraft>& drafts)
{
    drafts_ = drafts;
    QList<Key> keys;
    keys.reserve(drafts.size());
    for (const DesktopUploadDraft& draft : drafts)
        keys += draft.id.toRfc4122();
    setKeys(keys);
}

DesktopUploadDraft* PendingFileList::find(const QUuid& id)
{
    const auto found = std::find_if(
        drafts_.begin(), drafts_.end(), [&id](const DesktopUploadDraft& draft) { return draft.id == id; });
    return found == drafts_.end() ? nullptr : &*found;
}

QWidget* PendingFileList::makeRow(qsizetype index)
{
    const DesktopUploadDraft& draft = drafts_.at(index);
    PendingFileRow::Texts texts;
    texts.label = draft.label;
    texts.placeholder = u"Document label, e.g. Passport, Power of Attorney, Closing Package"_s;
    texts.detail = detail_ == Detail::shown ? draft.detail() : QString();
    texts.type = draft.category;
    texts.remove = u"Remove "_s + draft.fileName();
    auto* row = new PendingFileRow(DesktopFileHelpers::icon(draft.url), texts, categoryOptions(), this);
    Accessibility::setRole(row, QAccessible::Grouping);
    row->setAccessibleName(draft.fileName());
    connectRow(row, draft.id);
    return row;
}

void PendingFileList::connectRow(const PendingFileRow* row, const QUuid& id)
{
    connect(row, &PendingFileRow::labelChanged, this, [this, id](const QString& label) {
        if (DesktopUploadDraft* draft = find(id))
            draft->label = label;
        emit labelEdited(id, label);
    });
    connect(row, &PendingFileRow::typeChanged, this, [this, id](const QString& category) {
        if (DesktopUploadDraft* draft = find(id))
            draft->category = category;
        emit categoryPicked(id, category);
    });
    connect(row, &PendingFileRow::removeRequested, this, [this, id] { emit removeRequested(id); });
}

QList<QWidget*> PendingFileList::tabStops(QWidget* row) const
{
    const auto* file = static_cast<PendingFileRow*>(row);
    return {file->labelField(), file->findChild<IconButton*>(), file->typePicker()};
}
