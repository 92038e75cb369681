#include "Http/ListText.h"

#include "Http/Problem.h"

#include <algorithm>

namespace bridge {

void AnswerBudget::take(std::size_t bytes)
{
    if ((left_ -= static_cast<long long>(bytes)) >= 0)
        return;
    giveBack(bytes);
    throw busy();
}

ListText::ListText(AnswerBudget& budget, const std::string& key)
    : pieces_(new Pieces{budget}), end_(key.empty() ? "]" : "]}")
{
    write(key.empty() ? "[" : "{\"" + key + "\":[");
}

bool ListText::add(const nlohmann::json& row)
{
    using Json = nlohmann::json;
    // Bytes that are no UTF-8 in an old row must not fail a whole list.
    const std::string text = row.dump(-1, ' ', false, Json::error_handler_t::replace);
    if (size_ + text.size() + sizeof "," + end_.size() > largest)
        return false;
    if (!isEmpty_)
        write(",");
    write(text);
    isEmpty_ = false;
    return true;
}

void ListText::finish()
{
    write(end_);
}

std::string_view ListText::from(std::size_t offset) const
{
    return std::string_view(pieces_->texts[offset / pieceSize]).substr(offset % pieceSize);
}

void ListText::write(std::string_view text)
{
    while (!text.empty()) {
        std::string& piece = roomyPiece();
        const std::string_view part = text.substr(0, pieceSize - piece.size());
        piece += part;
        size_ += part.size();
        text.remove_prefix(part.size());
    }
}

std::string& ListText::roomyPiece()
{
    std::deque<std::string>& texts = pieces_->texts;
    const bool isFirst = texts.empty();
    if (isFirst || texts.back().size() == pieceSize) {
        if (!isFirst) {
            pieces_->budget.take(pieceSize);
            pieces_->taken += pieceSize;
        }
        texts.emplace_back();
        if (!isFirst)
            texts.back().reserve(pieceSize);
    }
    return texts.back();
}

ListText::Pieces::~Pieces()
{
    budget.giveBack(taken);
}

} // namespace bridge
