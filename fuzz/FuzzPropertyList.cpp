// The property list that holds the service's key.

#include "PropertyList.h"

using namespace Qt::StringLiterals;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray list(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const auto value = PropertyList::text(list, u"API_KEY"_s);
    if (value && value->isEmpty())
        __builtin_trap();
    return 0;
}
