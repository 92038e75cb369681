#pragma once

#include <QWidget>

#include <memory>

class EmptyStateView;
class QStackedLayout;
class SessionDetailModel;
class SessionDetailPage;

/// The detail of the selected session: while it is loading, when it could not be loaded, and what it holds.
/// It loads its session when it is shown first.
class SessionDetailView : public QWidget
{
    Q_OBJECT

public:
    explicit SessionDetailView(std::shared_ptr<SessionDetailModel> model, QWidget* parent = nullptr);
    ~SessionDetailView() override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void showState();
    QWidget* makeLoading();
    EmptyStateView* makeMissing();

    std::shared_ptr<SessionDetailModel> model_;
    QStackedLayout* states_;
    QWidget* loading_;
    EmptyStateView* missing_;
    SessionDetailPage* page_ = nullptr; ///< made when there is something to show
    bool wasShown_ = false;
};
