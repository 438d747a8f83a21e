#include "MenuPage.h"

#include <Lm/LmMenuToggle.h>
#include <Lm/LmMenuUndoManager.h>

#include <Xm/DrawingA.h>
#include <Xm/Form.h>
#include <Xm/Frame.h>
#include <Xm/ToggleBG.h>

#include <algorithm>
#include <cstring>
#include <iterator>

/// The colours, under their names of the X server, which are the names of the menu items too.
static constexpr const char* colourNames[] = {"White", "Gold", "SkyBlue", "PaleGreen", "Tomato"};

MenuPage::MenuPage(Widget parent) : Page("menuPage", parent)
{
    // clang-format off
    LmMenuDesc colourTable[] = {
        {MENU_ACTION, colourNames[0], pickColour},
        {MENU_ACTION, colourNames[1], pickColour},
        {MENU_ACTION, colourNames[2], pickColour},
        {MENU_ACTION, colourNames[3], pickColour},
        {MENU_ACTION, colourNames[4], pickColour},
        {MENU_END}};
    LmMenuDesc popupTable[] = {
        {MENU_LABEL, "sheetTitle"},
        {MENU_SEPARATOR},
        {MENU_SUBMENU, "sheetColour", nullptr, colourTable},
        {MENU_TOGGLE, "sheetFrame", toggleFrame},
        {MENU_SEPARATOR},
        {MENU_CONFIRM_FIRST_ACTION, "sheetWipe", wipe},
        {MENU_END}};
    // clang-format on
    Widget column = row::down("column", body());
    _colours = std::make_unique<LmOptionMenu>(column, "colours", colourTable, this);
    row::label("sheetHint", column);
    _frame = XtVaCreateManagedWidget("sheetBorder", xmFrameWidgetClass, column, XmNshadowThickness, 4, XmNshadowType,
                                     XmSHADOW_ETCHED_IN, nullptr);
    _sheet = XtVaCreateManagedWidget("sheet", xmDrawingAreaWidgetClass, _frame, XmNwidth, 420, XmNheight, 220, XmNresizePolicy,
                                     XmRESIZE_NONE, nullptr);
    _popup = std::make_unique<LmPopupMenu>(_sheet, "sheetMenu", popupTable, this);
    static_cast<LmMenuToggle*>(_popup->findNamedItem("sheetFrame", false, true))->setVisualState(true);
    paint(0);
}

MenuPage::~MenuPage() { getTheUndoManager()->reset(); }

void MenuPage::paint(int colour)
{
    _colour = colour;
    _colours->set(colour);
    const char* name = colourNames[colour];
    XtVaSetValues(_sheet, XtVaTypedArg, XmNbackground, XtRString, name, static_cast<int>(std::strlen(name)) + 1, nullptr);
}

void MenuPage::setFramed(bool framed)
{
    XtVaSetValues(_frame, XmNshadowThickness, framed ? 4 : 0, nullptr);
    static_cast<LmMenuToggle*>(_popup->findNamedItem("sheetFrame", false, true))->setVisualState(framed);
}

void MenuPage::pickColour(Widget item, XtPointer page, XtPointer) noexcept
{
    auto* self = static_cast<MenuPage*>(page);
    const auto* name = std::find_if(std::begin(colourNames), std::end(colourNames),
                                    [item](const char* colour) { return std::strcmp(colour, XtName(item)) == 0; });
    self->_earlier.push_back(self->_colour);
    self->paint(static_cast<int>(name - colourNames));
    getTheUndoManager()->add(*name, undoColour, self);
}

void MenuPage::undoColour(Widget, XtPointer page, XtPointer) noexcept
{
    auto* self = static_cast<MenuPage*>(page);
    self->paint(self->_earlier.back());
    self->_earlier.pop_back();
}

void MenuPage::toggleFrame(Widget item, XtPointer page, XtPointer) noexcept
{
    static_cast<MenuPage*>(page)->setFramed(XmToggleButtonGadgetGetState(item));
}

void MenuPage::wipe(Widget, XtPointer page, XtPointer) noexcept
{
    auto* self = static_cast<MenuPage*>(page);
    getTheUndoManager()->reset();
    self->_earlier.clear();
    self->paint(0);
}
