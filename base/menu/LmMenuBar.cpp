#include "LmMenuBar.h"

#include "LmHelpPane.h"
#include "support/resources.h"

#include <Xm/RowColumn.h>

LmMenuBar::LmMenuBar(bool showHelpPane) : LmMenuBar("menuBar", showHelpPane) {}

LmMenuBar::LmMenuBar(const char* name, bool showHelpPane) : LmMenu(name), _showHelpPane(showHelpPane) {}

LmMenuBar::LmMenuBar(const LmMenuDesc* desc, XtPointer defaultClientData, bool showHelpPane)
    : LmMenuBar("menuBar", desc, defaultClientData, showHelpPane)
{}

LmMenuBar::LmMenuBar(const char* name, const LmMenuDesc* desc, XtPointer defaultClientData, bool showHelpPane)
    : LmMenu(name, desc, defaultClientData),
      _showHelpPane(showHelpPane)
{}

LmMenuBar::~LmMenuBar() { dropWidget(); }

void LmMenuBar::addHelpPane()
{
    _helpPane = new LmHelpPane("helpMenu", nullptr, nullptr);
    add(_helpPane);
}

void LmMenuBar::build(Widget parent)
{
    if (!_helpPane && _showHelpPane)
        addHelpPane();
    if (!_isBuilt) {
        _isBuilt = true;
        Arg args[] = {{lm::xtText(XmNnumColumns), 1}};
        _baseWidget = XmCreateMenuBar(parent, lm::xtText(LmComponent::name()), args, 1);
        installDestroyHandler();
        applySensitivity();
    }
    LmMenu::build(_baseWidget);
}
