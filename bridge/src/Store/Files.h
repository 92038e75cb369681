#pragma once

#include <filesystem>
#include <string>

namespace bridge {

/// The whole file as bytes; empty when it cannot be read.
std::string readFile(const std::filesystem::path& file);

/// Puts bytes in place of a file, so that a crash leaves either the old or the new ones. Readable by the
/// owner alone. \throws std::system_error
void replaceFile(const std::filesystem::path& file, const std::string& bytes);

/// Makes what was created, renamed or removed in a folder survive a power cut.
/// \throws std::system_error
void syncFolder(const std::filesystem::path& folder);

/// Writes all of the bytes.
/// \throws std::system_error
void writeAll(int descriptor, const char* bytes, std::size_t size);

/// An open file descriptor that closes itself.
class Descriptor
{
public:
    Descriptor() = default;
    explicit Descriptor(int number);
    Descriptor(Descriptor&& other) noexcept;
    Descriptor& operator=(Descriptor&& other) noexcept;
    ~Descriptor();

    int number() const { return number_; }
    void close();

private:
    int number_ = -1;
};

} // namespace bridge
