#pragma once

#include <QByteArray>

#include <chrono>
#include <memory>
#include <span>

struct ssl_ctx_st;
struct ssl_st;

/// A connected socket, with or without TLS. Every wait ends when the server that owns the socket stops.
class RawStream
{
public:
    /// Thrown when the client has gone, refuses the handshake, or the server stops.
    struct Gone
    { };

    /// Takes over the socket and shakes hands when there is a `tls`.
    /// \param stopSignal  becomes readable when every wait shall end
    RawStream(int socket, int stopSignal, ssl_ctx_st* tls);
    RawStream(const RawStream&) = delete;
    RawStream& operator=(const RawStream&) = delete;
    ~RawStream();

    /// \returns how many bytes were read, at least one; 0 when the client has closed its side
    int read(std::span<char> buffer);
    void write(QByteArrayView bytes);
    /// Reads nothing until the client goes or `most` has passed.
    /// \returns whether the client is still there
    bool idle(std::chrono::milliseconds most);
    /// Reads nothing until the client goes.
    void idle();
    /// Closes as a well-behaved server does.
    void close();
    /// Closes so that the client gets a reset instead of an end.
    void reset();

private:
    struct TlsCleanup
    {
        void operator()(ssl_st* tls) const;
    };

    template <typename Step>
    int repeat(Step step);
    void await(short events);
    void shakeHands();

    int socket_;
    int stopSignal_;
    std::unique_ptr<ssl_st, TlsCleanup> tls_;
};
