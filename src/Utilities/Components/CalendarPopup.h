#pragma once

#include <QDate>
#include <QFrame>

class PlainLabel;
class QCalendarWidget;
class IconButton;

/// A month to pick a day from. Arrow keys move, Return picks, Escape closes without a choice. Opened as a
/// popup it deletes itself.
class CalendarPopup : public QFrame
{
    Q_OBJECT

public:
    explicit CalendarPopup(QWidget* parent = nullptr);

    /// \param earliest  days before cannot be picked
    /// \param today  is outlined
    void setDates(const QDate& chosen, const QDate& earliest, const QDate& today);
    void openBelow(QWidget* field);

    QCalendarWidget* days() const;

signals:
    void picked(const QDate& date);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void showMonth();
    void choose(const QDate& date);

    class Days;
    Days* days_;
    PlainLabel* month_;
    IconButton* previous_;
    IconButton* next_;
};
