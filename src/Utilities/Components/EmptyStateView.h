#pragma once

#include <QPointer>
#include <QWidget>

class Emblem;
class PlainLabel;
class QSpacerItem;
class QVBoxLayout;

/// A placeholder in the middle of its pane: for empty lists, refused access, failures.
class EmptyStateView : public QWidget
{
    Q_OBJECT

public:
    enum class Look
    {
        plain, ///< on whatever lies behind
        card, ///< on a card of its own
    };

    EmptyStateView(
        const QString& systemImage, const QString& title, const QString& message, QWidget* parent = nullptr)
        : EmptyStateView(systemImage, title, message, Look::plain, parent)
    { }
    EmptyStateView(const QString& systemImage, const QString& title, const QString& message, Look look,
        QWidget* parent = nullptr);

    void setSystemImage(const QString& symbol);
    void setTitle(const QString& title);
    void setMessage(const QString& message);
    /// Puts a widget, such as a row of buttons, under the message.
    void setActions(QWidget* actions);
    /// Centres on this pane, once it is around the view, instead of on the view's own place, as far as its
    /// own place allows.
    void centreOn(const QWidget* pane);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void fitTexts();
    int wholeHeight() const;
    void balance();

    Look look_;
    Emblem* emblem_;
    PlainLabel* title_;
    PlainLabel* message_;
    QWidget* texts_;
    QVBoxLayout* block_;
    QWidget* actions_ = nullptr;
    QSpacerItem* counterweight_; ///< under the block, as high as what the pane has above this view
    QPointer<const QWidget> pane_;
};
