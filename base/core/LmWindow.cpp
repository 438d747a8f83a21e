#include "LmWindow.h"

#include "LmMenuBar.h"
#include "LmSubMenu.h"

#include <Xm/MainW.h>

LmWindow::~LmWindow()
{
    if (isComponent(_menuBar))
        delete _menuBar;
}

void LmWindow::show()
{
    if (_menuBar && !_menuBar->baseWidget())
        attachMenuBar();
    LmSimpleWindow::show();
}

Widget LmWindow::setUpInterface(Widget) { return nullptr; }

void LmWindow::setMenuBar(LmMenuBar* bar)
{
    _menuBar = bar;
    if (!bar)
        return;
    bar->_ownerWindow = this;
    if (buildingInterface() || (mainWindowWidget() && XtIsRealized(mainWindowWidget())))
        attachMenuBar();
}

void LmWindow::setMenuBar(LmMenuDesc* desc) { setMenuBar(new LmMenuBar("menuBar", desc, this, true)); }

void LmWindow::attachMenuBar()
{
    Widget mainWindow = mainWindowWidget();
    if (!mainWindow)
        return;
    _menuBar->build(mainWindow);
    XtVaSetValues(mainWindow, XmNmenuBar, _menuBar->baseWidget(), nullptr);
    _menuBar->show();
}

LmMenuBar* LmWindow::menuBarForPanes()
{
    if (!_menuBar)
        setMenuBar(static_cast<LmMenuDesc*>(nullptr));
    return _menuBar;
}

LmSubMenu* LmWindow::addMenuPane(const char* name) { return addMenuPane(name, nullptr); }

LmSubMenu* LmWindow::addMenuPane(const char* name, LmMenuDesc* desc)
{
    return menuBarForPanes()->addSubmenu(name, desc, this, -1);
}

LmRadioSubMenu* LmWindow::addRadioMenuPane(const char* name) { return addRadioMenuPane(name, nullptr); }

LmRadioSubMenu* LmWindow::addRadioMenuPane(const char* name, LmMenuDesc* desc)
{
    return menuBarForPanes()->addRadioSubmenu(name, desc, this);
}
