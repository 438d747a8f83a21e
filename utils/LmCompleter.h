// LmCompleter: completes a text against a fixed set of names, for text front ends of an application's own.
#pragma once

#include "support/LmExport.h"

#include <string>
#include <vector>

/// A sorted private copy of a set of names that answers what a text completes to. Unlike a name list, it gives as much of
/// a text back as some name begins with, when no name begins with all of it.
///
///     LmCompleter completer(names);   // alpha, alphabet, beta
///     int unique;
///     completer.getCompletedName("al", unique);    // alpha, not unique
///     completer.getCompletedName("be", unique);    // beta, unique
///     completer.getCompletedName("bex", unique);   // be, unique
///
///   Errors     none: a null array and a negative count give the empty set, null entries are left out, a null text is empty
class LM_API LmCompleter {
public:
    /// The empty set.
    LmCompleter() = default;
    /// Copies an array that ends with null.
    LmCompleter(const char* const* list);
    /// Copies the first `n` entries of the array.
    LmCompleter(const char* const* list, int n) { copyAndSortStrings(list, n); }

    /// Takes the first `n` entries of the array in place of the present set.
    void setNameList(const char* const* list, int n) { copyAndSortStrings(list, n); }
    /// The longest common prefix of the names that begin with the text. When there are none, the longest start of the text
    /// that some name begins with; empty for the empty text. Always a new string, which the caller frees with `free`.
    /// `unique` becomes 1 when exactly one name begins with what was looked up in the end, else 0.
    char* getCompletedName(const char* text, int& unique) const;

protected:
    /// Fills the set.
    void copyAndSortStrings(const char* const* list, int n);
    /// 1 when some name begins with the prefix, else 0.
    int substringMatch(const char* prefix) const;
    /// The longest common prefix of the names that begin with the prefix, as a new string to be freed with `free`. `unique`
    /// becomes 1 when there is exactly one such name, else 0.
    char* mostCommonString(const char* prefix, int& unique) const;

private:
    std::vector<std::string> _names;   // ascending
};
