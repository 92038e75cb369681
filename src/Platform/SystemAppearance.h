#pragma once

#include <QObject>

/// Whether the desktop asks its programs for light or dark colours, and for colours that differ strongly,
/// followed while the program runs.
class SystemAppearance : public QObject
{
    Q_OBJECT

public:
    /// False also where the desktop states no preference or cannot be asked.
    virtual bool isDark() const = 0;
    /// The person needs more contrast. False also where the desktop cannot be asked.
    virtual bool wantsHighContrast() const = 0;

signals:
    void changed();
};
