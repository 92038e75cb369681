#pragma once

#include "Store/Id.h"
#include "Store/Soci.h"

#include <deque>
#include <string>
#include <utility>

namespace bridge {

/// One SQL statement with named parameters. The only way to the database, so that no value ever becomes part
/// of a statement's text:
///
///     Query query(sql, "select id, email from users where role = :role");
///     query.bind("role", role).into(id).into(email);
///     while (query.next()) ...
///
/// Columns that are fetched must not be NULL.
class Query
{
public:
    Query(soci::session& sql, const std::string& text);
    Query(const Query&) = delete;

    /// \throws std::invalid_argument when the text holds a zero byte: it has come in past cleaned()
    Query& bind(const std::string& name, const std::string& value);
    Query& bind(const std::string& name, long long value);

    /// The next column, in the order of the select list, goes to the target at each next().
    Query& into(std::string& target);
    Query& into(long long& target);
    Query& into(bool& target);

    /// Fetches a row; false after the last.
    bool next();

    /// Runs a statement that returns no rows; the number of rows that it changed.
    long long run();

private:
    void prepare();

    std::string text_;
    soci::statement statement_;
    std::deque<std::string> texts_;
    std::deque<long long> numbers_;
    std::deque<std::pair<long long, bool*>> flags_;
    bool isRunning_ = false;
};

/// The id of the row that this connection inserted last.
Id lastId(soci::session& sql);

} // namespace bridge
