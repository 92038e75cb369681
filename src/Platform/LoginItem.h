#pragma once

/// Whether the desktop starts this program when the person signs in to it. The desktop's own record is the
/// truth, which others may change at any time.
class LoginItem
{
public:
    LoginItem() = default;
    LoginItem(const LoginItem&) = delete;
    LoginItem& operator=(const LoginItem&) = delete;
    virtual ~LoginItem() = default;

    virtual bool isEnabled() const = 0;

    /// Asks the desktop to start the program.
    /// \returns whether it will
    [[nodiscard]] virtual bool registerItem() = 0;
    /// Asks the desktop not to start the program any more.
    /// \returns whether it will not
    [[nodiscard]] virtual bool unregisterItem() = 0;
};
