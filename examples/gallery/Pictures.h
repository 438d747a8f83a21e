// Pictures.h: a picture of every page, for people to look at.
#pragma once

#include "GalleryWindow.h"

#include <string>

/// Chooses page after page and writes each, with the window manager's frame, to <folder>/<page>.png through ImageMagick's
/// import. Returns 0, or 1 when a picture could not be written.
int writePictures(GalleryWindow& window, const std::string& folder);
