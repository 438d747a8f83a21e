#include "StartUp.h"

#include "DropSites.h"
#include "ResourceDefaults.h"
#include "VirtualKeys.h"
#include "support/resources.h"

#include <Xm/Display.h>
#include <Xm/Xm.h>

#include <iterator>

namespace lm {

namespace {

/// Xlib remembers 64 atoms, then it forgets old ones; Xt has used two, so this list is full. The first part is what
/// XmDisplay interns in one request of its own: leave one out, and that request goes to the server again. Nothing worse
/// happens when the list grows old. An atom that somebody interns only if it exists has no place here:
/// for its existence means something to him.
// clang-format off
constexpr const char* atomNames[] = {
    "Customize Data:0", "ATOM_PAIR", "AVERAGE_WIDTH", "PIXEL_SIZE", "RESOLUTION_Y", "WM_DELETE_WINDOW", "_MOTIF_DRAG_ATOMS",
    "_MOTIF_DRAG_INITIATOR_INFO", "_MOTIF_DRAG_PROXY_WINDOW", "_MOTIF_DRAG_RECEIVER_INFO", "_MOTIF_DRAG_TARGETS",
    "_MOTIF_DRAG_WINDOW", "CLIPBOARD", "CLIP_TEMPORARY", "COMPOUND_TEXT", "DELETE", "INCR", "INSERT_SELECTION", "LENGTH",
    "LINK_SELECTION", "MULTIPLE", "NULL", "TARGETS", "TEXT", "TIMESTAMP", "TRANSFER_FAILURE", "TRANSFER_SUCCESS", "WM_STATE",
    "_MOTIF_ATOM_0", "_MOTIF_CLIP_DATA_DELETE", "_MOTIF_CLIP_DATA_REQUEST", "_MOTIF_CLIP_HEADER",
    "_MOTIF_CLIP_LOCK_ACCESS_VALID", "_MOTIF_CLIP_MESSAGE", "_MOTIF_CLIP_NEXT_ID", "_MOTIF_CLIP_TIME",
    "_MOTIF_CLIPBOARD_TARGETS", "_MOTIF_DESTINATION", "_MOTIF_DRAG_OFFSET", "_MOTIF_DEFERRED_CLIPBOARD_TARGETS",
    "_MOTIF_DROP", "_MOTIF_EXPORT_TARGETS", "_MOTIF_LOSE_SELECTION", "_MOTIF_BINDINGS", "_MOTIF_WM_HINTS", "_MOTIF_WM_INFO",
    "_MOTIF_WM_MENU", "_MOTIF_WM_MESSAGES", "_MOTIF_WM_OFFSET", "WM_PROTOCOLS",

    "_MOTIF_DEFAULT_BINDINGS",                            // virtual keys
    "WM_LOCALE_NAME", "WM_CLIENT_LEADER",                 // Xt, for every application shell
    "UTF8_STRING", "UTF-8",                               // text widgets: the locale's encoding
    "CHARSET_REGISTRY", "ISO8859",                        // the first string drawn in a core font
    "_WM_QUIT_APP",                                       // our windows' protocols
    "_NET_WM_NAME", "_NET_WM_ICON_NAME", "_NET_WM_PID",   // our windows' properties
};
// clang-format on

void internAtoms(Display* display)
{
    char* names[std::size(atomNames)];
    for (size_t i = 0; i < std::size(atomNames); ++i)
        names[i] = xtText(atomNames[i]);
    Atom atoms[std::size(atomNames)];
    XInternAtoms(display, names, static_cast<int>(std::size(names)), False, atoms);
}

/// Motif shares its palette with the desktop where a CDE session runs. Elsewhere the search finds nothing.
void doWithoutPaletteServer(Display* display, const Program& program)
{
    if (!isSet(display, program, "useColorObj", "UseColorObj"))
        putDefault(display, program, "useColorObj", "False");
}

/// May its private records be read? Debian's Motif has not changed since 2017, but another machine's may be another.
bool motifIsTheOneWeKnow() { return xmUseVersion == XmVersion; }

}   // namespace

void prepareDisplay(Display* display)
{
    const Program program = programOf(display);
    internAtoms(display);
    doWithoutPaletteServer(display, program);
    if (motifIsTheOneWeKnow()) {
        const auto keys = postponeVirtualKeys(display, program);
        Widget xmDisplay = XmGetXmDisplay(display);
        if (keys)
            fillVirtualKeys(xmDisplay, program, *keys);
        useQuietDropSites(xmDisplay);
    }
    useColorArithmetic(display);
}

}   // namespace lm
