#pragma once

#include "Launch.h"
#include "ScreenTest.h"
#include "Sessions/SessionsModel.h"

#include <QAbstractItemModelTester>

/// The list of the sessions of somebody who is a notary and an admin.
class SessionsModelTest : public ScreenTest
{
protected:
    SessionsModelTest()
    {
        signIn(account(QStringLiteral("Jordan Ellis"), {AppRole::notary, AppRole::admin}));
    }

    void load()
    {
        launch(model->load());
        settle();
    }

    /// Loads the list and answers with sessions of these ids, the first the latest.
    void loadSessions(const QList<int>& ids)
    {
        load();
        answer(requestCount() - 1, sessions(ids));
    }

    static QByteArray sessions(const QList<int>& ids)
    {
        QByteArray json;
        int day = 31;
        for (const int id : ids) {
            json += json.isEmpty() ? "[" : ",";
            json += R"({"id": )" + QByteArray::number(id) + R"(, "scheduled_date": "2025-05-)"
                + QByteArray::number(day--) + R"("})";
        }
        return json.isEmpty() ? QByteArray("[]") : json + "]";
    }

    QList<qint64> loadedIds() const
    {
        QList<qint64> ids;
        for (const SessionSummary& session : model->sessions())
            ids += session.id;
        return ids;
    }

    std::optional<qint64> selectedId() const
    {
        const std::optional<SessionSummary>& selected = model->selectedSession();
        return selected ? std::optional(selected->id) : std::nullopt;
    }

    std::shared_ptr<SessionsModel> model = std::make_shared<SessionsModel>(context);
    QAbstractItemModelTester tester{&model->rows(), QAbstractItemModelTester::FailureReportingMode::Fatal};
};
