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
    /// While locked, the number of signatures cannot be changed.
    void setLocked(bool locked);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* makeCount(BookRemoteNotaryModel& model);
    QRect feeArea() const;

    CompactStatCard* fee_;
    QWidget* count_ = nullptr;
    QBoxLayout* parts_;
};
