#pragma once

#include <QProgressBar>

/// A thin bar that says how much is done. To assistive technology it is a progress bar with its percentage.
class ProgressBar : public QProgressBar
{
    Q_OBJECT

public:
    /// \param label  its accessible name
    explicit ProgressBar(const QString& label, QWidget* parent = nullptr);

    /// \param total  0 or less while it is not known yet: the bar is empty
    void setProgress(qint64 done, qint64 total);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
};
