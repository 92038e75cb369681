#pragma once

#include <QWidget>

class QLayout;
class QVBoxLayout;

/// A filled rounded panel; what lies on it goes into its content column.
class Surface : public QWidget
{
    Q_OBJECT

public:
    enum class Kind
    {
        card, ///< card fill, corners of a card
        block, ///< an inner block on a card
        alert, ///< card fill, corners of an alert
        dark, ///< darkGradient, corners of a hero
        darkTile, ///< a translucent block on darkGradient
    };

    explicit Surface(Kind kind, int padding, QWidget* parent = nullptr);

    QVBoxLayout* content() const { return content_; }
    /// Appends to the content column, with some room above when it is not the first.
    void add(QWidget* widget, int spacingAbove = 0);
    void add(QLayout* layout, int spacingAbove = 0);
    /// Room between the edge's line, where there is one, and the content.
    void setPadding(int padding);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void addSpacing(int spacingAbove);

    Kind kind_;
    QVBoxLayout* content_;
};
