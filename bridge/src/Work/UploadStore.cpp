#include "Work/UploadStore.h"

#include "People/Passwords.h"

#include <sodium.h>

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <regex>
#include <set>
#include <system_error>
#include <unistd.h>

namespace bridge {

static constexpr const char* unfinished = ".part";
static constexpr std::size_t nameBytes = 18; // 24 characters

struct IncomingFile::Digest
{
    crypto_hash_sha256_state state;
};

IncomingFile::IncomingFile(const std::filesystem::path& folder)
    : folder_(folder), name_(randomText(nameBytes)), digest_(std::make_unique<Digest>())
{
    const std::filesystem::path path = folder_ / (name_ + unfinished);
    file_ = Descriptor(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    if (file_.number() < 0)
        throw std::system_error(errno, std::generic_category(), "upload");
    crypto_hash_sha256_init(&digest_->state);
}

IncomingFile::IncomingFile(IncomingFile&& other) noexcept = default;

IncomingFile::~IncomingFile()
{
    if (digest_ && isMine_)
        discard();
}

void IncomingFile::write(const char* bytes, std::size_t size)
{
    writeAll(file_.number(), bytes, size);
    crypto_hash_sha256_update(&digest_->state, reinterpret_cast<const unsigned char*>(bytes), size);
    size_ += size;
}

std::string IncomingFile::keep()
{
    std::array<unsigned char, crypto_hash_sha256_BYTES> hash;
    crypto_hash_sha256_final(&digest_->state, hash.data());
    std::array<char, 2 * hash.size() + 1> text;
    sha256_ = sodium_bin2hex(text.data(), text.size(), hash.data(), hash.size());

    if (::fsync(file_.number()) != 0)
        throw std::system_error(errno, std::generic_category(), "upload");
    file_.close();
    std::filesystem::rename(folder_ / (name_ + unfinished), folder_ / name_);
    isMine_ = false;
    syncFolder(folder_);
    return name_;
}

void IncomingFile::discard()
{
    file_.close();
    std::error_code ignored;
    std::filesystem::remove(folder_ / (name_ + unfinished), ignored);
    std::filesystem::remove(folder_ / name_, ignored);
    isMine_ = false;
}

/// Whether a file bears a name as IncomingFile gives them, so that nobody else can have put it there.
static bool isOurs(const std::filesystem::directory_entry& entry)
{
    static const std::regex names("[A-Za-z0-9_-]{24}(\\.part)?");
    return entry.symlink_status().type() == std::filesystem::file_type::regular
        && std::regex_match(entry.path().filename().string(), names);
}

void setAsideUnknown(const std::filesystem::path& folder, const std::vector<std::string>& stored,
    const std::filesystem::path& lost)
{
    const std::set<std::string> known(stored.begin(), stored.end());
    std::vector<std::filesystem::path> unknown;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (isOurs(entry) && known.count(entry.path().filename().string()) == 0)
            unknown.push_back(entry.path());
    }
    if (!unknown.empty())
        std::filesystem::create_directories(lost);
    for (const std::filesystem::path& file : unknown)
        std::filesystem::rename(file, lost / file.filename());
}

} // namespace bridge
