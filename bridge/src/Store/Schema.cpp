#include "Store/Schema.h"

#include "Store/Query.h"

#include <stdexcept>
#include <vector>

namespace bridge {

// Moments are milliseconds since 1970. A reference to nothing is NULL; every other column has a value.
static const std::vector<std::vector<const char*>> steps{
    {
        R"(create table businesses(
        id integer primary key autoincrement,
        company_name text not null,
        created_at integer not null))",

        R"(create table users(
        id integer primary key autoincrement,
        local_id text not null unique,
        email text not null collate nocase unique,
        password_hash text not null,
        full_name text not null,
        phone text not null default '',
        city text not null default '',
        state text not null default '',
        role text not null,
        business_id integer references businesses(id) on delete set null,
        created_at integer not null,
        updated_at integer not null))",

        // One row a sign-in, so that a new password can end all of them but the one that set it.
        R"(create table sign_ins(
        id integer primary key autoincrement,
        user_id integer not null references users(id) on delete cascade,
        created_at integer not null))",

        R"(create table id_tokens(
        hash text primary key,
        sign_in_id integer not null references sign_ins(id) on delete cascade,
        expires_at integer not null))",

        // successor is the hash of the token that replaced this one, or empty.
        R"(create table refresh_tokens(
        hash text primary key,
        sign_in_id integer not null references sign_ins(id) on delete cascade,
        successor text not null default '',
        replaced_at integer not null default 0))",

        R"(create table notaries(
        id integer primary key autoincrement,
        user_id integer unique references users(id) on delete set null,
        name text not null,
        email text not null,
        phone text not null default '',
        state text not null default '',
        county text not null default '',
        commission_number text not null default '',
        commission_expiration_date text not null default '',
        billing_status text not null default 'active',
        active integer not null default 1,
        created_at integer not null,
        updated_at integer not null))",

        R"(create table business_clients(
        id integer primary key autoincrement,
        business_id integer not null references businesses(id) on delete cascade,
        name text not null,
        email text not null collate nocase,
        phone text not null default '',
        created_at integer not null,
        unique(business_id, email)))",

        R"(create table sessions(
        id integer primary key autoincrement,
        reference_id text not null unique,
        owner_id integer references users(id) on delete set null,
        business_id integer references businesses(id) on delete set null,
        notary_id integer references notaries(id) on delete set null,
        status text not null,
        status_note text not null default '',
        contact_name text not null,
        contact_email text not null,
        contact_phone text not null,
        client_name text not null default '',
        client_email text not null default '',
        client_phone text not null default '',
        asap integer not null,
        retrieval_option text not null,
        document_type text not null,
        act_unknown integer not null,
        act_count integer not null,
        details text not null,
        signers text not null,
        requires_witness integer not null,
        witness_name text not null default '',
        needs_apostille integer not null,
        notes text not null,
        preferred_date text not null,
        preferred_time text not null,
        scheduled_date text not null default '',
        scheduled_time text not null default '',
        proposed_fee text not null default '',
        timezone text not null,
        booking_source text not null,
        request_json text not null,
        created_at integer not null,
        updated_at integer not null))",
        "create index sessions_of_owner on sessions(owner_id)",
        "create index sessions_of_business on sessions(business_id)",
        "create index sessions_of_notary on sessions(notary_id)",

        // How many references a day has given out, so that a deleted session's is never given again.
        "create table reference_days(day text primary key, given integer not null)",

        R"(create table status_history(
        id integer primary key autoincrement,
        session_id integer not null references sessions(id) on delete cascade,
        user_id integer references users(id) on delete set null,
        status text not null,
        note text not null,
        changed_at integer not null))",
        "create index history_of_session on status_history(session_id)",

        R"(create table messages(
        id integer primary key autoincrement,
        session_id integer not null references sessions(id) on delete cascade,
        user_id integer references users(id) on delete set null,
        sender_type text not null,
        sender_name text not null,
        sender_email text not null,
        message text not null,
        created_at integer not null))",
        "create index messages_of_session on messages(session_id)",

        R"(create table uploads(
        id integer primary key autoincrement,
        session_id integer not null references sessions(id) on delete cascade,
        user_id integer references users(id) on delete set null,
        original_filename text not null,
        path text not null unique,
        mime_type text not null,
        label text not null,
        category text not null,
        byte_size integer not null,
        sha256 text not null,
        download_key text not null,
        uploaded_by_name text not null,
        fields_json text not null,
        created_at integer not null))",
        "create index uploads_of_session on uploads(session_id)",

        R"(create table walkin_records(
        id integer primary key autoincrement,
        status text not null,
        contact_name text not null,
        contact_email text not null,
        contact_phone text not null,
        document_type text not null,
        scheduled_date text not null,
        scheduled_time text not null,
        notes text not null,
        signer_names text not null,
        source text not null,
        created_at integer not null,
        updated_at integer not null))",
    },
    {
        // A token that was in use before its age was known is as old as this step.
        "alter table refresh_tokens add column issued_at integer not null default 0",
        "update refresh_tokens set issued_at = 1000 * cast(strftime('%s', 'now') as integer)",
        // The fingerprint of the ID token that was issued with it.
        "alter table refresh_tokens add column id_token text not null default ''",
        "create index refresh_tokens_of_sign_in on refresh_tokens(sign_in_id)",
        "create index id_tokens_of_sign_in on id_tokens(sign_in_id)",
        "create index id_tokens_by_end on id_tokens(expires_at)",
        "create index sign_ins_of_user on sign_ins(user_id)",

        R"(create table daily_use(
        user_id integer not null references users(id) on delete cascade,
        day text not null,
        what text not null,
        amount integer not null,
        primary key(user_id, day, what)))",
    }};

void bringSchemaUpToDate(soci::session& sql)
{
    long long version = 0;
    Query(sql, "pragma user_version").into(version).next();
    if (version > static_cast<long long>(steps.size()))
        throw std::runtime_error("The database was made by a newer version of this program.");
    for (std::size_t step = static_cast<std::size_t>(version); step < steps.size(); ++step) {
        for (const char* statement : steps[step])
            Query(sql, statement).run();
    }
    // A disk without room for another page still holds everything that there is to read.
    if (version != static_cast<long long>(steps.size()))
        sql << "pragma user_version = " + std::to_string(steps.size());
}

} // namespace bridge
