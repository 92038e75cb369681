#pragma once

#include <QWidget>

class PlainLabel;

/// A section's heading with an optional caption under it.
class SectionTitle : public QWidget
{
    Q_OBJECT

public:
    explicit SectionTitle(const QString& text, const QString& caption = {}, QWidget* parent = nullptr);

    void setText(const QString& text);
    /// An empty caption takes no room.
    void setCaption(const QString& caption);

private:
    PlainLabel* text_;
    PlainLabel* caption_;
};
