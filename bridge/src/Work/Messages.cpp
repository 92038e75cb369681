#include "Work/Messages.h"

#include "Store/Query.h"

namespace bridge {

void eachMessage(soci::session& sql, Id sessionId, const RowSink<Message>& take)
{
    Message message;
    Query query(sql,
        "select id, sender_type, sender_name, sender_email, message, created_at from messages"
        " where session_id = :session order by id");
    query.bind("session", sessionId).into(message.id).into(message.senderType).into(message.senderName);
    query.into(message.senderEmail).into(message.text).into(message.createdAt);
    while (query.next() && take(message)) { }
}

Message addMessage(
    soci::session& sql, Id sessionId, const Account& sender, const std::string& text, Moment now)
{
    Message message{0, nameOf(roleOf(sender.roleWord).value_or(Role::Client)), sender.fullName, sender.email,
        text, stamp(now)};
    Query(sql,
        "insert into messages(session_id, user_id, sender_type, sender_name, sender_email, message,"
        " created_at) values(:session, :user, :type, :name, :email, :text, :now)")
        .bind("session", sessionId)
        .bind("user", sender.id)
        .bind("type", message.senderType)
        .bind("name", message.senderName)
        .bind("email", message.senderEmail)
        .bind("text", message.text)
        .bind("now", message.createdAt)
        .run();
    message.id = lastId(sql);
    return message;
}

} // namespace bridge
