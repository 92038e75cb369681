#include "Screen/SearchIndex.h"

#include <QByteArrayMatcher>

#include <algorithm>
#include <numeric>

static constexpr char separator = '\xFF';

SearchIndex SearchIndex::of(const QList<QString>& texts)
{
    SearchIndex index;
    index.ends_.reserve(texts.size());
    for (const QString& text : texts) {
        index.buffer_ += text.toLower().toUtf8();
        index.ends_ += index.buffer_.size();
        index.buffer_ += separator;
    }
    return index;
}

QList<int> SearchIndex::matches(const QString& query) const
{
    QList<int> rows;
    const QByteArray pattern = query.trimmed().toLower().toUtf8();
    if (pattern.isEmpty()) {
        rows.resize(rowCount());
        std::iota(rows.begin(), rows.end(), 0);
        return rows;
    }
    const QByteArrayMatcher matcher(pattern);
    auto end = ends_.begin();
    for (qsizetype at = matcher.indexIn(buffer_, 0); at >= 0; at = matcher.indexIn(buffer_, *end)) {
        end = std::upper_bound(end, ends_.end(), at);
        rows += int(end - ends_.begin());
    }
    return rows;
}
