#pragma once

#include "AppSection.h"

#include <QStringList>

/// What a start of the program asks for on its command line.
struct StartOptions
{
    bool comesForward = true; ///< the window is to be shown at once, even if a status menu can bring it
    QString action; ///< id of an action of the desktop entry, which comes forward; empty for none
    QString fault; ///< why the arguments cannot be understood, as a sentence; empty if they can

    /// \param arguments  without those that the toolkit has taken
    static StartOptions of(const QStringList& arguments);
    /// What is to be printed where nothing else is asked for: the options, the version. Empty otherwise.
    static QString information(const QStringList& arguments, const QString& version);

    /// The section that an action of the desktop entry opens; nothing for any other text.
    static std::optional<AppSection> sectionOf(const QString& action);
};
