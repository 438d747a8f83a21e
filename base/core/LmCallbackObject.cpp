#include "LmCallbackObject.h"

#include "LmCallbackList.h"

#include <utility>

const char* const LmModel::updateCallback = "updateCallback";

LmCallbackObject::~LmCallbackObject()
{
    for (int i = 0; _senders && i < _senders->size(); ++i) {
        if (LmCallbackList* theirs = (*_senders)[i]->_callbacks)
            theirs->remove(this);
    }
    delete std::exchange(_senders, nullptr);
    removeAllCallbacks();
}

LmCallbackList* LmCallbackObject::callbacks()
{
    if (!_callbacks)
        _callbacks = new LmCallbackList;
    return _callbacks;
}

void LmCallbackObject::addCallback(const char* name, LmCallbackFunction fn, void* clientData)
{
    if (name && fn)
        callbacks()->add(name, fn, clientData);
}

void LmCallbackObject::addCallback(const char* name, LmCallbackObject* target, LmCallbackMethod method, void* clientData)
{
    if (!name || !target || !method)
        return;
    callbacks()->add(name, target, method, clientData);
    target->registerSender(this);
}

void LmCallbackObject::removeCallback(const char* name, LmCallbackFunction fn, void* clientData)
{
    if (_callbacks)
        _callbacks->remove(name, fn, clientData);
}

void LmCallbackObject::removeCallback(const char* name, LmCallbackObject* target, LmCallbackMethod method, void* clientData)
{
    if (!_callbacks)
        return;
    for (int gone = _callbacks->remove(name, target, method, clientData); gone > 0; --gone)
        target->unregisterSender(this);
}

void LmCallbackObject::removeAllCallbacks()
{
    if (!_callbacks)
        return;
    for (int i = _callbacks->size() - 1; i >= 0; --i) {
        if (LmCallbackObject* target = (*_callbacks)[i]->target())
            target->unregisterSender(this);
    }
    delete std::exchange(_callbacks, nullptr);
}

void LmCallbackObject::removeAllCallbacks(LmCallbackObject* target)
{
    if (!_callbacks || !target)
        return;
    _callbacks->remove(target);
    target->unregisterSenders(this);
}

void LmCallbackObject::callCallbacks(const char* name, void* callData)
{
    if (_callbacks)
        _callbacks->invoke(this, name, callData);
}

int LmCallbackObject::hasCallbacks(const char* name) const { return _callbacks && _callbacks->hasCallbacks(name) ? 1 : 0; }

static void registerAt(LmCallbackObject* to, const char* name, const LmCallbackItem& item)
{
    if (item.target())
        to->addCallback(name, item.target(), item.method(), item.clientData());
    else
        to->addCallback(name, item.function(), item.clientData());
}

void LmCallbackObject::cloneCallbacks(LmCallbackObject* to)
{
    const int present = _callbacks && to ? _callbacks->size() : 0;   // not what cloning onto ourselves appends
    for (int i = 0; i < present; ++i) {
        const LmCallbackItem* item = (*_callbacks)[i];
        registerAt(to, item->name(), *item);
    }
}

void LmCallbackObject::cloneCallback(const char* name, const char* newName, LmCallbackObject* to)
{
    const int present = _callbacks && to ? _callbacks->size() : 0;
    for (int i = 0; i < present; ++i) {
        const LmCallbackItem* item = (*_callbacks)[i];
        if (item->hasName(name))
            registerAt(to, newName, *item);
    }
}

void LmCallbackObject::registerSender(LmCallbackObject* sender)
{
    if (!_senders)
        _senders = new LmCallbackObjectList;
    _senders->add(sender);
}

void LmCallbackObject::unregisterSender(LmCallbackObject* sender)
{
    if (_senders)
        _senders->removeFirst(sender);
}

void LmCallbackObject::unregisterSenders(LmCallbackObject* sender)
{
    if (_senders)
        _senders->remove(sender);
}
