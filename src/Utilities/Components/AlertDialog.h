#pragma once

#include <QDialog>

class Button;
class PlainLabel;
class QScrollArea;
class Surface;

/// An alert over its window: title, message and one "OK", which Return and Escape press too. It covers the
/// whole window with a scrim, keeps the focus and the keyboard to itself while it is open, and gives the
/// focus back when it closes. It lives inside the window, not beside it, and deletes itself.
class AlertDialog : public QDialog
{
    Q_OBJECT

public:
    /// Opens an alert over the window of `widget`. An alert that is open there shows the new texts instead.
    static AlertDialog* present(QWidget* widget, const QString& title, const QString& message);

    ~AlertDialog() override;

    QString title() const { return accessibleName(); }
    QString message() const { return accessibleDescription(); }
    Button* okButton() const { return ok_; }

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    explicit AlertDialog(QWidget* window);
    void setTexts(const QString& title, const QString& message);
    void placeCard();
    void keepFocus(QWidget* now);

    Surface* card_;
    PlainLabel* title_;
    PlainLabel* message_;
    QScrollArea* messageArea_;
    Button* ok_;
};
