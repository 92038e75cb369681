#pragma once

#include "PlainText.h"

#include <QCheckBox>

/// An on/off choice with its label on the right, which takes several lines where there is no room for one.
/// The whole row can be clicked.
class Switch : public QCheckBox
{
    Q_OBJECT

public:
    using Value = bool;

    /// \param label  also its accessible name
    explicit Switch(const QString& label, QWidget* parent = nullptr);

    /// Keeps the label for assistive technology only, where a text beside it says the same.
    void setLabelVisible(bool visible);

    bool value() const { return isChecked(); }
    void setValue(bool on) { setChecked(on); }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return labelVisible_; }
    int heightForWidth(int width) const override;

signals:
    void valueChanged(bool on);

protected:
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    /// The label as it is broken in a switch of this width.
    PlainText::Paragraph labelLines(int width) const;
    void paintTrack(QPainter& painter, const QRectF& track) const;

    QWidget* track_;
    QString label_;
    bool labelVisible_ = true;
};
