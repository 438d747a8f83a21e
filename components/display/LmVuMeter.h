// LmVuMeter: a column of blocks lit up to a level.
#pragma once

#include "LmComponent.h"
#include "support/handles.h"

#include <memory>

namespace lm {
struct VuBlocks;
struct VuLevel;
}   // namespace lm

/// A column of coloured blocks, red above yellow above green, lit from the bottom up to a level, with a mark at a peak.
/// Values count downwards from the top: 0 lights the whole column, 110 or more nothing. Only what changes is painted.
///
///   Widgets    XmDrawingArea of the component's name (base widget)
///   Resources  of the drawing area: "red" "red", "green" "green", "yellow" "yellow" Pixel red, forestgreen, yellow;
///              "granularity" "Granularity" int 11: blocks; "size" "Size" int 9 and "spacing" "Spacing" int 1: a block's lit
///              height and the gap below it, in units of the value; "numReds" "NumReds" int 1, "numYellows" "NumYellows"
///              int 3, "numGreens" "NumGreens" int 7; "drawSides" "DrawSides" Boolean true, "sideThickness" "SideThickness"
///              int 1, "sideSpacing" "SideSpacing" int 0: bars at both sides, in pixels; "peakBlock" "PeakBlock" Boolean
///              false: the peak lights its whole block; "peakHeight" "PeakHeight" int 1: else its mark, in units
///   Errors     none; a level set before there is a window shows at the first expose
class LM_API LmVuMeter : public LmComponent {
public:
    LmVuMeter(const char* name, Widget parent);   ///< Nothing is lit.
    ~LmVuMeter() override;

    const char* className() override { return "LmVuMeter"; }
    void widgetDestroyed() override;

    /// Shows a level and a peak. The same again sends nothing to the server.
    void setValue(int value, int peak);
    /// Lays the blocks out for the widget's size, and paints everything.
    void resize();
    /// Paints everything.
    void expose();

    int value() const { return _value; }   ///< The level set last; 111 before.
    int peak() const { return _peak; }     ///< The peak set last; 111 before.

private:
    void loadResources();
    GC colourOf(int block) const;
    void paint(const lm::VuLevel& before, const lm::VuLevel& after);
    void drawSides();
    bool hasWindow() const { return _baseWidget && XtIsRealized(_baseWidget) && _width > 0 && _height > 0; }

    static constexpr int _maxValue = 110;

    std::unique_ptr<lm::VuBlocks> _blocks;
    int _value = _maxValue + 1, _peak = _maxValue + 1;                 // nothing lit
    int _spacing = 1, _numReds = 1, _numYellows = 3, _numGreens = 7;   // resources
    int _sideThickness = 1, _sideSpacing = 0;
    Boolean _drawSides = True;
    Dimension _width = 0, _height = 0;
    lm::SharedGC _redGC, _greenGC, _yellowGC;
};

/// Makes a level meter and shows it. Makes sure that there is an application object.
LM_API LmVuMeter* LmCreateVuMeter(const char* name, Widget parent);
