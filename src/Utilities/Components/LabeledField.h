#pragma once

#include <QWidget>

class FieldCaption;

/// A control with its caption, which is also the control's accessible name. Without a caption text the
/// caption takes no room.
class LabeledField : public QWidget
{
    Q_OBJECT

public:
    enum class Placement
    {
        above,
        beside
    };

    LabeledField(const QString& caption, QWidget* control, Placement placement = Placement::above,
        QWidget* parent = nullptr);

    QWidget* control() const { return control_; }
    QString caption() const;
    void setCaption(const QString& caption);
    /// Whether a caption that is too long takes more lines than one, instead of being cut off.
    void setCaptionWraps(bool wraps);

private:
    FieldCaption* caption_;
    QWidget* control_;
};
