#pragma once

#include <QByteArray>

#include <optional>

/// Takes in an answer piece by piece and stops where it is no longer a usable one. libcurl lets pass what is
/// refused here: heads of any length, bodies of any size, contradicting lengths, compression nobody asked
/// for.
class AnswerReader
{
public:
    enum class Flaw
    {
        TooLarge, ///< the body is, or says that it is, larger than allowed
        Broken, ///< the head is no sensible one
    };

    /// \param largestBody  in bytes
    explicit AnswerReader(qint64 largestBody) : largestBody_(largestBody) { }

    /// Takes a status line, a header line or the blank line after them, each with its line end.
    /// \returns whether to read on
    bool takeHeaderLine(QByteArrayView line);
    /// \returns whether to read on
    bool takeBody(QByteArrayView bytes);

    std::optional<Flaw> flaw() const { return flaw_; }
    /// Whether the latest head has ended with its blank line.
    bool hasWholeHead() const { return hasWholeHead_; }
    const QByteArray& body() const { return body_; }

private:
    bool fail(Flaw flaw);
    bool takeContentLength(QByteArrayView value);

    const qint64 largestBody_;
    qint64 headBytes_ = 0;
    bool hasWholeHead_ = false;
    std::optional<qint64> contentLength_;
    QByteArray body_;
    std::optional<Flaw> flaw_;
};
