#pragma once

#include "Page.h"
#include "Shell/DashboardHomeModel.h"

class QVBoxLayout;
class Surface;

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
    void arrangeParts();

    DashboardHomeModel model_;
    Surface* hero_ = nullptr;
    QList<QWidget*> features_;
    QVBoxLayout* featureRows_ = nullptr;
    int featureColumns_ = 0;
};
