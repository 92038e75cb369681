#pragma once

#include <QString>
#include <QStringList>

/// What a row of a list shows. All texts are plain.
struct ListRow
{
    QString title = {};
    QString pill = {}; ///< status; no pill when empty and `hasPill` is false
    bool hasPill = false; ///< shows the pill also for an empty status
    QStringList lines = {}; ///< under the title
    QString metaSymbol = {}; ///< before the meta line
    QString meta = {}; ///< the last line; set a little apart where the list has a meta line
    QString chip = {}; ///< symbol of the chip before the texts
    bool isIdle = false; ///< what the row stands for is out of use, which dims the chip
    QString trailing = {}; ///< a word at the trailing end of the last line

    /// How the row is read out: title first, then what stands under and beside it.
    QString spoken() const;
    bool showsPill() const { return hasPill || !pill.isEmpty(); }
};
