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
    void showSelection();
    void load();

    std::shared_ptr<SessionsModel> model_;
    ListDetailView* lists_;
};
