#pragma once

#include "JSONObject.h"

/// One user account as the administration sees it.
struct AdminUserRecord
{
    qint64 id = 0;
    JSONObject raw;

    /// Same id and same e-mail.
    friend bool operator==(const AdminUserRecord& a, const AdminUserRecord& b);
};
