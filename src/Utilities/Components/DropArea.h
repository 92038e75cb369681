#pragma once

#include <QList>
#include <QUrl>
#include <QWidget>

class QAbstractButton;
class QVBoxLayout;

/// A place to drop files on, with the button that chooses them for those who do not drag. It takes files of
/// this computer only; whether a name is a regular file is for the receiver to ask.
class DropArea : public QWidget
{
    Q_OBJECT

public:
    /// \param heading  also its accessible name
    DropArea(const QString& systemImage, const QString& heading, const QStringList& lines,
        QWidget* parent = nullptr);

    /// Puts a button under the texts.
    void addButton(QAbstractButton* button);

    /// Whether it looks as if files that it would take hovered over it.
    void setHovered(bool hovered);
    bool isHovered() const { return hovered_; }

    /// Those addresses that name a file of this computer.
    static QList<QUrl> localFiles(const QList<QUrl>& addresses);

signals:
    void hoveredChanged(bool hovered);
    /// In the order given; never empty.
    void filesDropped(const QList<QUrl>& files);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QVBoxLayout* column_;
    bool hovered_ = false;
    bool hasButton_ = false;
};
