#pragma once

#include <QWidget>

class QGridLayout;

/// The fields of an edit pane in rows: three side by side where the grid is wide, two where it is narrow, and
/// one where large text leaves no room for two. A field may take more room than one of them. Fields keep the
/// order in which they were added, row by row, and the Tab key follows it.
class FieldGrid : public QWidget
{
    Q_OBJECT

public:
    /// The part of a row that a field takes, in sixths: 2 is one of three fields, 3 one of two, 6 all.
    enum Share
    {
        third = 2,
        half = 3,
        twoThirds = 4,
        whole = 6
    };

    explicit FieldGrid(QWidget* parent = nullptr);

    /// Appends a field. In each of the two arrangements the shares of a row's fields make up a whole.
    void add(QWidget* field, Share wide, Share narrow);

    bool isWide() const { return rows_ == Rows::wide; }
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Cell
    {
        QWidget* field;
        Share wide;
        Share narrow;
    };
    enum class Rows
    {
        single,
        narrow,
        wide
    };
    void arrange();

    QGridLayout* grid_;
    QList<Cell> cells_;
    Rows rows_ = Rows::narrow;
};
