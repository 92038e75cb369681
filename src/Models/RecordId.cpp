#include "RecordId.h"

#include <QRandomGenerator>

qint64 randomRecordId()
{
    return QRandomGenerator::global()->bounded(1'000'000, 10'000'000);
}
