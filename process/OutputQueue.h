// OutputQueue.h: text that is still to be shown, oldest first.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace lm {

/// A queue of text of whole characters, UTF-8 or of one byte each.
class OutputQueue {
public:
    /// What the text is appended to.
    std::string& tail() { return _text; }
    bool empty() const { return _head == _text.size(); }
    size_t size() const { return _text.size() - _head; }
    /// The oldest text: at most `most` bytes (4 or more), up to a line end if there is one, else to the end of a character.
    std::string_view slice(size_t most) const;
    /// Removes that many bytes, the length of a slice, from the front.
    void pop(size_t count);
    /// When there is a quarter more than `limit` bytes: removes the oldest lines beyond the limit and answers True.
    bool keepNewest(size_t limit);
    void clear();

private:
    std::string _text;
    size_t _head = 0;   // what stands before is gone
};

}   // namespace lm
