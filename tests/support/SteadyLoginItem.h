#pragma once

#include "LoginItem.h"

/// A desktop whose login item the test decides. It may refuse changes, and notes the calls.
class SteadyLoginItem : public LoginItem
{
public:
    bool isEnabled() const override { return enabled; }
    bool registerItem() override
    {
        ++registrations;
        return become(true);
    }
    bool unregisterItem() override
    {
        ++unregistrations;
        return become(false);
    }

    bool enabled = false;
    bool refuses = false;
    int registrations = 0;
    int unregistrations = 0;

private:
    bool become(bool on)
    {
        if (!refuses)
            enabled = on;
        return !refuses;
    }
};
