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
    void showAudience();
    void rebuild();
    void addHero();
    void addSignedInCard();
    void addQuickActions();
    void addFeatures();
    void arrangeParts();

    DashboardHomeModel model_;
    QStringList shownTo_; ///< what the screen says of whoever is there, and offers them
    Surface* hero_ = nullptr;
    QList<QWidget*> features_;
    QVBoxLayout* featureRows_ = nullptr;
    int featureColumns_ = 0;
};
