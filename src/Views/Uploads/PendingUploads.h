#pragma once

#include "Uploads/PendingFileList.h"

class UploadsModel;

/// The pending files of a model under their heading, with the action that clears them. Takes no room while
/// there are none. The model must outlive it.
class PendingUploads : public QWidget
{
    Q_OBJECT

public:
    /// \param page  in which the list scrolls
    /// \param fallback  gets the focus when the last file goes that had it
    PendingUploads(UploadsModel& model, const QString& heading, PendingFileList::Detail detail,
        QScrollArea& page, QWidget& fallback, QWidget* parent = nullptr);

private:
    void showFiles();

    UploadsModel& model_;
    QWidget& fallback_;
    PendingFileList* files_;
};
