#pragma once

#include "SystemAppearance.h"

/// A desktop whose colours the test decides.
class SteadyAppearance : public SystemAppearance
{
public:
    bool isDark() const override { return dark_; }
    bool wantsHighContrast() const override { return highContrast_; }

    void become(bool isDark)
    {
        dark_ = isDark;
        emit changed();
    }
    void setHighContrast(bool isHigh)
    {
        highContrast_ = isHigh;
        emit changed();
    }

private:
    bool dark_ = false;
    bool highContrast_ = false;
};
