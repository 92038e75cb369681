#pragma once

#include "Components/DropArea.h"

class UploadsModel;

/// A drop area whose highlight is its model's `isDropTarget`. The model must outlive it.
class UploadDropArea : public DropArea
{
    Q_OBJECT

public:
    UploadDropArea(UploadsModel& model, const QString& systemImage, const QString& heading,
        const QStringList& lines, QWidget* parent = nullptr);
};
