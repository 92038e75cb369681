#pragma once

#include "Page.h"
#include "Shell/DashboardHomeModel.h"

/// The landing screen.
class DashboardHomeView : public Page
{
    Q_OBJECT

public:
    explicit DashboardHomeView(DashboardHomeModel model, QWidget* parent = nullptr);

private:
    void rebuild();
    void addHero();
    void addSignedInCard();
    void addQuickActions();
    void addFeatures();

    DashboardHomeModel model_;
};
