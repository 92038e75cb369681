#pragma once

#include <QStyledItemDelegate>

class ComboBox;

/// Draws the rows of a picker's list: a check mark before the chosen one, or after it when the options have
/// symbols.
class ComboListDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    static constexpr int SymbolRole = Qt::UserRole + 1;

    explicit ComboListDelegate(ComboBox* box);

    void paint(
        QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    ComboBox* box_;
};
