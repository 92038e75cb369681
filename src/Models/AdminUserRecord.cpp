#include "AdminUserRecord.h"

using namespace Qt::StringLiterals;

bool operator==(const AdminUserRecord& a, const AdminUserRecord& b)
{
    return a.id == b.id && a.raw.string(u"email"_s) == b.raw.string(u"email"_s);
}
