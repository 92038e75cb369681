#include "Uploads/UploadDropArea.h"

#include "Bindings.h"
#include "Uploads/UploadsModel.h"

UploadDropArea::UploadDropArea(UploadsModel& model, const QString& systemImage, const QString& heading,
    const QStringList& lines, QWidget* parent)
    : DropArea(systemImage, heading, lines, parent)
{
    connect(
        this, &DropArea::hoveredChanged, &model, [&model](bool hovered) { model.isDropTarget = hovered; });
    follow(this, model.isDropTarget, [this](bool hovered) { setHovered(hovered); });
}
