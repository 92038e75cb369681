#pragma once

#include "SystemAppearance.h"

/// A desktop whose colours the test decides.
class SteadyAppearance : public SystemAppearance
{
public:
    bool isDark() const override { return dark; }
    void become(bool isDark)
    {
        dark = isDark;
        emit changed();
    }

    bool dark = false;
};
