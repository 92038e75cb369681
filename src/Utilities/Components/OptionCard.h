#pragma once

#include <QRadioButton>

/// One of several choices, each with a title and a text that explains it. Cards with the same parent exclude
/// each other; to assistive technology it is a radio button named by its title.
class OptionCard : public QRadioButton
{
    Q_OBJECT

public:
    explicit OptionCard(const QString& title, const QString& description = {}, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

protected:
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }
    void paintEvent(QPaintEvent* event) override;

private:
    QString title_;
    QString description_;
};
