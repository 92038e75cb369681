#pragma once

#include <QWidget>

class UploadsModel;

/// How far an upload has come: a line of text over a bar. Takes no room while there is nothing to say.
class UploadProgress : public QWidget
{
    Q_OBJECT

public:
    explicit UploadProgress(UploadsModel& model, QWidget* parent = nullptr);
};
