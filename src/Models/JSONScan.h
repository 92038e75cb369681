#pragma once

#include <QByteArray>
#include <QList>

/// What one pass over the bytes of a document tells before Qt's parser gets them: whether it may have them,
/// and where the numbers stand that it would read wrongly. The parser judges the structure. It is too kind to
/// numbers and texts, and blind to what a document costs: small lists take over thirty times their bytes of
/// memory.
class JSONScan
{
public:
    explicit JSONScan(const QByteArray& json);

    enum class Flaw
    {
        none,
        /// A number with a part missing, an escape that JSON does not know, a control character in a text, a
        /// byte that begins nothing.
        malformed,
        /// The document would take more than `largestCost`.
        tooCostly,
    };
    /// The first that was found; the pass ends with it.
    Flaw flaw() const { return flaw_; }

    /// Bytes of memory that the parsed values take at most. Their texts are left aside: those take as much as
    /// in the document, or up to four times as much where not all is ASCII.
    qint64 cost() const { return cost_; }
    /// 1 GiB: 3 million objects of one field, or 200,000 records of forty fields, which is twice as much as
    /// any list that the program is made for.
    static constexpr qint64 largestCost = qint64(1) << 30;
    /// Of a list or an object: its head, and the least of its two buffers.
    static constexpr qint64 costOfContainer = 160;
    /// Of a value, and of a name: itself, the length of a text and what rounds it up, 32 bytes in all, in
    /// buffers that grow by doubling.
    static constexpr qint64 costOfValue = 64;

    /// A run of bytes of the document.
    struct Span
    {
        qsizetype begin;
        qsizetype end;
        bool operator==(const Span&) const = default;
    };
    /// The whole numbers of so many digits that they may not fit into 64 bits, from left to right.
    const QList<Span>& longIntegers() const { return longIntegers_; }

private:
    void run();
    bool step();
    bool passText();
    bool passNumber();
    bool passDigits();
    bool count(qint64 cost);
    char byteAt(qsizetype place) const { return place < json_.size() ? json_[place] : '\0'; }

    QByteArrayView json_; ///< looked at in the constructor alone
    qsizetype at_ = 0;
    Flaw flaw_ = Flaw::none;
    qint64 cost_ = 0;
    QList<Span> longIntegers_;
};
