#pragma once

#include "Store/Soci.h"

#include <filesystem>
#include <mutex>

namespace bridge {

/// The SQLite database and its connections, for any number of threads. All work is in transactions: a read
/// sees one state throughout, and a write is on the disk when write() returns, or has left no trace.
class Database
{
public:
    /// Opens or makes the file and brings its tables to the present version.
    /// \throws std::runtime_error when it is not usable, or made by a newer version of this program
    explicit Database(const std::filesystem::path& file);

    /// Runs `work(soci::session&)` and returns what it returns.
    template <typename Work>
    auto read(Work&& work)
    {
        soci::session sql(pool_);
        return inTransaction(sql, "begin", work);
    }

    /// As read(), for work that changes something. One at a time; an exception takes the changes back.
    template <typename Work>
    auto write(Work&& work)
    {
        const std::lock_guard lock(writing_);
        soci::session sql(pool_);
        return inTransaction(sql, "begin immediate", work);
    }

private:
    template <typename Work>
    static auto inTransaction(soci::session& sql, const char* begin, Work& work)
    {
        Transaction transaction(sql, begin);
        if constexpr (std::is_void_v<decltype(work(sql))>) {
            work(sql);
            transaction.commit();
        } else {
            auto result = work(sql);
            transaction.commit();
            return result;
        }
    }

    class Transaction
    {
    public:
        Transaction(soci::session& sql, const char* begin);
        Transaction(const Transaction&) = delete;
        ~Transaction();
        void commit();

    private:
        soci::session& sql_;
        bool isOpen_ = true;
    };

    soci::connection_pool pool_;
    std::mutex writing_;
};

} // namespace bridge
