#pragma once

#include "Dashboards/BusinessDashboardModel.h"
#include "Dashboards/DashboardView.h"

/// The dashboard of a business, with its clients.
class BusinessDashboardView : public DashboardView
{
    Q_OBJECT

public:
    explicit BusinessDashboardView(std::shared_ptr<BusinessDashboardModel> model, QWidget* parent = nullptr);
};
