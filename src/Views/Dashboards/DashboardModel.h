#pragma once

#include "Screen/LoadingModel.h"
#include "Screen/RowListModel.h"
#include "Screen/Shortcut.h"

/// What the dashboards of the three roles share: the header, tiles with counts, shortcuts, and a load that
/// makes all of its requests at once and stores their results only when every one has succeeded.
class DashboardModel : public LoadingModel
{
    Q_OBJECT

public:
    struct Texts
    {
        QString title;
        QString subtitle;
        QString failureTitle; ///< of the alert when a load failed
    };
    struct Tile
    {
        QString title;
        QString systemImage;
        QString value;
    };

    explicit DashboardModel(const ScreenContext& context) : LoadingModel(context) { }

    virtual Texts texts() const = 0;
    /// From left to right, counted in the lists as they are now.
    virtual QList<Tile> tiles() const = 0;
    /// A shortcut without a section loads the dashboard again.
    virtual QList<Shortcut> shortcuts() const = 0;

    void run(const Shortcut& shortcut);

protected:
    QString loadFailureTitle() const override { return texts().failureTitle; }

    /// How many of the sessions have one of these statuses, in any letter case.
    static qsizetype count(const QList<SessionSummary>& sessions, const QList<QString>& statuses);
    /// How many of the sessions are still to come, with a time agreed on.
    static qsizetype countUpcoming(const QList<SessionSummary>& sessions);
};
