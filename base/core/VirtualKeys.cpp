#include "VirtualKeys.h"

#include "VirtualBinding.h"
#include "support/handles.h"

#include <X11/Xatom.h>
#include <Xm/DisplayP.h>
#include <Xm/VirtKeysP.h>

#include <algorithm>
#include <cstring>
#include <vector>

extern "C" {
/// Motif's search for the bindings of this keyboard: ~/.motifbind, the vendor's file, its built-in tables. It leaves what
/// it finds on the root window for the next program. Exported, but not declared; weak, so that we load without it.
int _XmVirtKeysLoadFallbackBindings(Display*, String*) __attribute__((weak));
}

namespace lm {

namespace {

struct VirtualKey {
    const char* name;
    KeySym keysym;
};

// Motif's order. It counts: the first entry of the table that fits a key wins.
constexpr VirtualKey virtualKeys[] = {
    {"osfActivate", osfXK_Activate},
    {"osfAddMode", osfXK_AddMode},
    {"osfBackSpace", osfXK_BackSpace},
    {"osfBackTab", osfXK_BackTab},
    {"osfBeginData", osfXK_BeginData},
    {"osfBeginLine", osfXK_BeginLine},
    {"osfCancel", osfXK_Cancel},
    {"osfClear", osfXK_Clear},
    {"osfCopy", osfXK_Copy},
    {"osfCut", osfXK_Cut},
    {"osfDelete", osfXK_Delete},
    {"osfDeselectAll", osfXK_DeselectAll},
    {"osfDown", osfXK_Down},
    {"osfEndData", osfXK_EndData},
    {"osfEndLine", osfXK_EndLine},
    {"osfEscape", osfXK_Escape},
    {"osfExtend", osfXK_Extend},
    {"osfHelp", osfXK_Help},
    {"osfInsert", osfXK_Insert},
    {"osfLeft", osfXK_Left},
    {"osfLeftLine", osfXK_LeftLine},
    {"osfMenu", osfXK_Menu},
    {"osfMenuBar", osfXK_MenuBar},
    {"osfNext", osfXK_Next},
    {"osfNextField", osfXK_NextField},
    {"osfNextMenu", osfXK_NextMenu},
    {"osfNextMinor", osfXK_NextMinor},
    {"osfPageDown", osfXK_PageDown},
    {"osfPageLeft", osfXK_PageLeft},
    {"osfPageRight", osfXK_PageRight},
    {"osfPageUp", osfXK_PageUp},
    {"osfPaste", osfXK_Paste},
    {"osfPrevField", osfXK_PrevField},
    {"osfPrevMenu", osfXK_PrevMenu},
    {"osfPrimaryPaste", osfXK_PrimaryPaste},
    {"osfPrior", osfXK_Prior},
    {"osfPriorMinor", osfXK_PriorMinor},
    {"osfQuickPaste", osfXK_QuickPaste},
    {"osfReselect", osfXK_Reselect},
    {"osfRestore", osfXK_Restore},
    {"osfRight", osfXK_Right},
    {"osfRightLine", osfXK_RightLine},
    {"osfSelect", osfXK_Select},
    {"osfSelectAll", osfXK_SelectAll},
    {"osfSwitchDirection", osfXK_SwitchDirection},
    {"osfUndo", osfXK_Undo},
    {"osfUp", osfXK_Up},
};

/// The text of a root window property that xmbind, mwm or an earlier Motif program left.
std::optional<std::string> rootProperty(Display* display, const char* name)
{
    constexpr long most = 1000000;   // as Motif; in units of 4 bytes
    Atom type = None;
    int format = 0;
    unsigned long length = 0, rest = 0;
    unsigned char* bytes = nullptr;
    XGetWindowProperty(display, RootWindow(display, 0), XInternAtom(display, name, False), 0, most, False, XA_STRING, &type,
                       &format, &length, &rest, &bytes);
    const XString text(reinterpret_cast<char*>(bytes));
    if (type != XA_STRING || format != 8 || length == 0)
        return std::nullopt;
    return std::string(text.get());   // Xlib ends it with a NUL of its own
}

std::optional<std::string> fallbackBindings(Display* display)
{
    if (!_XmVirtKeysLoadFallbackBindings)
        return std::nullopt;
    String found = nullptr;
    _XmVirtKeysLoadFallbackBindings(display, &found);
    const XtString text(found);
    return text ? std::optional<std::string>(text.get()) : std::nullopt;
}

std::optional<std::string> bindingsText(Display* display)
{
    for (const char* name : {"_MOTIF_BINDINGS", "_MOTIF_DEFAULT_BINDINGS"})
        if (auto text = rootProperty(display, name))
            return text;
    return fallbackBindings(display);
}

/// The modifier that the symbol itself implies: Shift when it stands in the second column of the key, and so on.
Modifiers impliedModifier(Display* display, KeyCode code, KeySym keysym)
{
    KeyCode first = 0;
    int width = 0;
    const KeySym* table = XtGetKeysymTable(display, &first, &width);
    if (code < first)
        return 0;   // the keyboard lacks the symbol: its code is 0
    const KeySym* columns = table + (code - first) * width;
    const auto column = std::find(columns, columns + width, keysym) - columns;
    return column == 0 || column == width ? 0 : Modifiers{1} << (column - 1);
}

/// The entry Motif would make: the symbol that the key really gives when all the modifiers are held.
XmVKeyBindingRec entry(Display* display, const KeyBinding& key, KeySym virtualKey)
{
    const KeyCode code = XKeysymToKeycode(display, key.keysym);
    const Modifiers held = key.modifiers | impliedModifier(display, code, key.keysym);
    Modifiers used = 0;
    KeySym given = key.keysym;
    XtTranslateKey(display, code, held, &used, &given);
    return {given, key.modifiers, virtualKey};
}

/// Motif's own conversion of a binding: one round trip for each key, but it knows the whole syntax and the warnings.
std::vector<XmVKeyBindingRec> convertedByMotif(Widget xmDisplay, XrmValue text, KeySym virtualKey)
{
    XrmValue converted = {};
    if (!XtConvertAndStore(xmDisplay, XmRString, &text, XmRVirtualBinding, &converted))
        return {};
    const auto* keys = reinterpret_cast<const XmKeyBindingRec*>(converted.addr);
    std::vector<XmVKeyBindingRec> entries;
    for (size_t i = 0; i < converted.size / sizeof *keys; ++i)
        entries.push_back({keys[i].keysym, keys[i].modifiers, virtualKey});
    return entries;
}

std::vector<XmVKeyBindingRec> entriesOf(Widget xmDisplay, XrmValue text, KeySym virtualKey)
{
    const auto keys = parseVirtualBinding(text.addr);
    if (!keys)
        return convertedByMotif(xmDisplay, text, virtualKey);
    std::vector<XmVKeyBindingRec> entries;
    for (const KeyBinding& key : *keys)
        entries.push_back(entry(XtDisplayOfObject(xmDisplay), key, virtualKey));
    return entries;
}

std::vector<XmVKeyBindingRec> tableOf(Widget xmDisplay, const std::string& text)
{
    const XrmOwner bindings(XrmGetStringDatabase(text.c_str()));
    std::vector<XmVKeyBindingRec> table;
    for (const VirtualKey& key : virtualKeys) {
        char* type = nullptr;
        XrmValue value = {};
        if (!XrmGetResource(bindings.get(), key.name, XmRVirtualBinding, &type, &value))
            continue;
        const auto entries = entriesOf(xmDisplay, value, key.keysym);
        table.insert(table.end(), entries.begin(), entries.end());
    }
    return table;
}

constexpr auto resourceName = "defaultVirtualBindings";

}   // namespace

std::optional<std::string> postponeVirtualKeys(Display* display, const Program& program)
{
    // On Sun's own server Motif makes an exception for one keyboard's Enter key; we leave that to it.
    if (isSet(display, program, resourceName, "DefaultVirtualBindings") ||
        std::strcmp(ServerVendor(display), "Sun Microsystems, Inc.") == 0)
        return std::nullopt;
    auto text = bindingsText(display);
    if (text)
        putDefault(display, program, resourceName, "");
    return text;
}

void fillVirtualKeys(Widget xmDisplay, const Program& program, const std::string& text)
{
    XmDisplayPart& part = reinterpret_cast<XmDisplayRec*>(xmDisplay)->display;
    if (part.num_bindings != 0)
        return;
    putDefault(XtDisplayOfObject(xmDisplay), program, resourceName, text);   // an empty value would be a lie to whoever dumps it

    const std::vector<XmVKeyBindingRec> table = tableOf(xmDisplay, text);
    if (table.empty())
        return;
    const size_t bytes = table.size() * sizeof table.front();
    part.bindings = reinterpret_cast<XmVKeyBinding>(XtMalloc(static_cast<Cardinal>(bytes)));   // XmDisplay frees it
    std::memcpy(part.bindings, table.data(), bytes);
    part.num_bindings = static_cast<Cardinal>(table.size());
}

}   // namespace lm
