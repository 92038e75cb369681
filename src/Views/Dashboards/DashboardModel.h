#pragma once

#include "Screen/RowListModel.h"
#include "Screen/ScreenModel.h"
#include "Screen/Shortcut.h"

#include <functional>

/// What the dashboards of the three roles share: the header, tiles with counts, shortcuts, and a load that
/// makes all of its requests at once and stores their results only when every one has succeeded. Loads may
/// overlap: each stores its results when it is complete, unless a newer one has done so before. A failed one
/// leaves the lists as they were.
class DashboardModel : public ScreenModel
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

    explicit DashboardModel(const ScreenContext& context) : ScreenModel(context), loads_(epoch()) { }

    virtual Texts texts() const = 0;
    /// From left to right, counted in the lists as they are now.
    virtual QList<Tile> tiles() const = 0;
    /// A shortcut without a section loads the dashboard again.
    virtual QList<Shortcut> shortcuts() const = 0;

    QProperty<bool> isLoading{false};

    QCoro::Task<> load();
    void run(const Shortcut& shortcut);

signals:
    /// The lists are those of a new load.
    void loaded();

protected:
    /// Puts the results of one load in place of those of another.
    using Store = std::function<void()>;

    /// Makes the requests of a load, all at once, and awaits them in their order.
    /// \throws AppError of the first that failed
    virtual QCoro::Task<Store> fetch(QString idToken) = 0;

    /// How many of the sessions have one of these statuses, in any letter case.
    static qsizetype count(const QList<SessionSummary>& sessions, const QList<QString>& statuses);
    /// How many of the sessions are still to come, with a time agreed on.
    static qsizetype countUpcoming(const QList<SessionSummary>& sessions);

private:
    Turns loads_;
};
