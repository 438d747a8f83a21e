// PreferencePage.h: a preference dialog that changes how the gallery behaves.
#pragma once

#include "Page.h"

#include <Lm/LmPrefCustom.h>
#include <Lm/LmPrefDialog.h>
#include <Lm/LmPrefEmpty.h>
#include <Lm/LmPrefGroup.h>
#include <Lm/LmPrefLabel.h>
#include <Lm/LmPrefList.h>
#include <Lm/LmPrefOption.h>
#include <Lm/LmPrefRadio.h>
#include <Lm/LmPrefSeparator.h>
#include <Lm/LmPrefText.h>
#include <Lm/LmPrefToggle.h>
#include <Lm/LmSimpleWindow.h>

/// What the dialog shows; a base class, since the dialog's constructor already uses it.
struct GallerySheet {
    LmPrefList sheet{"prefSheet"};
};

/// The sheet, with its items: what the user may choose.
class GalleryPreferences : private GallerySheet, public LmPrefDialog {
public:
    GalleryPreferences();

    Widget createDialog(Widget parent) override;

    LmPrefText title{"prefTitle", 24};
    LmPrefOption heads{"prefHeads", 3};                 // the colour of page heads
    LmPrefToggle askAtClose{"prefAskAtClose", false};   // ask before the window closes
    LmPrefToggle showTexts{"prefShowTexts", false};     // the explanation below each page's head
    LmPrefToggle plainBusy{"prefPlainBusy", false};     // which dialog shows what busy work does
    LmPrefToggle stoppableBusy{"prefStoppableBusy", false};
    LmPrefText author{"prefAuthor", 16};

private:
    LmPrefLabel _text{"prefText"};
    LmPrefSeparator _line{"prefLine"};
    LmPrefEmpty _gap;
    LmPrefCustom _custom{"prefCustom"};
    LmPrefGroup _toggles{"prefToggles", true, false};
    LmPrefRadio _busy{"prefBusy", true, false};
    LmPrefGroup _person{"prefPerson", false, true};
    LmPrefGroup _general{"prefGeneral", false, true};
};

class PreferencePage : public Page {
public:
    PreferencePage(Widget parent, LmSimpleWindow* window);

    const char* className() override { return "PreferencePage"; }
    /// Whether the window may close: asks, when the user wants that.
    bool mayClose();

private:
    void post();
    void preferencesChosen(LmCallbackObject* dialog, void* clientData, void* reason);
    void dressPages();

    LmSimpleWindow* _window;
    Widget _state;
    GalleryPreferences _preferences;
};
