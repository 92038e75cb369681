#pragma once

#include "Components/Card.h"

#include <QUrl>

class BookRemoteNotaryModel;
class QScrollArea;
class SecondaryButton;

/// The files to send into the session once it is booked: where they are dropped or chosen, the list of those
/// attached, and how far the upload has come.
class UploadSection : public Card
{
    Q_OBJECT

public:
    /// \param page  in which the section scrolls
    UploadSection(BookRemoteNotaryModel& model, QScrollArea& page);

    /// While locked, nothing about the files can be changed; how far they have come is still told.
    void setLocked(bool locked);

signals:
    void filesWanted();
    void filesDropped(const QList<QUrl>& files);

private:
    QWidget* makeDropArea(BookRemoteNotaryModel& model, SecondaryButton* choose);

    QList<QWidget*> editable_;
};
