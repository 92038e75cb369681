#include "Uploads/UploadDropArea.h"

#include "Uploads/UploadsModel.h"

#include <QDragEnterEvent>

UploadDropArea::UploadDropArea(UploadsModel& model, const QString& systemImage, const QString& heading,
    const QStringList& lines, QWidget* parent)
    : DropArea(systemImage, heading, lines, parent), model_(model)
{ }

void UploadDropArea::dragEnterEvent(QDragEnterEvent* event)
{
    DropArea::dragEnterEvent(event);
    model_.isDropTarget = event->isAccepted();
}

void UploadDropArea::dragLeaveEvent(QDragLeaveEvent* event)
{
    DropArea::dragLeaveEvent(event);
    model_.isDropTarget = false;
}

void UploadDropArea::dropEvent(QDropEvent* event)
{
    model_.isDropTarget = false;
    DropArea::dropEvent(event);
}
