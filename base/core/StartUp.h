// StartUp.h: makes a program's first window cheap over a network.
#pragma once

#include "Colors.h"

namespace lm {

/// Everything that makes the first window cheap. Call it once per display, after XtOpenDisplay and before any shell.
///
/// A plain Motif program stops about ninety times and waits for the server's answer before its first window is painted.
/// Locally nobody sees it; over a connection of 20 ms it is two seconds. Most of it is asking for what is known already,
/// so we answer first:
///
///   atoms          all that Motif, Xt and we intern at start-up, in one request; Xlib's cache then has them
///   palette        no search for the palette server of a CDE desktop, unless the resource "useColorObj" is set
///   virtual keys   from the keyboard mapping that Xt holds, not key by key (VirtualKeys.h),
///                  unless the resource "defaultVirtualBindings" is set
///   drop sites     scroll bars register no targets (DropSites.h), unless "dropSiteManagerClass" is set
///   colours        TrueColor pixels by arithmetic (Colors.h)
///
/// Each step stands alone and changes nothing that a program or its user can see, but the time. Two of them read Motif's
/// records; they are left out when the Motif we run with is not the one we were compiled for. Where a step does not
/// apply (another visual, another Motif), all works as in plain Motif, only slower. Do not add steps that ask the server.
void prepareDisplay(Display* display);

}   // namespace lm
