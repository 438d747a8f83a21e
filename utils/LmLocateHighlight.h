// LmLocateHighlight: buttons that light up under the pointer.
#pragma once

#include "support/LmExport.h"

/// Lets every sensitive push button and arrow button of the application (widgets, not gadgets) light up while the pointer is
/// over it. LmApp::run() calls it when the resource "locateHighlight" asks for it; a second call does nothing.
///
///   Resources  of the application: "buttonBackground" "buttonBackground" Pixel white: the colour that the pointer
///              leaves behind, so it has to be the one that buttons have
///              "buttonHighlight" "buttonHighlight" Pixel: the colour under the pointer; default 60 percent of the way
///              from buttonBackground to the top shadow that Motif derives from it
///   Errors     where that colour cannot be allocated, the top shadow itself serves
LM_API void LmSetupLocateHighlight();
