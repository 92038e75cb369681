#pragma once

#include <QWidget>

class SelectableText;
struct SessionMessage;

/// One message of a thread: who sent it, in which role, when, and the text, which can be selected. A very
/// long message goes on in further rows, which show only their part of the text.
class SessionMessageRow : public QWidget
{
    Q_OBJECT

public:
    enum class Part
    {
        first,
        further
    };

    /// \param spaceAbove  in pixels, part of the row
    SessionMessageRow(const SessionMessage& message, Part part, const QString& text, int spaceAbove,
        QWidget* parent = nullptr);

    SelectableText* text() const { return text_; }

    /// The height of a row, if its text takes so many lines.
    static int heightOf(Part part, int lines, int spaceAbove);
    /// Room for the text in a row.
    static int textWidth(int rowWidth);

private:
    SelectableText* text_;
};
