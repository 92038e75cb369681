#include "Store/Files.h"

#include <cerrno>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace bridge {

[[noreturn]] static void fail(const std::string& what)
{
    throw std::system_error(errno, std::generic_category(), what);
}

std::string readFile(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void replaceFile(const std::filesystem::path& file, const std::string& bytes)
{
    const std::filesystem::path temporary = file.string() + ".new";
    Descriptor descriptor(::open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600));
    if (descriptor.number() < 0)
        fail(temporary.string());
    writeAll(descriptor.number(), bytes.data(), bytes.size());
    if (::fsync(descriptor.number()) != 0)
        fail(temporary.string());
    descriptor.close();
    std::filesystem::rename(temporary, file);
    syncFolder(file.parent_path());
}

void syncFolder(const std::filesystem::path& folder)
{
    const Descriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.number() < 0 || ::fsync(descriptor.number()) != 0)
        fail(folder.string());
}

void writeAll(int descriptor, const char* bytes, std::size_t size)
{
    while (size > 0) {
        const ssize_t written = ::write(descriptor, bytes, size);
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            fail("write");
        bytes += written;
        size -= static_cast<std::size_t>(written);
    }
}

Descriptor::Descriptor(int number) : number_(number) { }

Descriptor::Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) { }

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept
{
    std::swap(number_, other.number_);
    return *this;
}

Descriptor::~Descriptor()
{
    close();
}

void Descriptor::close()
{
    if (number_ >= 0)
        ::close(std::exchange(number_, -1));
}

} // namespace bridge
