#pragma once

#include "Screen/ScreenModel.h"

/// What the details of all records have in common in which something can be changed: the change that is on
/// its way to the bridge, and how it ends. At most one is on its way at a time; asking for another one
/// meanwhile does nothing.
class EditPaneModel : public ScreenModel
{
    Q_OBJECT

public:
    explicit EditPaneModel(const ScreenContext& context) : ScreenModel(context), works_(epoch()) { }

    /// A change that is on its way to the bridge.
    enum class Work
    {
        none,
        notaryUpdate,
        adminChanges,
        cancellation,
        deletion,
        profile,
        password,
    };
    QProperty<Work> work{Work::none};

    /// The fields differ from what was loaded or saved last.
    virtual bool hasEdits() const = 0;
    /// What would be lost with this model.
    virtual LeaveGuard::Unfinished unfinished() const;

    /// Another record is looked at. A change that is on its way still arrives and is told about.
    virtual void close() { isClosed_ = true; }
    /// The record is looked at after all: its person has come back to what they left.
    virtual void reopen() { isClosed_ = false; }

signals:
    /// The bridge has accepted a change, so that the list may show this record differently.
    void changed();
    /// The record exists no longer.
    void deleted();

protected:
    /// What is particular about a change.
    struct Change
    {
        Work work = Work::none;
        QString failureTitle;
        std::function<QCoro::Task<JSONObject>(const APIClient& client, const QString& token)> send;
        std::function<void()> accepted;
    };

    /// Sends a change and tells how it ended: by accepted(), or by the rule for failures.
    QCoro::Task<> carryOut(Change change);
    /// Called after a change that the bridge has accepted, unless the pane is closed.
    virtual void loadAgain() { }

    bool isClosed() const { return isClosed_; }

private:
    bool isClosed_ = false;
    Turns works_;
};
