// Pictures.h: pictures of the window, for people to look at.
#pragma once

#include "DiskWindow.h"

#include <string>

/// Waits for the scan and writes the window at its own size (diskview.png), small (small.png), large (large.png) and with the
/// preferences (preferences.png) to the folder, through ImageMagick's import. Returns 0, or 1 when one could not be written.
int writePictures(DiskWindow& window, const std::string& folder);
