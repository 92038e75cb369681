#pragma once

#include "LoginItem.h"

#include <QStringList>

/// The login item as an autostart entry in the user's configuration folder. Entries for all users that the
/// system's folders hold under the same name count as long as the user has none.
class AutostartLoginItem : public LoginItem
{
public:
    /// Starts this very program, among the session's own folders.
    /// \param id  of the program's desktop entry, e.g. "app.example.Example"
    explicit AutostartLoginItem(const QString& id);

    struct Folders
    {
        QString user;
        QStringList system; ///< the most important one first
    };
    /// \param program  the path of the program's file
    AutostartLoginItem(QString id, QString program, const Folders& configuration);

    /// What the desktop will do: the entry that counts is there, names a program that can be started, and is
    /// neither hidden nor switched off.
    bool isEnabled() const override;
    bool registerItem() override;
    bool unregisterItem() override;

private:
    bool isStartedForAll() const;

    const QString id_;
    const QString program_;
    QString ownEntry_;
    QStringList systemEntries_;
};
