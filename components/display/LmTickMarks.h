// LmTickMarks: a vertical scale with marks and numbers.
#pragma once

#include "LmComponent.h"
#include "support/handles.h"

#include <string>
#include <vector>

/// A vertical scale: small and large marks between a minimum (at the bottom) and a maximum, and numbers beside them.
///
///   Widgets    XmDrawingArea of the component's name (base widget), and in it an unmanaged XmLabel "label", whose colours
///              and fonts the scale takes
///   Resources  of the drawing area: "minimum" "Minumum" int 0, "maximum" "Maximum" int 10, "majorInterval" "MajorInterval"
///              int 5, "minorInterval" "MinorInterval" int 1, "majorSize" "MajorSize" int 10, "minorSize" "MinorSize" int 6,
///              "labelSpacing" "LabelSpacing" int 3, "marginTop" "MarginTop" int 19, "marginBottom" "MarginBottom" int 19,
///              "lineThickness" "LineThickness" int 1 (sizes and margins in pixels), "connectTicks" "ConnectTicks" Boolean
///              false, "signedLabels" "SignedLabels" Boolean false
///   Errors     none; an empty range draws no marks
class LM_API LmTickMarks : public LmComponent {
public:
    /// `ticksOnRight`: the marks are at the right edge, else at the left; `noLabels`: no numbers; `centerLabels`: the numbers are
    /// centred.
    LmTickMarks(const char* name, Widget parent, Boolean ticksOnRight, Boolean noLabels, Boolean centerLabels);
    ~LmTickMarks() override;

    const char* className() override { return "LmTickMarks"; }
    void widgetDestroyed() override;

    /// Replaces the four resources; shows the new scale.
    void setScale(int minimum, int maximum, int majorInterval, int minorInterval);
    /// Pixels above the maximum and below the minimum.
    void setMargin(int top, int bottom);
    /// Has one more value numbered, from the next drawing on.
    void addLabel(int value);
    /// Makes the widget wide enough for its numbers and marks.
    void adjustWidth();
    void draw();   ///< Draws the scale, when there is a window.

private:
    void loadResources();
    void takeLooks();
    void redraw();
    int widestLabel() const;
    std::string textOf(int value) const;
    void drawMarks(const std::vector<int>& ys, int length);
    void drawLabel(int value, int y);

    Pixel _foreground = 0, _background = 0;
    XmFontList _fontList = nullptr;   // the hidden label's
    Widget _label = nullptr;
    lm::SharedGC _gc;
    int _minimum = 0, _maximum = 10, _majorInterval = 5, _minorInterval = 1;   // resources
    int _majorSize = 10, _minorSize = 6, _labelSpacing = 3;
    int _marginTop = 19, _marginBottom = 19, _lineThickness = 1;
    Boolean _ticksOnRight, _connectTicks = False, _noLabels, _centerLabels, _signedLabels = False;
    std::vector<int> _labels;   // values numbered beside both ends
};

/// Makes a scale with marks on the right and numbers, and shows it.
LM_API LmTickMarks* LmCreateTickMarks(const char* name, Widget parent);
