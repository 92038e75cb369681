#include "Store/Database.h"

#include "Store/Schema.h"

#include <soci/sqlite3/soci-sqlite3.h>

#include <stdexcept>

namespace bridge {

static constexpr std::size_t connections = 8;

// SOCI's connection string has no escape for a quotation mark inside a value.
static std::string connectionText(const std::filesystem::path& file)
{
    const std::string name = file.string();
    if (name.find('"') != std::string::npos)
        throw std::runtime_error("The data folder's name must not contain a quotation mark.");
    return "db=\"" + name + "\" timeout=10";
}

Database::Database(const std::filesystem::path& file) : pool_(connections)
{
    const std::string text = connectionText(file);
    for (std::size_t i = 0; i < connections; ++i) {
        soci::session& sql = pool_.at(i);
        sql.open(soci::sqlite3, text);
        sql << "pragma journal_mode = wal";
        sql << "pragma synchronous = full";
        sql << "pragma foreign_keys = on";
    }
    write([](soci::session& sql) { bringSchemaUpToDate(sql); });
}

Database::Transaction::Transaction(soci::session& sql, const char* begin) : sql_(sql)
{
    sql_ << begin;
}

Database::Transaction::~Transaction()
{
    if (!isOpen_)
        return;
    try {
        sql_ << "rollback";
    } catch (const soci::soci_error&) {
        // SQLite has rolled back by itself, which it does when the disk is full.
    }
}

void Database::Transaction::commit()
{
    sql_ << "commit";
    isOpen_ = false;
}

} // namespace bridge
