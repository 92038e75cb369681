#pragma once

#include <QString>

/// A question that the person answers with one of two buttons.
struct Question
{
    QString title;
    QString message;
    QString yes; ///< the button that takes the step that is asked about
    QString no; ///< the button that leaves everything as it is: the safe answer, which Escape gives too

    bool operator==(const Question&) const = default;
};
