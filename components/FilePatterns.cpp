#include "components/FilePatterns.h"

#include <algorithm>
#include <cstddef>

// The letters and digits of ASCII, in any locale.
static bool isDigit(char c) { return c >= '0' && c <= '9'; }
static bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
static bool isAny(char c, std::string_view characters) { return characters.find(c) != std::string_view::npos; }
static bool isBlank(char c) { return isAny(c, " \t\n"); }

/// Whether the shell gives the character no meaning outside brackets; inside, '-', '!' and '^' need theirs.
static bool isPlain(char c) { return isDigit(c) || isLetter(c) || isAny(c, "_-./:@%+=,!^"); }

/// The length of the variable's name that the text starts with.
static std::size_t nameLength(std::string_view text)
{
    if (text.empty() || isDigit(text.front()))
        return 0;
    const auto end = std::ranges::find_if_not(text, [](char c) { return isDigit(c) || isLetter(c) || c == '_'; });
    return static_cast<std::size_t>(end - text.begin());
}

std::string lm::shellWord(std::string_view name)
{
    std::string word = "'";
    for (const char c : name) {
        if (c == '\'')
            word += "'\\''";
        else
            word += c;
    }
    return word + "'";
}

bool lm::holdsPattern(std::string_view text) { return text.find_first_of("*?[]~$") != std::string_view::npos; }

namespace {

/// One pass over the typed text.
class PatternReader {
public:
    explicit PatternReader(std::string_view text) : _rest(text) {}

    std::string words()
    {
        while (!_rest.empty()) {
            if (!readVariable() && !readEscaped() && !readQuoted())
                readCharacter();
        }
        endWord();
        return _words;
    }

private:
    /// $NAME or ${NAME}; false for any other use of '$'.
    bool readVariable()
    {
        if (_rest.front() != '$')
            return false;
        const bool braced = _rest.substr(1).starts_with('{');
        const std::size_t start = braced ? 2 : 1;
        const std::size_t length = nameLength(_rest.substr(start));
        if (length == 0 || (braced && !_rest.substr(start + length).starts_with('}')))
            return false;
        closeQuotes();
        _word.append("\"${").append(_rest.substr(start, length)).append("}\"");
        _rest.remove_prefix(start + length + (braced ? 1 : 0));
        return true;
    }

    /// A backslash and the character that it quotes.
    bool readEscaped()
    {
        if (_rest.size() < 2 || _rest.front() != '\\')
            return false;
        addQuoted(_rest[1]);
        _rest.remove_prefix(2);
        return true;
    }

    /// What stands in quotes, variables in double quotes included; false when they are not closed.
    bool readQuoted()
    {
        const char quote = _rest.front();
        const bool isDouble = quote == '"';
        if (!isDouble && quote != '\'')
            return false;
        std::size_t end = 1;
        while (end < _rest.size() && _rest[end] != quote)
            end += isDouble && _rest[end] == '\\' ? 2 : 1;
        if (end >= _rest.size())
            return false;
        const std::string_view after = _rest.substr(end + 1);
        _rest = _rest.substr(1, end - 1);
        _isWord = true;
        while (!_rest.empty())
            readInQuotes(isDouble);
        _rest = after;
        return true;
    }

    void readInQuotes(bool isDouble)
    {
        if (isDouble && readVariable())
            return;
        const bool escaped = isDouble && _rest.size() > 1 && _rest[0] == '\\' && isAny(_rest[1], "$\"\\`");
        addQuoted(_rest[escaped ? 1 : 0]);
        _rest.remove_prefix(escaped ? 2 : 1);
    }

    void readCharacter()
    {
        const char c = _rest.front();
        if (isBlank(c))
            endWord();
        else if (isPlain(c) || isAny(c, "*?[]") || (c == '~' && !_isWord))
            addActive(c);
        else
            addQuoted(c);
        _rest.remove_prefix(1);
    }

    /// A character that the shell sees as it is.
    void addActive(char c)
    {
        guardDash(c);
        closeQuotes();
        _word += c;
    }

    /// A character that the shell must take literally.
    void addQuoted(char c)
    {
        guardDash(c);
        _quoted += c;
    }

    void guardDash(char c)
    {
        if (c == '-' && isEmpty())
            _word = "./";
        _isWord = true;
    }

    bool isEmpty() const { return _word.empty() && _quoted.empty(); }

    void closeQuotes()
    {
        if (!_quoted.empty())
            _word += lm::shellWord(_quoted);
        _quoted.clear();
        _isWord = true;
    }

    void endWord()
    {
        if (!_isWord)
            return;
        closeQuotes();
        _words.append(_words.empty() ? "" : " ").append(_word.empty() ? "''" : _word);
        _word.clear();
        _isWord = false;
    }

    std::string_view _rest;
    std::string _words, _word;
    std::string _quoted;    // the end of the word that stands in quotes still open
    bool _isWord = false;   // whether a word has begun, be it by empty quotes
};

}   // namespace

std::string lm::shellPatterns(std::string_view text) { return PatternReader(text).words(); }
