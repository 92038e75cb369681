#pragma once

#include "Store/Files.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace bridge {

/// A file on its way in: written to the disk as it comes, under a name that nothing refers to. It vanishes
/// with this object unless it is kept.
class IncomingFile
{
public:
    /// \throws std::system_error
    explicit IncomingFile(const std::filesystem::path& folder);
    IncomingFile(IncomingFile&&) noexcept;
    ~IncomingFile();

    /// \throws std::system_error, when the disk is full for instance
    void write(const char* bytes, std::size_t size);

    /// Ends the file, makes it durable under its lasting name and returns that name.
    /// \throws std::system_error
    std::string keep();

    /// Takes keep() back.
    void discard();

    std::uint64_t size() const { return size_; }

    /// After keep(), in lower-case hexadecimal digits.
    const std::string& sha256() const { return sha256_; }

private:
    struct Digest;

    std::filesystem::path folder_;
    std::string name_;
    Descriptor file_;
    std::unique_ptr<Digest> digest_;
    std::uint64_t size_ = 0;
    std::string sha256_;
    bool isMine_ = true;
};

/// Moves the files that no stored document refers to out of the folder: what an abrupt end left behind, or
/// what a database that was put back from an earlier day does not know. Nothing is deleted, and whatever
/// somebody else has put there is left alone.
///
/// \param stored  the names of the files that documents refer to
/// \param lost  where they go; made when it is needed
/// \throws std::filesystem::filesystem_error
void setAsideUnknown(const std::filesystem::path& folder, const std::vector<std::string>& stored,
    const std::filesystem::path& lost);

} // namespace bridge
