#pragma once

#include <QtGlobal>

#include <unistd.h>

/// Lets the superuser's program meet files as an ordinary user does, who may not read what its owner has
/// closed. For anybody else nothing changes.
class WithoutPrivileges
{
public:
    WithoutPrivileges()
    {
        constexpr uid_t nobody = 65534;
        if (before_ == 0)
            isOrdinary_ = seteuid(nobody) == 0;
    }
    WithoutPrivileges(const WithoutPrivileges&) = delete;
    WithoutPrivileges& operator=(const WithoutPrivileges&) = delete;
    ~WithoutPrivileges()
    {
        if (isOrdinary_ && seteuid(before_) != 0)
            qFatal("the privileges that were put aside are not to be had again");
    }

private:
    const uid_t before_ = geteuid();
    bool isOrdinary_ = false;
};
