// LmModified: is a value another than it was?
#pragma once

#include "LmCallbackObject.h"
#include "support/handles.h"

#include <X11/Intrinsic.h>

/// A current value and a previous one to compare it with, both texts. Without a fixed reference the previous value is the
/// one before the last setValue().
///
///   Errors     none; a null value counts as empty
class LM_API LmModified : public LmCallbackObject {
public:
    /// `blankIsValue` False: an empty value, or a single space, on either side never counts as modified.
    explicit LmModified(Boolean blankIsValue);

    /// Called whenever the state was computed anew, also when it is the same. Stores it.
    virtual void setModified(Boolean m);
    /// Shows the previous value instead of the current one, or the current one again.
    virtual void toggleDisplay();
    /// Records a new current value, of which a copy is kept, and shows the current value.
    virtual void setValue(const char* v);
    /// Fixes the value to compare with from now on. `alsoCurrent`, or when there is no current value: it becomes that, too.
    virtual void fixPreviousValue(char* v, Boolean alsoCurrent);
    /// Computes the state and calls setModified().
    void updateModified();

    Boolean isModified() const { return _modified; }   ///< The state that setModified() stored.
    /// True while the current value is shown, False while the previous one is.
    Boolean isShowingCurrent() const { return _showingCurrent; }
    /// The current value, which the object keeps; null when there is none.
    const char* currentValue() const { return _value.get(); }
    /// The value to compare with, which the object keeps; null when there is none.
    const char* previousValue() const { return _previousValue.get(); }

protected:
    Boolean _modified = False;        ///< what isModified() answers
    Boolean _showingCurrent = True;   ///< what isShowingCurrent() answers
    Dimension _width = 10;            ///< of the indicator, in pixels
    Dimension _height = 10;           ///< of the indicator, in pixels
    lm::CString _value;               ///< what currentValue() answers
    lm::CString _previousValue;       ///< what previousValue() answers
    Boolean _blankIsValue;            ///< as constructed
    Boolean _previousFixed = False;   ///< whether fixPreviousValue() fixed the reference
};
