#pragma once

#include "Components/AlertDialog.h"
#include "Components/Button.h"
#include "Components/QuestionDialog.h"
#include "ScreensViewTest.h"
#include "Sessions/SessionDetailModel.h"
#include "Sessions/SessionDetailView.h"

/// The detail of session 7 in a window of its own.
class SessionDetailViewTest : public ScreensViewTest
{
protected:
    SessionDetailViewTest() { workAs(AppRole::admin); }

    /// In one of the roles that the person holds.
    void workAs(AppRole role)
    {
        signIn(account(QStringLiteral("maya"), {AppRole::notary, AppRole::admin}), role);
    }

    void open(QSize size = {600, 700})
    {
        model = std::make_shared<SessionDetailModel>(context, 7);
        view = std::make_unique<SessionDetailView>(model);
        view->resize(size);
        show(*view);
    }

    void answerLoad(const QByteArray& session = scheduled)
    {
        answer(requestCount() - 1, session);
        answer(requestCount() - 1, "[]");
        answer(requestCount() - 1, "[]");
        if (model->hasAdminControls())
            answer(requestCount() - 1, notaries);
    }

    void openLoaded(QSize size = {600, 700}, const QByteArray& session = scheduled)
    {
        open(size);
        answerLoad(session);
    }

    template <typename Control = QWidget>
    Control* control(const QString& name, QWidget* within = nullptr)
    {
        return named<Control>(within ? *within : *view, name);
    }
    QWidget* notaryCard() { return control(QStringLiteral("Notary Controls")); }
    QWidget* adminCard() { return control(QStringLiteral("Admin Controls")); }
    Button* saveNotary() { return control<Button>(QStringLiteral("Save Notary Update")); }
    Button* saveAdmin() { return control<Button>(QStringLiteral("Save Admin Changes")); }
    Button* cancelButton() { return control<Button>(QStringLiteral("Cancel Session")); }
    Button* deleteButton() { return control<Button>(QStringLiteral("Delete Session")); }

    QuestionDialog* question() { return view->findChild<QuestionDialog*>(); }
    AlertDialog* alert() { return view->findChild<AlertDialog*>(); }
    static void finishClosing() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    /// Whether a visible label reads so.
    bool shows(const QString& text);
    /// Replaces the text of a field by typing.
    static void type(QWidget* field, const QString& text);

    inline static const QByteArray scheduled = R"({"session": {"id": 7, "reference_id": "RN-20260309-0131",
        "status": "scheduled", "scheduled_date": "2026-03-12", "scheduled_time": "2:30 PM",
        "signer_names": ["Priya Raman", "Tomas Alder"], "document_type": "Power of Attorney",
        "client_name": "Priya Raman", "client_email": "priya.raman@example.com", "proposed_fee": "41.00",
        "status_note": "Both signers confirmed by phone.", "assigned_notary_id": 12,
        "assigned_notary_name": "Maya Whitfield", "requires_witness": true,
        "witness_name": "Elena Voss, joins on her own link"}})";
    inline static const QByteArray notaries
        = R"([{"id": 12, "name": "Maya Whitfield"}, {"id": 13, "name": "Noor Haddad"}])";

    std::shared_ptr<SessionDetailModel> model;
    std::unique_ptr<SessionDetailView> view;
};
