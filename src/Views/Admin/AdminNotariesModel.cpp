#include "Admin/AdminNotariesModel.h"

#include "Screen/AdminRows.h"

using namespace Qt::StringLiterals;

/// Profiles that came without an id all have the id 0.
static bool isSame(const RemoteNotaryOption& a, const RemoteNotaryOption& b)
{
    return a.id == b.id && (a.id != 0 || a.raw == b.raw);
}

static AdminNotariesModel::Kind kind()
{
    return {
        .texts = {
            .title = u"Notaries"_s,
            .subtitle = u"Review notary profiles, commission details, availability, and account status."_s,
            .searchPlaceholder = u"Search notary name, email, county, state"_s,
            .loading = u"Loading notaries..."_s,
            .cannotLoad = u"Cannot Load Notaries"_s,
            .noneFound = {u"person.badge.shield.checkmark.fill"_s, u"No Notaries Found"_s,
                u"Adjust the search to see other profiles."_s},
            .noneSelected = {u"person.badge.shield.checkmark.fill"_s, u"Select a Notary"_s,
                u"Choose a notary to edit or delete."_s},
        },
        .request = &APIClient::getAdminNotaries,
        .row = &AdminRows::notary,
        .isSame = &isSame,
    };
}

AdminNotariesModel::AdminNotariesModel(const ScreenContext& context) : AdminListOf(context, kind()) { }
