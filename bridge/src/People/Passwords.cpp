#include "People/Passwords.h"

#include <sodium.h>

#include <array>
#include <new>
#include <stdexcept>
#include <vector>

namespace bridge {

namespace {

template <typename Semaphore>
class Turn
{
public:
    explicit Turn(Semaphore& turns) : turns_(turns) { turns_.acquire(); }
    Turn(const Turn&) = delete;
    ~Turn() { turns_.release(); }

private:
    Semaphore& turns_;
};

} // namespace

Passwords::Passwords(PasswordCost cost)
    : operations_(
        cost == PasswordCost::Lowest ? crypto_pwhash_OPSLIMIT_MIN : crypto_pwhash_OPSLIMIT_INTERACTIVE),
      memory_(cost == PasswordCost::Lowest ? crypto_pwhash_MEMLIMIT_MIN : crypto_pwhash_MEMLIMIT_INTERACTIVE)
{
    if (sodium_init() < 0)
        throw std::runtime_error("The cryptographic library did not start.");
    nobodys_ = hash(randomText(16));
}

std::string Passwords::hash(const std::string& password)
{
    const Turn turn(turns_);
    std::array<char, crypto_pwhash_STRBYTES> text;
    if (crypto_pwhash_str(text.data(), password.data(), password.size(), operations_, memory_) != 0)
        throw std::bad_alloc();
    return text.data();
}

bool Passwords::verify(const std::string& hash, const std::string& password)
{
    const Turn turn(turns_);
    const std::string& compared = hash.empty() ? nobodys_ : hash;
    const bool fits = crypto_pwhash_str_verify(compared.c_str(), password.data(), password.size()) == 0;
    return fits && !hash.empty();
}

static std::string encoded(const unsigned char* bytes, std::size_t size)
{
    constexpr int variant = sodium_base64_VARIANT_URLSAFE_NO_PADDING;
    std::vector<char> text(sodium_base64_ENCODED_LEN(size, variant));
    return sodium_bin2base64(text.data(), text.size(), bytes, size, variant);
}

std::string randomText(std::size_t bytes)
{
    std::vector<unsigned char> random(bytes);
    randombytes_buf(random.data(), random.size());
    return encoded(random.data(), random.size());
}

std::string fingerprint(const std::string& token)
{
    std::array<unsigned char, crypto_generichash_BYTES> hash;
    crypto_generichash(hash.data(), hash.size(), reinterpret_cast<const unsigned char*>(token.data()),
        token.size(), nullptr, 0);
    return encoded(hash.data(), hash.size());
}

std::string signature(const std::string& key, const std::string& message)
{
    std::array<unsigned char, crypto_auth_hmacsha256_BYTES> mac;
    crypto_auth_hmacsha256_state state;
    crypto_auth_hmacsha256_init(&state, reinterpret_cast<const unsigned char*>(key.data()), key.size());
    crypto_auth_hmacsha256_update(
        &state, reinterpret_cast<const unsigned char*>(message.data()), message.size());
    crypto_auth_hmacsha256_final(&state, mac.data());
    return encoded(mac.data(), mac.size());
}

bool isSame(const std::string& one, const std::string& other)
{
    return one.size() == other.size() && sodium_memcmp(one.data(), other.data(), one.size()) == 0;
}

} // namespace bridge
