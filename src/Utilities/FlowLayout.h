#pragma once

#include <QLayout>

#include <memory>
#include <vector>

/// Widgets side by side, each in its own size, that go on in the next line where they do not fit: for rows of
/// buttons in a large text size.
class FlowLayout : public QLayout
{
    Q_OBJECT

public:
    /// \param spacing  between the widgets and between the lines
    explicit FlowLayout(int spacing);
    ~FlowLayout() override;

    void addItem(QLayoutItem* item) override;
    int count() const override { return int(items_.size()); }
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;

    Qt::Orientations expandingDirections() const override { return {}; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    void setGeometry(const QRect& area) override;

private:
    std::vector<QRect> placesIn(const QRect& area) const;

    std::vector<std::unique_ptr<QLayoutItem>> items_;
};
