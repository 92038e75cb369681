#pragma once

#include "Moment.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <string>

namespace bridge {

/// How much work one password hash costs.
enum class PasswordCost
{
    Interactive, ///< libsodium's limits for a person who waits: 64 MiB, about a tenth of a second
    Lowest, ///< the least that libsodium allows, for tests that sign in a hundred times
};

/// What one account may bring in a day: far more than anybody needs, and too little to fill a disk or
/// everybody's lists.
struct DailyLimits
{
    long long bookings = 500;
    long long messages = 5'000;
    long long documents = 2'000;
    long long documentBytes = 16ll << 30;
};

/// Everything that a server is told when it starts.
struct Settings
{
    /// Holds the database, the uploaded files and the certificates. Made when it is missing.
    std::filesystem::path data;
    std::string host = "127.0.0.1";
    /// 0 picks a free one.
    int port = 8443;
    std::chrono::seconds idTokenLifetime = std::chrono::hours(1);
    /// The key that the token endpoint demands; empty accepts any that is not empty.
    std::string apiKey;
    /// Of one request with files, in bytes.
    std::uint64_t largestUpload = 4096ull << 20;
    /// What one account may bring in a day of New York.
    DailyLimits daily;
    /// Of all long answers on their way out together, in bytes.
    std::size_t answerMemory = 256u << 20;
    /// Fills an empty database with people and sessions to try the client with.
    bool demo = false;
    /// This many generated sessions more for the demo client, to measure with.
    int demoSessions = 0;
    /// Writes one line per request to the standard error stream: method, path, status.
    bool verbose = false;
    PasswordCost passwordCost = PasswordCost::Interactive;
    Clock clock = systemTime;
    /// What attempts are counted by.
    SteadyClock steadyClock = std::chrono::steady_clock::now;
    /// Accounts that one peer may open within an hour.
    int mostRegistrations = 20;
};

} // namespace bridge
