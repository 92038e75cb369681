#pragma once

#include "Settings.h"

#include <mutex>
#include <semaphore>
#include <string>

namespace bridge {

/// Hashes and checks passwords with Argon2id. Only a few run at once, since each takes much memory; the
/// others wait for their turn.
class Passwords
{
public:
    /// \throws std::runtime_error when the cryptographic library does not start
    explicit Passwords(PasswordCost cost);

    /// "$argon2id$...", with its salt and limits.
    std::string hash(const std::string& password);

    /// \param hash  empty for an account that does not exist: false, after the same work
    bool verify(const std::string& hash, const std::string& password);

private:
    static constexpr std::ptrdiff_t atOnce = 4;

    unsigned long long operations_;
    std::size_t memory_;
    std::counting_semaphore<atOnce> turns_{atOnce};
    std::string nobodys_;
};

/// Text of so many random bytes, made of letters, digits, "-" and "_".
std::string randomText(std::size_t bytes);

/// What is stored of a token: enough to recognise it, not enough to use it.
std::string fingerprint(const std::string& token);

/// Proves that whoever made it for this message has the key.
std::string signature(const std::string& key, const std::string& message);

/// Compares without telling by its duration where the texts differ.
bool isSame(const std::string& one, const std::string& other);

} // namespace bridge
