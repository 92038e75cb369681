#include "Shell/DashboardHomeModel.h"

using namespace Qt::StringLiterals;

QString DashboardHomeModel::heroTitle()
{
    return u"Quorvel"_s;
}

QString DashboardHomeModel::heroText()
{
    return u"A polished desktop workflow for remote notary booking, session tracking, and role-based workspaces."_s;
}

const QList<DashboardHomeModel::Feature>& DashboardHomeModel::features()
{
    static const QList<Feature> features{
        {u"menubar.rectangle"_s, u"Quick Access"_s,
            u"Use the top status menu to start a booking, open sessions, sign in, or switch dashboards."_s},
        {u"calendar.badge.plus"_s, u"Guided Booking"_s,
            u"Create Rush or No-Rush remote notary requests with signer and scheduling controls."_s},
        {u"message.fill"_s, u"Session Workspace"_s,
            u"Open a session to review status, signers, notary updates, notes, and messages."_s},
        {u"tray.full.fill"_s, u"Records"_s,
            u"Authorized staff can work through walk-in records, remote sessions, users, and notary profiles."_s},
    };
    return features;
}

QString DashboardHomeModel::activeRoleLine() const
{
    return u"Active role: "_s + title(role());
}

QList<Shortcut> DashboardHomeModel::quickActions() const
{
    const QList<AppRole> roles = context_.auth.availableRoles();
    QList<Shortcut> actions;
    actions += {u"Book Remote Notary"_s, u"calendar.badge.plus"_s, AppSection::book, true};
    actions += {u"Sessions"_s, u"doc.text.magnifyingglass"_s, AppSection::sessions, false};
    if (roles.contains(AppRole::admin))
        actions += {u"Records"_s, u"tray.full.fill"_s, AppSection::adminRecords, false};
    if (roles.contains(AppRole::notary))
        actions += {u"Notary"_s, u"checkmark.seal.fill"_s, AppSection::notaryDashboard, false};
    actions += {u"Website"_s, u"safari"_s, std::nullopt, false};
    return actions;
}

void DashboardHomeModel::run(const Shortcut& action)
{
    if (action.section)
        context_.router.open(*action.section);
    else
        context_.systemOpen.openWebsite(context_.backend.config.websiteURL);
}
