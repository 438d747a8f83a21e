// MenuPage.h: an option menu and a popup menu that colour a sheet; what they do can be undone from the menu bar.
#pragma once

#include "Page.h"

#include <Lm/LmOptionMenu.h>
#include <Lm/LmPopupMenu.h>

#include <memory>
#include <vector>

class MenuPage : public Page {
public:
    explicit MenuPage(Widget parent);
    ~MenuPage() override;

    const char* className() override { return "MenuPage"; }
    /// Frames the sheet, or not.
    void setFramed(bool framed);

private:
    static void pickColour(Widget item, XtPointer page, XtPointer) noexcept;
    static void undoColour(Widget, XtPointer page, XtPointer) noexcept;
    static void toggleFrame(Widget item, XtPointer page, XtPointer) noexcept;
    static void wipe(Widget, XtPointer page, XtPointer) noexcept;
    void paint(int colour);

    std::unique_ptr<LmOptionMenu> _colours;
    std::unique_ptr<LmPopupMenu> _popup;
    Widget _frame, _sheet;
    int _colour = 0;
    std::vector<int> _earlier;   // the colours before, newest last
};
