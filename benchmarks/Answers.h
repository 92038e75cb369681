#pragma once

#include <QByteArray>

/// Answers as the bridge gives them for a large office.
namespace Answers {

QByteArray sessions(int count);
/// The messages of one session, each of one to thirteen sentences, every tenth in Hebrew.
QByteArray messages(int count);
/// Accounts whose search texts all hold "example" and of which one in forty holds "kowalski".
QByteArray users(int count);

} // namespace Answers
