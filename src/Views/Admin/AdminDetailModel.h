#pragma once

#include "Screen/EditField.h"
#include "Screen/EditPaneModel.h"

/// The edit pane of one record of the administration. It is filled when its record is selected; later loads
/// of the list bring in what others have changed, but neither touch what is being edited nor rewrite what was
/// typed and saved here.
class AdminDetailModel : public EditPaneModel
{
    Q_OBJECT

public:
    struct Texts
    {
        QString heading;
        QString save; ///< on the button
        QString saved; ///< in the alert
        QString cannotSave; ///< title of the alert
        QString cannotDelete; ///< title of the alert
    };

    using EditPaneModel::EditPaneModel;

    virtual Texts texts() const = 0;

    bool isSaving() const { return work.value() == Work::adminChanges; }
    bool hasEdits() const override;

    /// Sends all fields as typed and tells when they are saved.
    QCoro::Task<> save();
    /// Deletes the record at once.
    QCoro::Task<> deleteRecord();

signals:
    /// The record has other contents now.
    void recordChanged();

protected:
    /// Requests with the fields as they stand at the moment.
    virtual QCoro::Task<JSONObject> sendSave(const APIClient& client, const QString& token) const = 0;
    virtual QCoro::Task<JSONObject> sendDelete(const APIClient& client, const QString& token) const = 0;

    /// Puts a new password into a body, under both of its names. A blank one changes nothing.
    static void addNewPassword(QJsonObject& data, const QString& password);

    /// All fields of the pane.
    QList<AnyEditField*> fields_;
    template <typename T>
    void fill(EditField<T>& field, const T& value)
    {
        field.receive(value, keepsTyped_);
    }
    /// All fields are filled.
    void filled();

private:
    bool keepsTyped_ = false; ///< the next load brings back what was saved here
};

/// An edit pane that knows its record.
template <typename Record>
class AdminDetailOf : public AdminDetailModel
{
public:
    using AdminDetailModel::AdminDetailModel;

    const Record& record() const { return record_; }
    /// Fills the fields from the record as it is now.
    void loadFrom(const Record& record)
    {
        record_ = record;
        loadFields();
        filled();
    }

protected:
    virtual void loadFields() = 0;

private:
    Record record_;
};
