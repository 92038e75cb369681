#pragma once

#include <QtGlobal>

/// An id for a record that came without one: uniformly random in 1000000..9999999, so that lists can tell
/// such records apart.
qint64 randomRecordId();
