#include "Store/Query.h"

#include <stdexcept>

namespace bridge {

Query::Query(soci::session& sql, const std::string& text) : text_(text), statement_(sql) { }

Query& Query::bind(const std::string& name, const std::string& value)
{
    // Half of it would be stored, or compared, as if it were the whole.
    if (value.find('\0') != std::string::npos)
        throw std::invalid_argument("text with a zero byte");
    statement_.exchange(soci::use(texts_.emplace_back(value), name));
    return *this;
}

Query& Query::bind(const std::string& name, long long value)
{
    statement_.exchange(soci::use(numbers_.emplace_back(value), name));
    return *this;
}

Query& Query::into(std::string& target)
{
    statement_.exchange(soci::into(target));
    return *this;
}

Query& Query::into(long long& target)
{
    statement_.exchange(soci::into(target));
    return *this;
}

Query& Query::into(bool& target)
{
    statement_.exchange(soci::into(flags_.emplace_back(0, &target).first));
    return *this;
}

bool Query::next()
{
    if (!isRunning_) {
        prepare();
        statement_.execute(false);
        isRunning_ = true;
    }
    if (!statement_.fetch())
        return false;
    for (const auto& [value, target] : flags_)
        *target = value != 0;
    return true;
}

long long Query::run()
{
    prepare();
    statement_.execute(true);
    return statement_.get_affected_rows();
}

void Query::prepare()
{
    statement_.alloc();
    statement_.prepare(text_);
    statement_.define_and_bind();
}

Id lastId(soci::session& sql)
{
    Id id = 0;
    Query query(sql, "select last_insert_rowid()");
    query.into(id).next();
    return id;
}

} // namespace bridge
