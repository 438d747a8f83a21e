#include "base/core/AppDefaults.h"

#include "support/resources.h"

static const String lines[] = {
    lm::xtText("-*helpMenu.labelString: Help"),
    lm::xtText("-*helpMenu.helpVersionMenuItem*labelString:      Product Information"),
    lm::xtText("-*helpMenu.helpOnContextMenuItem.labelString: Click for Help"),
    lm::xtText("-*helpMenu.helpOverviewMenuItem.labelString:  Overview"),
    lm::xtText("-*helpMenu.helpIndexMenuItem.labelString: Index"),
    lm::xtText("-*helpMenu.helpKeysMenuItem.labelString: Keys & Shortcuts"),
    lm::xtText("-*helpMenu.helpTutorialMenuItem.labelString: Tutorial"),
    lm::xtText("-*helpMenu.mnemonic: H"),
    lm::xtText("-*helpMenu.helpVersionMenuItem*mnemonic: P"),
    lm::xtText("-*helpMenu.helpOnContextMenuItem.mnemonic: C"),
    lm::xtText("-*helpMenu.helpOverviewMenuItem.mnemonic: O"),
    lm::xtText("-*helpMenu.helpIndexMenuItem.mnemonic: I"),
    lm::xtText("-*helpMenu.helpKeysMenuItem.mnemonic: K"),
    lm::xtText("-*helpMenu.helpTutorialMenuItem.mnemonic: T"),
    lm::xtText("-*helpMenu.helpOnContextMenuItem.accelerator:\t\tShift<Key>F1"),
    lm::xtText("-*helpMenu.helpOnContextMenuItem.acceleratorText:\tShift+F1"),
    lm::xtText("-*helpMenu.aboutApplication*labelString:      On Version..."),
    lm::xtText("-*helpMenu.helpOnContextMenuItemOld.labelString: On Context"),
    lm::xtText("-*helpMenu.helpOnWindowMenuItem.labelString:  On Window..."),
    lm::xtText("-*helpMenu.helpIndexMenuItemOld.labelString: Index..."),
    lm::xtText("-*helpMenu.aboutApplication*mnemonic: V"),
    lm::xtText("-*helpMenu.helpOnContextMenuItemOld.mnemonic: C"),
    lm::xtText("-*helpMenu.helpOnWindowMenuItem.mnemonic: W"),
    lm::xtText("-*helpMenu.helpIndexMenuItemOld.mnemonic: I"),
    nullptr,
};

const String* lm::applicationDefaults() { return lines; }
