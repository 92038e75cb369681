#pragma once

#include "Launch.h"
#include "ScreenTest.h"
#include "Sessions/SessionDetailModel.h"

/// The detail of session 7, for an admin who is a notary, too.
class SessionDetailTest : public ScreenTest
{
protected:
    SessionDetailTest()
    {
        signIn(account(QStringLiteral("Maya"), {AppRole::notary, AppRole::admin}), AppRole::admin);
        QObject::connect(model.get(), &SessionDetailModel::changed, model.get(), [this] { ++changes; });
        QObject::connect(model.get(), &SessionDetailModel::deleted, model.get(), [this] { ++deletions; });
    }

    /// Runs an operation up to its first request.
    void start(QCoro::Task<> (SessionDetailModel::*operation)())
    {
        launch((model.get()->*operation)());
        settle();
    }

    void load() { start(&SessionDetailModel::load); }

    /// Answers what is asked for next, four requests of a load that has begun.
    void answerLoad(const QByteArray& session = scheduled)
    {
        answer(requestCount() - 1, session);
        answer(requestCount() - 1, R"([{"id": 1, "message": "Hello"}])");
        answer(requestCount() - 1, R"([{"id": 2, "label": "Deed"}])");
        if (model->hasAdminControls())
            answer(requestCount() - 1, notaries);
    }

    void loadWhole(const QByteArray& session = scheduled)
    {
        load();
        answerLoad(session);
    }

    QList<QString> linesFrom(qsizetype first) const
    {
        QList<QString> lines;
        for (qsizetype number = first; number < requestCount(); ++number)
            lines += line(number);
        return lines;
    }

    inline static const QByteArray scheduled = R"({"session": {"id": 7, "status": "scheduled",
        "scheduled_date": "2026-03-12", "scheduled_time": "2:30 PM", "proposed_fee": "41.00",
        "status_note": "Confirmed.", "assigned_notary_id": 12, "assigned_notary_name": "Maya Whitfield",
        "requires_witness": true, "witness_name": "Elena"}})";
    inline static const QByteArray notaries
        = R"([{"id": 12, "name": "Maya Whitfield"}, {"id": 13, "name": "Noor Haddad"}])";

    int changes = 0;
    int deletions = 0;
    std::shared_ptr<SessionDetailModel> model = std::make_shared<SessionDetailModel>(context, 7);
};
