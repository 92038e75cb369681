#pragma once

#include <QWidget>

class PlainLabel;

/// A figure with its label, its symbol and a caption line under it.
class CompactStatCard : public QWidget
{
    Q_OBJECT

public:
    enum class Look
    {
        card, ///< a card of its own
        dark, ///< a block filled with darkGradient
        banner, ///< the upper part of a card, filled with darkGradient
    };

    CompactStatCard(const QString& title, const QString& value, const QString& systemImage,
        const QString& caption, Look look = Look::card, QWidget* parent = nullptr);

    QString value() const;
    void setValue(const QString& value);
    void setCaption(const QString& caption);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Look look_;
    PlainLabel* value_;
    PlainLabel* caption_;
};
