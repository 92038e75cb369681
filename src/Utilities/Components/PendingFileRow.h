#pragma once

#include "ComboBox.h"
#include "InnerBlock.h"

class LineInput;
class PlainLabel;
class QBoxLayout;

/// A file that waits for its upload: its label can be edited, its type picked, and it can be removed.
class PendingFileRow : public InnerBlock
{
    Q_OBJECT

public:
    struct Texts
    {
        QString label; ///< what the file is called in the session
        QString placeholder; ///< of the label field, also its accessible name
        QString detail; ///< file name and size; empty for none
        QString type; ///< value of the chosen type
        QString remove; ///< title of the button that removes the row
    };

    PendingFileRow(const QString& systemImage, const Texts& texts, const QList<ComboBox::Option>& types,
        QWidget* parent = nullptr);

    QString label() const;
    QString type() const;
    ComboBox* typePicker() const { return type_; }
    LineInput* labelField() const { return label_; }

signals:
    void labelChanged(const QString& label);
    void typeChanged(const QString& type);
    void removeRequested();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    LineInput* label_;
    PlainLabel* detail_;
    ComboBox* type_;
    QBoxLayout* lower_;
};
