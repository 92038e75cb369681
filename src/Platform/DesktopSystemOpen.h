#pragma once

#include "SystemOpen.h"

/// Opens addresses with the programs that the desktop has chosen for them.
class DesktopSystemOpen : public SystemOpen
{
public:
    bool openWebsite(const QUrl& url) override;
    bool composeMail(const QString& address) override;
};
