#pragma once

#include "Page.h"
#include "Shell/DashboardHomeModel.h"

class QBoxLayout;

/// The landing screen.
class DashboardHomeView : public Page
{
    Q_OBJECT

public:
    explicit DashboardHomeView(DashboardHomeModel model, QWidget* parent = nullptr);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void rebuild();
    void addHero();
    void addSignedInCard();
    void addQuickActions();
    void addFeatures();
    void arrangeFeatures();

    DashboardHomeModel model_;
    QList<QBoxLayout*> featureRows_;
};
