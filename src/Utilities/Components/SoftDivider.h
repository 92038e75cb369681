#pragma once

#include <QWidget>

/// A thin line between things.
class SoftDivider : public QWidget
{
    Q_OBJECT

public:
    explicit SoftDivider(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};
