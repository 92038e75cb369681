#pragma once

#include "Sessions/SessionsModel.h"

#include <QWidget>

class ListDetailView;

/// The sessions of the active role: the list, its filters, and the selected session beside it.
class SessionsView : public QWidget
{
    Q_OBJECT

public:
    explicit SessionsView(std::shared_ptr<SessionsModel> model, QWidget* parent = nullptr);

private:
    void addStatusPicker();
    void addShortcuts();
    void choose(qint64 id);
    void showSelectedRow();
    void showSelection();

    std::shared_ptr<SessionsModel> model_;
    std::shared_ptr<SessionDetailModel> shown_; ///< whose detail is on screen
    ListDetailView* lists_;
};
