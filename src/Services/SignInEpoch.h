#pragma once

#include <QtGlobal>

/// Counts the comings and goings of signed-in users. Work that began in an earlier epoch belongs to somebody
/// who has left: its late results and its late failures change nothing.
class SignInEpoch
{
public:
    quint64 current() const { return current_; }
    void advance() { ++current_; }

private:
    quint64 current_ = 0;
};
