#pragma once

#include <httplib.h>

#include <array>
#include <chrono>
#include <string>

namespace bridge {

/// The requests of one connection, as the HTTP library reads them. It keeps the bounds that the library
/// lacks: how long and how many the lines of a request's head may be, and how long a head may take.
class RequestStream : public httplib::Stream
{
public:
    /// Waits for the first byte of a request; false when none came in time.
    bool awaitRequest(std::chrono::seconds patience);

    /// The bytes of the body that were read since awaitRequest().
    std::uint64_t bodyBytes() const { return bodyBytes_; }

    /// False after a failure or a breach of the bounds: nothing more can be read.
    bool isSound() const { return isSound_; }

    bool is_readable() const override { return position_ < filled_; }
    bool is_writable() const override { return isSound_; }
    ssize_t read(char* bytes, size_t size) override;
    void get_remote_ip_and_port(std::string& ip, int& port) const override;
    void get_local_ip_and_port(std::string& ip, int& port) const override;

protected:
    using SteadyTime = std::chrono::steady_clock::time_point;

    /// Waits until the deadline for what the client sends next.
    /// \returns the bytes put into the buffer; 0 when there will be none
    virtual std::size_t receive(char* buffer, std::size_t room, SteadyTime deadline) = 0;

    void fail() { isSound_ = false; }

private:
    bool fill(SteadyTime deadline);
    bool mayTakeOfHead(char byte);

    std::array<char, 16 << 10> buffer_;
    std::size_t position_ = 0;
    std::size_t filled_ = 0;
    bool isSound_ = true;

    bool isInHead_ = true;
    std::size_t headBytes_ = 0;
    std::size_t headLines_ = 0;
    std::size_t lineBytes_ = 0;
    SteadyTime headDeadline_;
    std::uint64_t bodyBytes_ = 0;
};

} // namespace bridge
