#pragma once

#include "Dashboards/AdminDashboardModel.h"
#include "Dashboards/DashboardView.h"

/// The dashboard of the office, with the first remote sessions.
class AdminDashboardView : public DashboardView
{
    Q_OBJECT

public:
    explicit AdminDashboardView(std::shared_ptr<AdminDashboardModel> model, QWidget* parent = nullptr);
};
