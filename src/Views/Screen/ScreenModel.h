#pragma once

#include "AlertMessage.h"
#include "ScreenContext.h"
#include "Turns.h"

#include <QObject>
#include <QProperty>

#include <memory>

/// What the models of all screens share: the one alert, the guard for a signed-in user, and the one rule for
/// failures. Made by std::make_shared; a running operation keeps its model alive until it ends.
class ScreenModel : public QObject, public std::enable_shared_from_this<ScreenModel>
{
    Q_OBJECT

public:
    explicit ScreenModel(const ScreenContext& context) : context_(context) { }

    QProperty<std::optional<AlertMessage>> alert;

    const ScreenContext& context() const { return context_; }
    /// Whether the person has begun something here that would be lost with the model.
    virtual bool hasUnsentWork() const { return false; }
    void dismissAlert() { alert = std::nullopt; }

    /// A view begins and ends to show this. With the end of the last one the screen has been left.
    void beginView();
    void endView();

protected:
    /// The first view has come.
    virtual void entered() { }
    /// The last view has gone: what is being read for it is not waited for. What is being written goes on.
    virtual void left() { }

    /// The signed-in user; when there is none, signs out so that every gate closes.
    std::optional<AuthUser> signedInUser();
    /// Signs out when the error says that the session ended; else shows it under the operation's own title.
    /// A failure of a turn that is over is nobody's business any more.
    void fail(const Turn& turn, const QString& title, const std::exception& error);
    /// The same for a failure that matters whatever else has begun meanwhile.
    void fail(const QString& title, const std::exception& error);
    void showAlert(const QString& title, const QString& message);

    AuthManager& auth() { return context_.auth; }
    AppRouter& router() { return context_.router; }
    APIClient api() const { return APIClient(context_.backend); }
    /// A client whose reads end with the turn.
    APIClient api(const Turn& turn) const { return APIClient(context_.backend, turn.abandoned()); }
    const SignInEpoch& epoch() const { return context_.backend.epoch; }

    /// This model, kept alive by whoever holds the result.
    template <typename Model>
    static std::shared_ptr<Model> keep(Model* model)
    {
        return std::static_pointer_cast<Model>(model->shared_from_this());
    }

private:
    ScreenContext context_;
    int views_ = 0;
};
