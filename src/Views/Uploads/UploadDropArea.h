#pragma once

#include "Components/DropArea.h"

class UploadsModel;

/// A drop area whose model knows while files hover over it. The model must outlive it.
class UploadDropArea : public DropArea
{
    Q_OBJECT

public:
    UploadDropArea(UploadsModel& model, const QString& systemImage, const QString& heading,
        const QStringList& lines, QWidget* parent = nullptr);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    UploadsModel& model_;
};
