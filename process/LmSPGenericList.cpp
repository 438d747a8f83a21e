#include "LmSPGenericList.h"

LmSPGenericNode::LmSPGenericNode(void* item, LmSPGenericNode* previous, LmSPGenericNode* next)
    : _previous(previous),
      _next(next),
      _item(item)
{
    if (_previous)
        _previous->_next = this;
    if (_next)
        _next->_previous = this;
}

LmSPGenericNode::~LmSPGenericNode()
{
    if (_previous)
        _previous->_next = _next;
    if (_next)
        _next->_previous = _previous;
}

void LmSPGenericList::append(void* item)
{
    _tail = new LmSPGenericNode(item, _tail, nullptr);
    if (!_head)
        _head = _tail;
    _cachedIndex = _count++;
    _cached = _tail;
}

void LmSPGenericList::prepend(void* item)
{
    _head = new LmSPGenericNode(item, nullptr, _head);
    if (!_tail)
        _tail = _head;
    ++_count;
    _cachedIndex = 0;
    _cached = _head;
}

void LmSPGenericList::insertAt(long index, void* item)
{
    if (index < 0 || index > _count)
        return;
    if (index == 0) {
        prepend(item);
        return;
    }
    if (index == _count) {
        append(item);
        return;
    }
    LmSPGenericNode* before = findNode(index - 1);
    _cached = new LmSPGenericNode(item, before, before->next());
    _cachedIndex = index;
    ++_count;
}

void* LmSPGenericList::findItem(long index)
{
    const LmSPGenericNode* node = findNode(index);
    return node ? node->item() : nullptr;
}

/// The node to start from on the way to `index`, which becomes the number of steps from there, negative towards the head.
LmSPGenericNode* LmSPGenericList::nearest(long& index) const
{
    const long fromCached = index - _cachedIndex;
    const long fromTail = index - (_count - 1);
    if (fromCached < 0 && index < -fromCached)
        return _head;
    if (fromCached <= 0 || fromCached < -fromTail) {
        index = fromCached;
        return _cached;
    }
    index = fromTail;
    return _tail;
}

LmSPGenericNode* LmSPGenericList::findNode(long index)
{
    if (index < 0 || index >= _count)
        return nullptr;
    long steps = index;
    LmSPGenericNode* node = nearest(steps);
    for (; steps > 0; --steps)
        node = node->next();
    for (; steps < 0; ++steps)
        node = node->previous();
    _cached = node;
    _cachedIndex = index;
    return node;
}

void* LmSPGenericList::remove(LmSPGenericNode* node)
{
    if (!node)
        return nullptr;
    void* item = node->item();
    if (node == _head)
        _head = node->next();
    if (node == _tail)
        _tail = node->previous();
    --_count;
    _cachedIndex = 0;
    _cached = _head;
    delete node;
    return item;
}

void* LmSPGenericList::remove(void* item)
{
    for (LmSPGenericNode* node = _head; node; node = node->next()) {
        if (node->item() == item)
            return remove(node);
    }
    return nullptr;
}

void* LmSPGenericList::remove(long index) { return remove(findNode(index)); }

void LmSPGenericList::clear()
{
    while (_head)
        remove(_head);
}
