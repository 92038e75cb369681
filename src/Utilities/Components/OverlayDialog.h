#pragma once

#include <QDialog>
#include <QPointer>

class Button;
class PlainLabel;
class QScrollArea;
class Surface;

/// A card over its window with a title, a message and buttons. It covers the whole window with a scrim, keeps
/// the focus and the keyboard to itself while it is the topmost of its kind, and gives the focus back when it
/// closes. Return and Space press the button that has the focus; Escape rejects. It lives inside the window,
/// not beside it, and deletes itself.
class OverlayDialog : public QDialog
{
    Q_OBJECT

public:
    ~OverlayDialog() override;

    QString title() const { return accessibleName(); }
    QString message() const { return accessibleDescription(); }

protected:
    explicit OverlayDialog(QWidget* window);

    void setTexts(const QString& title, const QString& message);
    /// In reading order, at the end of the card.
    void addButtons(const QList<Button*>& buttons);
    /// Opens the dialog, above those that are open.
    /// \param focused  the button that Return presses first
    void present(Button* focused);

    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QList<OverlayDialog*> openOverlays() const;
    void placeCard();
    void keepFocus(QWidget* now);
    void returnFocus();

    Surface* card_;
    PlainLabel* title_;
    PlainLabel* message_;
    QScrollArea* messageArea_;
    QList<Button*> buttons_;
    Button* focused_ = nullptr;
    QPointer<QWidget> focusBefore_; ///< had the focus when the dialog opened
};
