// LmOverview: a small window with the overview of a graph.
#pragma once

#include "LmWindow.h"

/// A window that shows the whole of a graph scaled down, with a menu to scale it to fit, show its arcs and close it.
/// Closing, by the menu or the window manager, hides the window; the graph is not owned and may be destroyed first.
///
///   Widgets    as LmWindow; "overview" (XmDrawingArea, the view); the menu pane "overview_main_menu" with the toggles
///              "skewOverviewScale" and "showOverviewArcs", a separator and the action "close"
///   Resources  of the graph: "skewOverviewScale" and "showOverviewArcs", Boolean. The toggles set them; the first one
///              starts as the graph has it, the second one on
///   Errors     none; for a null graph, or one without the resources, the toggles do nothing
class LM_API LmOverview : public LmWindow {
public:
    /// The graph is one of xmGraphWidgetClass, or any other widget with children.
    LmOverview(const char* name, Widget graph);
    ~LmOverview() override;

    const char* className() override { return "LmOverview"; }
    Widget setUpInterface(Widget parent) override;
    /// Hides the window.
    void handleWmDeleteMessage() override;

    /// The graph; null once it is destroyed.
    Widget graph() const { return _graph; }

    /// The menu's callbacks, with the window as client data; those of the toggles with XmToggleButtonCallbackStruct.
    static void skewOverviewScaleCallback(Widget w, XtPointer clientData, XtPointer callData) noexcept;
    /// Has the overview show the graph's arcs, or not.
    static void showOverviewArcsCallback(Widget w, XtPointer clientData, XtPointer callData) noexcept;
    static void closeOverviewCallback(Widget w, XtPointer clientData, XtPointer callData) noexcept;   ///< Hides the window.

protected:
    static String _resources[];   ///< The labels and mnemonics of the menu.

private:
    void graphDestroyed() { _graph = nullptr; }

    Widget _graph;
};
