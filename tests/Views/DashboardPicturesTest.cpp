#include "DashboardViewTest.h"

#include "Type.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

const QByteArray assigned = R"([
    {"id": 1, "signer_names": ["Priya Raman", "Tomas Alder"], "scheduled_date": "2026-03-12",
     "scheduled_time": "2:30 PM", "status": "scheduled", "document_type": "Power of Attorney"},
    {"id": 2, "signer_names": ["Oscar Lindqvist", "Noor Haddad", "Ines Duarte"], "scheduled_date": "2026-03-11",
     "scheduled_time": "9:30 AM", "status": "scheduled", "document_type": "Settlement / Litigation Document"},
    {"id": 3, "signer_name": "Helen Brandt", "scheduled_date": "2026-03-11", "scheduled_time": "4:15 PM",
     "status": "rescheduled", "document_type": "Loan / Closing Document"},
    {"id": 4, "signer_name": "Daniel Reyes", "scheduled_date": "2026-03-10", "scheduled_time": "3:00 PM",
     "status": "completed", "document_type": "Passport / Travel Consent"},
    {"id": 5, "signer_name": "Samuel Adeyemi of the Harbor Title Group and its many subsidiaries in the state",
     "scheduled_date": "2026-03-08", "scheduled_time": "10:00 AM", "status": "waiting for the second witness to sign",
     "document_type": "Translation Affidavit"}])";
const QByteArray openCalls = R"([
    {"id": 8, "signer_name": "Grace Obi", "preferred_date": "2026-03-12", "preferred_time": "11:00 AM",
     "document_type": "Jurat / Affidavit"},
    {"id": 9, "signer_name": "Nadia Petrov", "preferred_date": "2026-03-13", "preferred_time": "9:15 AM",
     "document_type": "Acknowledgment"},
    {"id": 10, "client_name": "Ivo Marsh"}])";
const QByteArray clients = R"([
    {"name": "Priya Raman", "email": "priya.raman@example.com"},
    {"name": "Helen Brandt", "email": "helen.brandt@example.com"},
    {"name": "Oscar Lindqvist", "email": "oscar.lindqvist@example.org"},
    {"name": "Grace Obi", "email": "grace.obi@example.com"},
    {"name": "Daniel Reyes", "email": "daniel.reyes@example.net"},
    {"name": "Marta Kowal", "email": "marta.kowal@example.org"}])";

/// Pictures of the dashboards for the eye, written into the folder that QUORVEL_PICTURES names.
class DashboardPictures : public DashboardViewTest, public testing::WithParamInterface<bool>
{
protected:
    void SetUp() override
    {
        if (pictures.isEmpty())
            GTEST_SKIP() << "QUORVEL_PICTURES names no folder";
        style()->setDark(GetParam());
    }
    void TearDown() override
    {
        Type::followDesktop(13);
        QApplication::setLayoutDirection(Qt::LeftToRight);
    }

    void grab(const QString& name)
    {
        settle();
        const QString scheme = GetParam() ? u"-dark.png"_s : u"-light.png"_s;
        EXPECT_TRUE(window.grab().save(QDir(pictures).filePath(name + u"-dashboard"_s + scheme)));
    }

    void grabAll(const QString& suffix, QSize size)
    {
        openBusiness(size);
        answerAll({assigned, clients});
        grab(u"business"_s + suffix);
        openNotary(size);
        answerAll({assigned, openCalls});
        grab(u"notary"_s + suffix);
        openAdmin(size);
        answerAll({assigned.chopped(1) + ',' + openCalls.mid(1), "[]", "[]"});
        grab(u"admin"_s + suffix);
    }

    const QString pictures = qEnvironmentVariable("QUORVEL_PICTURES");
};

} // namespace

TEST_P(DashboardPictures, AtEverySize)
{
    grabAll(u"-1180x760"_s, regular);
    grabAll(u"-980x680"_s, least);
    grabAll(u"-1920x1080"_s, {1680, 1048});
}

TEST_P(DashboardPictures, LargeText)
{
    Type::followDesktop(26);
    grabAll(u"-large-980x680"_s, least);
    grabAll(u"-large-full"_s, {760, 2400});
}

TEST_P(DashboardPictures, RightToLeft)
{
    QApplication::setLayoutDirection(Qt::RightToLeft);
    grabAll(u"-mirrored"_s, regular);
}

TEST_P(DashboardPictures, States)
{
    openAdmin();
    grab(u"admin-loading"_s);
    answerAll({"[]", "[]", "[]"});
    grab(u"admin-empty"_s);
    openNotary();
    answerAll({assigned, openCalls});
    click(named<Button>(*view, u"Accept Nadia Petrov"_s));
    grab(u"notary-accepting"_s);
    answer(requestCount() - 1, R"({"message": "Another notary has already accepted this call."})", 409);
    grab(u"notary-taken"_s);
}

INSTANTIATE_TEST_SUITE_P(Schemes, DashboardPictures, testing::Bool(),
    [](const auto& scheme) { return scheme.param ? "Dark" : "Light"; });
