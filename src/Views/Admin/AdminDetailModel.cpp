#include "Admin/AdminDetailModel.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

bool AdminDetailModel::hasEdits() const
{
    return std::any_of(
        fields_.begin(), fields_.end(), [](const AnyEditField* field) { return field->isEdited(); });
}

QCoro::Task<> AdminDetailModel::save()
{
    Change change;
    change.work = Work::adminChanges;
    change.failureTitle = texts().cannotSave;
    change.send = [this](const APIClient& client, const QString& token) {
        for (AnyEditField* field : std::as_const(fields_))
            field->markSent();
        return sendSave(client, token);
    };
    change.accepted = [this] {
        for (AnyEditField* field : std::as_const(fields_))
            field->markSaved();
        keepsTyped_ = true;
        emit changed();
        showAlert(u"Saved"_s, texts().saved);
    };
    return carryOut(std::move(change));
}

QCoro::Task<> AdminDetailModel::deleteRecord()
{
    Change change;
    change.work = Work::deletion;
    change.failureTitle = texts().cannotDelete;
    change.send = [this](const APIClient& client, const QString& token) { return sendDelete(client, token); };
    change.accepted = [this] {
        close();
        emit deleted();
    };
    return carryOut(std::move(change));
}

void AdminDetailModel::filled()
{
    keepsTyped_ = false;
    emit recordChanged();
}

void AdminDetailModel::addNewPassword(QJsonObject& data, const QString& password)
{
    const QString trimmed = password.trimmed();
    if (trimmed.isEmpty())
        return;
    data[u"password"_s] = trimmed;
    data[u"new_password"_s] = trimmed;
}
