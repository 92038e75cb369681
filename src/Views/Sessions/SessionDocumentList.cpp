#include "Sessions/SessionDocumentList.h"

#include "Accessibility.h"
#include "Components/SecondaryButton.h"
#include "Sessions/SessionDocumentsModel.h"

using namespace Qt::StringLiterals;

SessionDocumentList::SessionDocumentList(QScrollArea& page, QWidget* parent) : LazyColumn(page, 0, parent)
{
    Accessibility::setRole(this, QAccessible::List);
    setAccessibleName(u"Session Documents"_s);
}

static SessionDocumentRow::Divider dividerOf(qsizetype index)
{
    return index == 0 ? SessionDocumentRow::Divider::none : SessionDocumentRow::Divider::above;
}

/// A key holds all that a row shows, so that a document that was changed gets a new one.
void SessionDocumentList::setDocuments(const QList<RemoteDocumentUpload>& documents)
{
    documents_ = documents;
    QList<Key> keys;
    QHash<Key, int> seen;
    for (qsizetype index = 0; index < documents_.size(); ++index) {
        const RemoteDocumentUpload& document = documents_.at(index);
        const size_t shown = qHashMulti(index == 0 ? 1 : 0, document.displayName(), document.displayDetail(),
            SessionDocumentsModel::uploader(document), SessionDocumentsModel::canOpen(document));
        Key key = QByteArray::number(document.id) + '/' + QByteArray::number(quint64(shown));
        if (const int before = seen[key]++; before > 0)
            key += '#' + QByteArray::number(before);
        keys += key;
    }
    setKeys(keys);
}

QWidget* SessionDocumentList::makeRow(qsizetype index)
{
    auto* row = new SessionDocumentRow(documents_.at(index), dividerOf(index), this);
    connect(row, &SessionDocumentRow::openRequested, this, [this, row] {
        const qsizetype at = indexOf(row);
        if (at >= 0)
            emit openRequested(documents_.at(at));
    });
    return row;
}

int SessionDocumentList::estimatedHeight(qsizetype index, int) const
{
    return SessionDocumentRow::heightOf(documents_.at(index), dividerOf(index));
}

QList<QWidget*> SessionDocumentList::tabStops(QWidget* row) const
{
    return {static_cast<SessionDocumentRow*>(row)->openButton()};
}
