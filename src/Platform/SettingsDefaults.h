#pragma once

#include "UserDefaults.h"

#include <QMap>
#include <QVariant>

/// The preferences as Qt keeps them: an INI file in the user's configuration folder. Keys are made of ASCII
/// letters, digits, dots, underscores and hyphens; anything else found in the file is left out.
///
/// A change is written as a whole new file beside the old one, read back and compared, and only then put in
/// its place. Whatever interrupts that (a kill, a full disk, a read-only folder) leaves the old file whole,
/// unless something was to be removed: then the old file gives way, and the rest is written anew where it
/// was. Of two programs that save, the last one's record is kept, whole. A file that is no record of
/// preferences counts as empty.
class SettingsDefaults : public UserDefaults
{
public:
    /// The user's own preferences.
    SettingsDefaults();
    /// \param file  another file, for tests
    explicit SettingsDefaults(QString file);

    std::optional<QByteArray> data(const QString& key) const override;
    std::optional<QString> string(const QString& key) const override;
    void setData(const QString& key, const QByteArray& value) override;
    void setString(const QString& key, const QString& value) override;
    void remove(const QString& key) override;

private:
    const QString file_;
    QMap<QString, QVariant> values_;
    bool isSaved_ = true; ///< whether the disk took the latest change
};
