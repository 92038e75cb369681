#include "People/BusinessClients.h"

#include "Store/Query.h"

namespace bridge {

void eachBusinessClient(soci::session& sql, Id businessId, const RowSink<BusinessClient>& take)
{
    BusinessClient client;
    Query query(sql,
        "select id, name, email, phone from business_clients where business_id = :business"
        " order by id desc");
    query.bind("business", businessId)
        .into(client.id)
        .into(client.name)
        .into(client.email)
        .into(client.phone);
    while (query.next() && take(client)) { }
}

void rememberBusinessClient(soci::session& sql, Id businessId, const BusinessClient& client, Moment now)
{
    Query(sql,
        "insert into business_clients(business_id, name, email, phone, created_at)"
        " values(:business, :name, :email, :phone, :now)"
        " on conflict(business_id, email) do update set name = excluded.name, phone = excluded.phone")
        .bind("business", businessId)
        .bind("name", client.name)
        .bind("email", client.email)
        .bind("phone", client.phone)
        .bind("now", stamp(now))
        .run();
}

} // namespace bridge
