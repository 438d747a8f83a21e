// LmSPGenericList: a list of pointers that remembers the place it visited last.
#pragma once

#include "support/LmExport.h"

/// One place of a LmSPGenericList. Destroyed, it takes itself out of the chain.
class LM_API LmSPGenericNode {
public:
    /// Joins itself into the chain between the two, which may be null.
    LmSPGenericNode(void* item, LmSPGenericNode* previous, LmSPGenericNode* next);
    LmSPGenericNode(const LmSPGenericNode&) = delete;
    LmSPGenericNode& operator=(const LmSPGenericNode&) = delete;
    ~LmSPGenericNode();

    LmSPGenericNode* previous() const { return _previous; }   ///< null at the head
    LmSPGenericNode* next() const { return _next; }           ///< null at the tail
    void* item() const { return _item; }                      ///< As constructed; not owned.

private:
    LmSPGenericNode* _previous;
    LmSPGenericNode* _next;
    void* _item;
};

/// A doubly linked list of pointers, not owned. Walking it by ascending or descending indexes costs one step for each:
/// the search starts at the head, the tail or the place visited last, whichever is nearest.
///
///   Errors     an index outside the list finds, inserts and removes nothing (null)
class LM_API LmSPGenericList {
public:
    LmSPGenericList() = default;
    LmSPGenericList(const LmSPGenericList&) = delete;
    LmSPGenericList& operator=(const LmSPGenericList&) = delete;
    ~LmSPGenericList() { clear(); }

    void append(void* item);    ///< Adds the item at the end.
    void prepend(void* item);   ///< Adds the item at the start.
    /// Inserts the item so that it gets that index, from 0 to size().
    void insertAt(long index, void* item);
    /// The item at an index from 0 to size() - 1.
    void* findItem(long index);
    LmSPGenericNode* findNode(long index);   ///< The node at an index from 0 to size() - 1.
    /// Removes a node of this list and returns its item; null: nothing. (A literal null needs a cast.)
    void* remove(LmSPGenericNode* node);
    /// Removes the first node with that item. Null: there is none.
    void* remove(void* item);
    void* remove(long index);   ///< Removes the node at an index and returns its item.
    /// Removes every node.
    void clear();

    long size() const { return _count; }   ///< The number of items.

private:
    LmSPGenericNode* nearest(long& index) const;

    long _count = 0;
    long _cachedIndex = 0;
    LmSPGenericNode* _head = nullptr;
    LmSPGenericNode* _tail = nullptr;
    LmSPGenericNode* _cached = nullptr;   // the node at _cachedIndex; null in an empty list
};
