#pragma once

#include "PlainLabel.h"

/// A capsule with a status word, each word's first letter in upper case; "Requested" for an empty status.
class StatusPill : public PlainLabel
{
    Q_OBJECT

public:
    explicit StatusPill(const QString& status = {}, QWidget* parent = nullptr);

    void setStatus(const QString& status);

    /// What a pill reads for a status.
    static QString wording(const QString& status);
    /// Draws a pill whose top trailing corner is given, no wider than `width`. \returns what it covers.
    static QRectF draw(QPainter& painter, const QPointF& topRight, const QString& status, int width);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
    bool hasHeightForWidth() const override { return false; }

protected:
    void paintEvent(QPaintEvent* event) override;
};
