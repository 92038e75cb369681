#pragma once

#include "LineInput.h"

/// The field above a list that filters it. It is named by its placeholder; Escape empties it, and so does the
/// button that it shows at its end while there is text.
class SearchField : public LineInput
{
    Q_OBJECT

public:
    using Value = QString;

    explicit SearchField(const QString& placeholder, QWidget* parent = nullptr);

    QString value() const { return text(); }
    void setValue(const QString& text);

signals:
    void valueChanged(const QString& text);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void arrange();

    class IconButton* clear_;
};
