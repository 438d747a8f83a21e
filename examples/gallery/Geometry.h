// Geometry.h: where the gallery's window was the last time.
#pragma once

#include <Lm/LmSimpleWindow.h>

/// Makes the place and size that the window had the last time the default of its "geometry", unless the user chose one.
void recallGeometry();

/// Keeps place and size of the window for the next time, in the user's folder of configurations. A failure is reported on
/// standard error.
void rememberGeometry(LmSimpleWindow& window);
