// LmGang: two scales and a toggle that couples them.
#pragma once

#include "LmComponent.h"
#include "LmGangedGroup.h"

#include <memory>

/// Two scales side by side below their labels, and below them a toggle: while it is on, each scale follows the other.
///
///   Widgets    XmSpringBox of the component's name (base widget): grid (XmGrid) with leftScale and rightScale (XmScale, with
///              eleven label gadgets "dash" as ticks each), leftLabel and rightLabel (label gadgets); gangToggle
///              (XmToggleButton)
///   Resources  labelString of leftLabel "Left", rightLabel "Right", gangToggle "Gang", dash "-"
///   Errors     none
class LM_API LmGang : public LmComponent {
public:
    LmGang(const char* name, Widget parent);   ///< Two scales that are not coupled.

    const char* className() override { return "LmGang"; }
    /// The toggle `w` changed; the call data is its XmToggleButtonCallbackStruct. Couples the scales, or not.
    virtual void gang(Widget w, void* callData);
    void widgetDestroyed() override;

    /// Null once they are destroyed.
    Widget leftScale() const { return _leftScale; }
    Widget rightScale() const { return _rightScale; }   ///< Null once it is destroyed.
    /// Whether the scales are coupled.
    bool isGanged() const { return _group != nullptr; }

private:
    void makeGrid();
    Widget makeScale(const char* name, int column);
    Widget makeLabel(const char* name, int column);
    static void toggleChanged(Widget w, XtPointer clientData, XtPointer callData) noexcept;

    std::unique_ptr<LmGangedGroup> _group;   // while coupled
    Widget _gangToggle = nullptr, _grid = nullptr;
    Widget _leftLabel = nullptr, _rightLabel = nullptr, _leftScale = nullptr, _rightScale = nullptr;
};
