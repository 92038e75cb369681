#pragma once

#include <QWidget>

class SecondaryButton;
struct RemoteDocumentUpload;

/// A document of a session: what it is, who brought it, and the button that opens it.
class SessionDocumentRow : public QWidget
{
    Q_OBJECT

public:
    enum class Divider
    {
        none,
        above
    };

    SessionDocumentRow(const RemoteDocumentUpload& document, Divider divider, QWidget* parent = nullptr);

    SecondaryButton* openButton() const { return open_; }

    /// Of the row that such a document gets.
    static int heightOf(const RemoteDocumentUpload& document, Divider divider);

signals:
    void openRequested();

private:
    SecondaryButton* open_;
};
