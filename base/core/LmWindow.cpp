#include "LmWindow.h"

void LmWindow::show() { LmSimpleWindow::show(); }

Widget LmWindow::setUpInterface(Widget) { return nullptr; }
