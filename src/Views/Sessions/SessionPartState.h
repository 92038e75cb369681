#pragma once

#include <QWidget>

class LoadingLine;
class PlainLabel;
class StackingRow;

/// What is known about a part of a session, such as its messages, as far as the part itself does not show it:
/// that it is being loaded, that it is empty, or that it could not be loaded, with a button for another try.
/// That it is empty is said only once that is known.
class SessionPartState : public QWidget
{
    Q_OBJECT

public:
    struct Texts
    {
        QString loading;
        QString empty;
        QString missing;
        QString again; ///< how assistive technology calls the button "Try Again"
    };

    explicit SessionPartState(const Texts& texts);

    /// \param loaded  the part has been loaded once
    /// \param missing  the last load that was to bring the part ended without it
    /// \param empty  there is nothing in it
    void show(bool loaded, bool missing, bool empty);

signals:
    void againRequested();

private:
    LoadingLine* loading_;
    PlainLabel* empty_;
    StackingRow* missing_;
};
