#pragma once

#include "AdminRecordItem.h"
#include "AdminUserRecord.h"
#include "RemoteNotaryOption.h"
#include "Screen/RowListModel.h"

/// What the administration reads from a record, in its list as in its detail.
struct AdminRecordTexts
{
    QString contactName;
    QString contactEmail;
    QString documentType;

    static AdminRecordTexts of(const AdminRecordItem& record);
};

/// What the administration reads from an account, in its list as in its detail.
struct AdminUserTexts
{
    QString name;
    QString email;
    QString phone;
    QString role;

    static AdminUserTexts of(const AdminUserRecord& user);
};

/// The rows of the administration's lists. Their ids are the lists' own to give.
namespace AdminRows {

RowTexts record(const AdminRecordItem& record);
RowTexts user(const AdminUserRecord& user);
RowTexts notary(const RemoteNotaryOption& notary);

} // namespace AdminRows
