#pragma once

#include <QDate>
#include <QFrame>

class IconButton;
class MonthGrid;
class PlainLabel;

/// A month to pick a day from, with a header that turns its pages. Escape closes it without a choice. Opened
/// as a popup it deletes itself.
class CalendarPopup : public QFrame
{
    Q_OBJECT

public:
    explicit CalendarPopup(QWidget* parent = nullptr);

    /// \param earliest  days before cannot be picked
    /// \param today  is outlined
    void setDates(const QDate& chosen, const QDate& earliest, const QDate& today);
    void openBelow(QWidget* field);

    MonthGrid* days() const { return days_; }

signals:
    void picked(const QDate& date);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void nameMonth();

    PlainLabel* month_;
    IconButton* previous_;
    IconButton* next_;
    MonthGrid* days_;
};
