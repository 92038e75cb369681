#include "Admin/AdminUsersModel.h"

#include "Screen/AdminRows.h"

using namespace Qt::StringLiterals;

/// Accounts that came without an id all have the id 0.
static bool isSame(const AdminUserRecord& a, const AdminUserRecord& b)
{
    return a.id == b.id && (a.id != 0 || a.raw == b.raw);
}

static AdminUsersModel::Kind kind()
{
    return {
        .texts = {
            .title = u"Users"_s,
            .subtitle = u"Search accounts, update contact details, change passwords, or remove access."_s,
            .searchPlaceholder = u"Search name, email, phone, role"_s,
            .loading = u"Loading users..."_s,
            .cannotLoad = u"Cannot Load Users"_s,
            .noneFound
            = {u"person.3.fill"_s, u"No Users Found"_s, u"Adjust the search to see other accounts."_s},
            .noneSelected = {u"person.3.fill"_s, u"Select a User"_s,
                u"Choose a user to edit profile fields or change password."_s},
        },
        .request = &APIClient::getAdminUsers,
        .row = &AdminRows::user,
        .isSame = &isSame,
    };
}

AdminUsersModel::AdminUsersModel(const ScreenContext& context) : AdminListOf(context, kind()) { }
