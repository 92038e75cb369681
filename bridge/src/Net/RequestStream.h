#pragma once

#include "Net/BodyFraming.h"
#include "Net/BodyPace.h"

#include <httplib.h>

#include <array>
#include <chrono>
#include <string>

namespace bridge {

/// The requests of one connection, as the HTTP library reads them. The library gets heads that were read and
/// bounded here, and bodies without their framing: what it lacks is bounds, and a strict eye on where a
/// request ends.
class RequestStream : public httplib::Stream
{
public:
    enum class Arrival
    {
        Nothing, ///< no request came, or no whole head in time
        Request,
        Malformed, ///< the library is given a head that it refuses; nothing behind this one can be read
    };

    /// Waits for a request and reads its head.
    /// \param patience  until its first byte
    Arrival awaitRequest(std::chrono::seconds patience);

    /// The body of this request is a short text, which has less time to arrive than a file.
    void expectText() { pace_.expectText(); }

    /// True when the body has been read to its end, so that the next byte begins another request.
    bool isBodyRead() const { return framing_.isOver(); }

    /// False after a failure or a breach of the bounds: nothing more can be read.
    bool isSound() const { return isSound_; }

    bool is_readable() const override { return position_ < filled_; }
    bool is_writable() const override { return isSound_; }
    ssize_t read(char* bytes, size_t size) override;
    void get_remote_ip_and_port(std::string& ip, int& port) const override;
    void get_local_ip_and_port(std::string& ip, int& port) const override;

protected:
    explicit RequestStream(SteadyClock clock);

    /// Waits until the deadline for what the client sends next.
    /// \returns the bytes put into the buffer; 0 when there will be none
    virtual std::size_t receive(char* buffer, std::size_t room, SteadyMoment deadline) = 0;

    void fail() { isSound_ = false; }

private:
    Arrival readHead();
    ssize_t readBody(char* bytes, std::size_t size);
    void beginBody();
    bool fill(SteadyMoment deadline);

    const SteadyClock clock_;
    std::array<char, 16 << 10> buffer_;
    std::size_t position_ = 0;
    std::size_t filled_ = 0;
    bool isSound_ = true;

    std::string head_;
    std::size_t headPosition_ = 0;
    BodyFraming framing_{std::nullopt};
    BodyPace pace_;
    bool isBodyBegun_ = false;
    bool isBodyBroken_ = false;
    bool isContinueAwaited_ = false;
};

} // namespace bridge
