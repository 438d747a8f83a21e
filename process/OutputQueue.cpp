#include "process/OutputQueue.h"

#include "support/text.h"
#include "utils/Characters.h"

std::string_view lm::OutputQueue::slice(size_t most) const
{
    const std::string_view all = std::string_view(_text).substr(_head);
    if (all.size() <= most)
        return all;
    const size_t newline = all.substr(0, most).rfind('\n');
    return newline == std::string_view::npos ? utf8Prefix(all, most) : all.substr(0, newline + 1);
}

void lm::OutputQueue::pop(size_t count)
{
    _head += count;
    if (_head == _text.size()) {
        clear();
    } else if (_head > _text.size() / 2) {
        _text.erase(0, _head);
        _head = 0;
    }
}

bool lm::OutputQueue::keepNewest(size_t limit)
{
    if (size() <= limit + limit / 4)
        return false;
    pop(frontCut(std::string_view(_text).substr(_head), size() - limit));
    return true;
}

void lm::OutputQueue::clear()
{
    _text.clear();
    _head = 0;
}
