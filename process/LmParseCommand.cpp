#include "LmParseCommand.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <vector>

/// How long the word at the start of `text` is: up to the next space outside quotes.
static std::size_t lengthOfWord(std::string_view text)
{
    char quote = '\0';   // the quote that is open
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == ' ' && !quote)
            return i;
        if (quote ? c == quote : c == '\'' || c == '"')
            quote = quote ? '\0' : c;
    }
    return text.size();
}

/// The word without the quotes that enclose it; a quote alone encloses nothing.
static std::string_view unquoted(std::string_view word)
{
    const char first = word.front();
    if (first != word.back() || (first != '\'' && first != '"'))
        return word;
    return word.size() == 1 ? word.substr(1) : word.substr(1, word.size() - 2);
}

static std::string_view withoutLeadingSpaces(std::string_view text)
{
    return text.substr(std::min(text.find_first_not_of(' '), text.size()));
}

/// The words; the first, which may be empty, with its directories.
static std::vector<std::string_view> wordsOf(std::string_view command)
{
    std::string_view rest = withoutLeadingSpaces(command);
    std::size_t length = std::min(rest.find(' '), rest.size());   // quotes mean nothing in the first word
    std::vector<std::string_view> words = {rest.substr(0, length)};
    for (;;) {
        rest = withoutLeadingSpaces(rest.substr(length));
        if (rest.empty())
            return words;
        length = lengthOfWord(rest);
        words.push_back(unquoted(rest.substr(0, length)));
    }
}

static char* copyOf(std::string_view text) { return strndup(text.data(), text.size()); }

void LmParseCommand(const char* command, char** path, char*** argv)
{
    auto words = wordsOf(command ? command : "");
    *path = copyOf(words.front());
    words.front().remove_prefix(words.front().rfind('/') + 1);   // npos + 1 is 0
    *argv = static_cast<char**>(std::calloc(words.size() + 1, sizeof(char*)));
    std::transform(words.begin(), words.end(), *argv, copyOf);
}

void LmFreeParsedCommand(char* path, char** argv)
{
    std::free(path);
    for (char** word = argv; word && *word; ++word)
        std::free(*word);
    std::free(argv);
}
