#pragma once

#include "BrandStyle.h"

#include <QDateTimeEdit>
#include <QPointer>
#include <QWheelEvent>

class CalendarPopup;

/// What the fields for dates share: a date typed section by section or picked from a calendar, which the
/// symbols in the field, F4 and Alt+Down open. It works on clock readings written as UTC. The wheel never
/// changes it.
class DateEditor : public QDateTimeEdit, public SpinBoxArrangement
{
    Q_OBJECT

public:
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    QRect partRect(QStyle::SubControl part) const override;

    void openCalendar();
    /// The calendar while it is open, or null.
    CalendarPopup* calendar() const;
    /// At which the focus came in, for as long as it is there; negative otherwise. Its name begins with the
    /// field's, for those who hear of nothing but this part.
    int entryPart() const { return entryPart_; }
    /// In which the date is typed.
    QLineEdit* line() const { return lineEdit(); }

protected:
    enum class Kind
    {
        date,
        dateAndTime
    };

    DateEditor(Kind kind, QWidget* parent);

    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
    void focusOutEvent(QFocusEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static constexpr int noPart = -1;

    void tellPart();
    void tellWhole();
    QRect leadingSymbol() const;
    QRect trailingSymbol() const;

    Kind kind_;
    QPointer<CalendarPopup> popup_;
    int toldPart_ = noPart; ///< the last one of which assistive technology was told
    int entryPart_ = noPart;
    bool isAtPart_ = false; ///< whether it takes that for what has the focus, or else the whole
};
