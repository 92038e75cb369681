#pragma once

#include <QByteArray>

#include <ctime>

/// Puts the process into a time zone for as long as it lives.
class LocalZone
{
public:
    explicit LocalZone(const QByteArray& name)
        : previous_(qgetenv("TZ")), wasSet_(qEnvironmentVariableIsSet("TZ"))
    {
        qputenv("TZ", name);
        tzset();
    }
    LocalZone(const LocalZone&) = delete;
    LocalZone& operator=(const LocalZone&) = delete;
    ~LocalZone()
    {
        if (wasSet_)
            qputenv("TZ", previous_);
        else
            qunsetenv("TZ");
        tzset();
    }

private:
    QByteArray previous_;
    bool wasSet_;
};
