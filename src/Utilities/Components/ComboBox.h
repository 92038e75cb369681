#pragma once

#include <QComboBox>
#include <QWheelEvent>

/// A picker of one option from a list. While nothing is chosen it shows its prompt. The wheel scrolls the
/// page and never changes the choice.
class ComboBox : public QComboBox
{
    Q_OBJECT

public:
    using Value = QString;

    struct Option
    {
        QString text;
        QString value;
        QString symbol = {}; ///< empty for none
    };

    explicit ComboBox(const QList<Option>& options = {}, QWidget* parent = nullptr);

    /// Replaces the options. The value that was chosen or set last is chosen again where it is among them;
    /// this is no change by the person and tells nobody.
    void setOptions(const QList<Option>& options);
    void setPrompt(const QString& prompt);
    /// The width that the box takes where there is room; without one, its widest option says.
    void setPreferredWidth(int width);
    /// A lower box, for rows and the sidebar.
    void setCompact(bool compact);
    /// Shows the symbol of what is chosen alone, and its text as tool tip; the list shows both.
    void setSymbolOnly();

    /// The chosen option's value; empty when nothing is chosen.
    QString value() const { return currentData().toString(); }
    /// Chooses the option of that value; nothing when there is none.
    void setValue(const QString& value);

    bool hasSymbols() const { return hasSymbols_; }
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    void hidePopup() override;

signals:
    void valueChanged(const QString& value);

protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }

private:
    void nameSymbol();
    int padding() const;
    int boxHeight() const;

    QString wanted_; ///< the value chosen or set last, whether or not it is among the options
    int preferredWidth_ = 0;
    bool compact_ = false;
    bool symbolOnly_ = false;
    bool hasSymbols_ = false;
};
