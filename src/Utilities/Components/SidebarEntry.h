#pragma once

#include <QAbstractButton>

/// An entry of the sidebar, named by its section's title. A click only asks: which entry is selected follows
/// from where the window is, and is told by setChecked(). Folded it shows its symbol alone, and the title as
/// tool tip.
class SidebarEntry : public QAbstractButton
{
    Q_OBJECT

public:
    SidebarEntry(const QString& title, const QString& systemImage, QWidget* parent = nullptr);

    void setFolded(bool folded);
    const QString& systemImage() const { return symbol_; }
    QSize sizeHint() const override;

protected:
    void nextCheckState() override { }
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void checkStateSet() override;
    void focusInEvent(QFocusEvent* event) override;

private:
    QString title_;
    QString symbol_;
    bool folded_ = false;
    bool keyboardFocus_ = false;
};
