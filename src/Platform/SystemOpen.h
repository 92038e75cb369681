#pragma once

#include <QUrl>

/// Hands addresses to the desktop: websites to its browser, mail addresses to its mail program.
class SystemOpen
{
public:
    SystemOpen() = default;
    SystemOpen(const SystemOpen&) = delete;
    SystemOpen& operator=(const SystemOpen&) = delete;
    virtual ~SystemOpen() = default;

    /// Opens an absolute http or https address that names a host and no user; anything else is ignored.
    /// \returns whether the address was handed over.
    virtual bool openWebsite(const QUrl& url) = 0;
    /// Opens a new message to one address.
    virtual bool composeMail(const QString& address) = 0;
};

/// True for the addresses that SystemOpen::openWebsite hands over.
bool isSafeWebsite(const QUrl& url);
