// LmNameList: names in an order: sorted, searched by prefix, completed.
#pragma once

#include "support/LmExport.h"

#include <Xm/Xm.h>

#include <string>
#include <vector>

/// An ordered list of names, each a private copy. Names are bytes: case counts, bytes compare as unsigned values, and a
/// common prefix may end inside a UTF-8 character (lm::utf8Prefix cuts one for the screen). Equal names may stand in the
/// list; the order is that of insertion until sort(), reverse() or removeDuplicates() changes it. A value: copies are
/// independent. Names may be of any length.
///
///     LmNameList colours;
///     colours.add("red");
///     char* completed;
///     int matches;
///     delete colours.completeName(text, completed, matches);
///     ...
///     free(completed);
///
///   Errors     none: a null name is never in the list, so adding or removing one changes nothing and null is the prefix
///              of no name; an index outside the list gives null
class LM_API LmNameList {
public:
    /// The empty list.
    LmNameList() = default;
    LmNameList(const LmNameList& other) = default;   ///< The same names, copied.
    /// A list of one name.
    LmNameList(const char* name) { add(name); }
    LmNameList& operator=(const LmNameList& other) = default;   ///< The same names, copied.
    virtual ~LmNameList() = default;
    /// Completes `text`: the names that begin with it, in list order, as a new list that the caller deletes. `completed`
    /// becomes a new string that the caller frees with `free`: the longest common prefix of these names (the name itself
    /// when there is one), or, when there is none, as much of `text` as some name begins with. A null text counts as empty.
    virtual LmNameList* completeName(char* text, char*& completed, int& numMatches) const;

    /// Empties the list.
    void clear() { _names.clear(); }
    /// Appends a copy of the name, also when it is there already.
    void add(const char* name);
    /// Appends copies of the other list's names, in its order.
    void add(const LmNameList& other);
    /// Removes the first name equal to `name`.
    void remove(const char* name);
    /// Sorts the names in ascending order.
    void sort();
    void reverse();   ///< Turns the order round.
    /// Sorts the list and leaves one of each set of equal names.
    void removeDuplicates();

    int size() const { return static_cast<int>(_names.size()); }   ///< The number of names.
    /// The name at an index without a copy: the list's own, valid until the list changes; null outside 0..size()-1.
    const char* at(int index) const;
    /// 1 when the name is in the list, else 0.
    int exists(const char* name) const;
    /// A copy of the name at an index, which the caller frees with `free`; null outside 0..size()-1.
    char* operator[](int index) const;
    /// The names that begin with the prefix, in list order. All names begin with the empty prefix.
    LmNameList operator[](const char* prefix) const;
    /// A null-terminated array of copies; the caller gives it to FreeIdTable().
    operator char**() const;
    /// A null-terminated array of compound strings; the caller frees each with XmStringFree, the array with `free`.
    operator XmString*() const;
    /// 1 when both lists hold equal names in the same order, else 0.
    int operator==(const LmNameList& other) const { return _names == other._names ? 1 : 0; }
    /// The longest common prefix of all names, empty for the empty list; the caller frees it with `free`.
    char* mostCommonString() const;

private:
    std::vector<std::string> _names;
};

/// The order of two names in an array of names, for qsort: as strcmp has it.
extern "C" LM_API int StringCompare(const char** a, const char** b);

/// Frees a null-terminated array of strings and the strings; null is ignored.
LM_API void FreeIdTable(char** table);
