#pragma once

#include <sys/fsuid.h>
#include <unistd.h>

/// Lets the superuser's thread meet files as an ordinary user does, who may not read what its owner has
/// closed. For anybody else nothing changes.
class WithoutPrivileges
{
public:
    WithoutPrivileges()
    {
        constexpr uid_t nobody = 65534;
        if (before_ == 0)
            setfsuid(nobody);
    }
    WithoutPrivileges(const WithoutPrivileges&) = delete;
    WithoutPrivileges& operator=(const WithoutPrivileges&) = delete;
    ~WithoutPrivileges() { setfsuid(before_); }

private:
    const uid_t before_ = geteuid();
};
