// Preferences.h: what the user may choose.
#pragma once

#include "SizeOutline.h"

#include <Lm/LmPrefDialog.h>
#include <Lm/LmPrefGroup.h>
#include <Lm/LmPrefOption.h>
#include <Lm/LmPrefText.h>

/// The items of the sheet: made before the dialog, which registers with the sheet.
class PreferenceItems {
protected:
    LmPrefOption _measure{"prefMeasure", 2};
    LmPrefOption _units{"prefUnits", 3};
    LmPrefText _threshold{"prefThreshold", 12};
    LmPrefGroup _sheet{"prefSheet", false, true};
};

/// The sheet. Its values start as the resources of the application say.
///
///   Resources  "measure" "Measure" String apparent, or allocated; "units" "Units" String decimal, binary, or bytes;
///              "markAbove" "MarkAbove" String 100 MB
class Preferences : PreferenceItems, public LmPrefDialog {
public:
    Preferences();

    /// What is on the sheet, committed. A threshold that is no size is replaced by the last one.
    Look look();

private:
    std::int64_t _markAbove = 0;
};
