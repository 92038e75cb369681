#pragma once

#include "Lists/ListScreenView.h"
#include "Sessions/SessionsModel.h"

/// The sessions of the active role: the list, its filters, and the selected session beside it.
class SessionsView : public ListScreenView
{
    Q_OBJECT

public:
    explicit SessionsView(std::shared_ptr<SessionsModel> model, QWidget* parent = nullptr);
};
