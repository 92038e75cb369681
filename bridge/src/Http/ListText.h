#pragma once

#include <nlohmann/json.hpp>

#include <atomic>
#include <cstddef>
#include <deque>
#include <memory>
#include <string>

namespace bridge {

/// The memory that all the answers on their way out may take together, so that no number of clients that ask
/// for long lists, or take them slowly, can exhaust the server's.
class AnswerBudget
{
public:
    explicit AnswerBudget(std::size_t bytes) : left_(static_cast<long long>(bytes)) { }

    /// \throws Problem 503 when there is not so much left
    void take(std::size_t bytes);
    void giveBack(std::size_t bytes) { left_ += static_cast<long long>(bytes); }

private:
    std::atomic<long long> left_;
};

/// A list that becomes text row by row, so that of a long one nothing but the text is ever in memory: in
/// pieces that are taken from the budget, and given back with this object, when the answer was sent.
///
/// A list ends at its largest size, with the rows that come first, which are the newest: clients refuse
/// larger answers, and whoever could make one so large would take the list from everybody.
class ListText
{
public:
    /// In bytes; clients take 256 MiB.
    static constexpr std::size_t largest = 192u << 20;

    /// \param key  of the object around the list; empty for a bare list
    ListText(AnswerBudget& budget, const std::string& key);
    ListText(ListText&&) noexcept = default;

    /// False when the list is full.
    /// \throws Problem 503 when the budget is used up
    bool add(const nlohmann::json& row);

    /// Writes what closes the list. To be called once, after the last row.
    void finish();

    std::size_t size() const { return size_; }

    /// The text from an offset on, up to the end of the piece that holds it.
    std::string_view from(std::size_t offset) const;

private:
    static constexpr std::size_t pieceSize = 1 << 20;

    /// The first is free, since most lists have no other.
    struct Pieces
    {
        ~Pieces();

        AnswerBudget& budget;
        std::deque<std::string> texts = {};
        std::size_t taken = 0;
    };

    void write(std::string_view text);
    std::string& roomyPiece();

    std::unique_ptr<Pieces> pieces_;
    std::size_t size_ = 0;
    std::string end_;
    bool isEmpty_ = true;
};

} // namespace bridge
