#pragma once

#include "APIClient.h"

/// Starts an operation of the client beside others, for somebody who awaits it later:
///
///     auto users = started(api(), &APIClient::getAdminUsers, token);
///     auto notaries = started(api(), &APIClient::getAdminNotaries, token);
///     const QList<AdminUserRecord> received = co_await users;
///
/// The operation owns the client and its arguments. It goes on to its end, and its result or failure is
/// dropped, when the awaiting one has failed over another and gone.
template <typename Result, typename... Arguments>
QCoro::Task<Result> started(APIClient client, QCoro::Task<Result> (APIClient::*operation)(Arguments...) const,
    std::type_identity_t<Arguments>... arguments)
{
    co_return co_await (client.*operation)(std::move(arguments)...);
}
