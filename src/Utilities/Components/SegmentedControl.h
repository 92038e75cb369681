#pragma once

#include <QList>
#include <QWidget>

class QButtonGroup;

/// A choice of one among a few, side by side. To assistive technology it is a group, named by its label, of
/// radio buttons; the arrow keys move the choice.
class SegmentedControl : public QWidget
{
    Q_OBJECT

public:
    using Value = QString;

    struct Option
    {
        QString text;
        QString value;
    };

    SegmentedControl(const QString& label, const QList<Option>& options, QWidget* parent = nullptr);

    /// The chosen option's value; empty when nothing is chosen.
    QString value() const;
    void setValue(const QString& value);

signals:
    void valueChanged(const QString& value);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QButtonGroup* group_;
    QList<Option> options_;
};
