#include "LmModified.h"

#include <cstring>

static lm::CString copyOf(const char* text) { return lm::CString(strdup(text ? text : "")); }

static bool isBlank(const char* text) { return *text == '\0' || std::strcmp(text, " ") == 0; }

LmModified::LmModified(Boolean blankIsValue) : _blankIsValue(blankIsValue) {}

void LmModified::setModified(Boolean m) { _modified = m; }

void LmModified::toggleDisplay() { _showingCurrent = !_showingCurrent; }

void LmModified::updateModified()
{
    const char* previous = _previousValue.get();
    const char* current = _value ? _value.get() : "";
    if (!previous || (!_blankIsValue && (isBlank(previous) || isBlank(current))))
        setModified(False);
    else
        setModified(std::strcmp(previous, current) != 0);
}

void LmModified::setValue(const char* v)
{
    lm::CString copy = copyOf(v);   // first of all: it may be one of ours
    if (!_previousFixed)
        _previousValue = std::move(_value);
    _value = std::move(copy);
    const lm::Watch here(liveness());
    if (!_showingCurrent)
        toggleDisplay();   // which may run user code
    if (here)
        updateModified();
}

void LmModified::fixPreviousValue(char* v, Boolean alsoCurrent)
{
    _previousFixed = True;
    const lm::CString old = std::exchange(_previousValue, copyOf(v));   // v may be the old one
    if (_value && !alsoCurrent)
        updateModified();
    else
        setValue(v);
}
