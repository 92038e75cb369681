#pragma once

#include <QWidget>

class BookRemoteNotaryModel;
class CompactStatCard;
class QBoxLayout;

/// The estimated fee, and how many signatures it is for.
class FeePanel : public QWidget
{
    Q_OBJECT

public:
    explicit FeePanel(BookRemoteNotaryModel& model, QWidget* parent = nullptr);

    /// Whether fee and signatures stand side by side instead of one above the other.
    void setAcross(bool across);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* makeCount(BookRemoteNotaryModel& model);
    QRect feeArea() const;

    CompactStatCard* fee_;
    QBoxLayout* parts_;
};
