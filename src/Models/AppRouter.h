#pragma once

#include "AppSection.h"
#include "NotificationCenter.h"

#include <QProperty>

/// Where the main window is. Lives for the whole process on the main thread; a sign-out leaves it as it is.
class AppRouter
{
public:
    /// \param notifications  told "QuorvelMac.openMainWindow" by every open()
    explicit AppRouter(NotificationCenter& notifications) : notifications_(notifications) { }
    AppRouter(const AppRouter&) = delete;
    AppRouter& operator=(const AppRouter&) = delete;

    /// The one router of the program, made on first use together with the shared notification centre.
    static AppRouter& shared();

    /// Goes to a section and, when an id is given, to one session in it; no id clears an earlier one.
    void open(AppSection section, std::optional<qint64> sessionId = {});

    QProperty<AppSection> selectedSection{AppSection::dashboard};
    QProperty<std::optional<qint64>> selectedSessionId;

private:
    NotificationCenter& notifications_;
};
