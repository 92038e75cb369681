// Records that the program has stored, and somebody or something may have damaged.

#include "AuthUser.h"
#include "SignerDraft.h"

namespace {

/// What can be read can be written again, and then reads the same.
template <typename Record>
void check(const QByteArray& stored)
{
    const auto record = Record::decode(stored);
    if (record && Record::decode(record->encoded()) != record)
        __builtin_trap();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray stored(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    check<AuthUser>(stored);
    check<SignerDraft>(stored);
    return 0;
}
