// LmMeter: coloured bars laid end to end.
#pragma once

#include "LmDoubleBuffer.h"
#include "support/handles.h"

#include <vector>

namespace lm {
struct MeterArea;
}   // namespace lm

/// A bar meter: items that each cover a share of a total, from the bottom up, or from left to right. Set the total with
/// reset(), add items, and call update(). An item that would run past the end of the meter is not drawn.
///
///   Widgets    XmDrawingArea of the component's name (base widget)
///   Resources  "orientation" "Orientation" Orientation VERTICAL; "resizePolicy" "ResizePolicy" unsigned char RESIZE_NONE:
///              whether update() makes the widget as large as needed (RESIZE_ANY) or no smaller (RESIZE_GROW);
///              "fontList" "FontList" FontList fixed; "drawBorder" "DrawBorder" Boolean FALSE: outlines in the widget's
///              "borderColor"
///   Errors     none; a total or thickness below 1 becomes 100 and 1, items added before reset() are not drawn
class LM_API LmMeter : public LmDoubleBuffer {
public:
    LmMeter(const char* name, Widget parent);   ///< An empty meter.
    ~LmMeter() override;

    const char* className() override { return "LmMeter"; }
    void widgetDestroyed() override;
    void afterRealizeHook() override;
    /// Resizes the widget as the policy says, paints and shows.
    void update() override;
    void resize() override;
    void draw() override;
    /// The width that the meter wants, in pixels; the base meter is content with what it has.
    virtual int neededWidth() { return graphWidth(); }
    virtual int neededHeight() { return graphHeight(); }   ///< The height that the meter wants, in pixels.
    /// The drawing area's height, in pixels.
    virtual int graphHeight() { return _baseWidget ? _height : 0; }
    virtual int graphWidth() { return _baseWidget ? _width : 0; }   ///< The drawing area's width, in pixels.
    /// The units that fill the meter across; the base meter counts in pixels.
    virtual int maxTop() { return graphWidth(); }
    /// The colour that drawRectangle() and fillRectangle() paint in.
    virtual void setForeground(Pixel pixel);
    /// Outlines a rectangle of the picture, in pixels.
    virtual void drawRectangle(int x, int y, unsigned width, unsigned height);
    /// Fills a rectangle of the picture, in pixels.
    virtual void fillRectangle(int x, int y, unsigned width, unsigned height);

    /// Removes all items and sets the value that fills the meter and the pixels that one unit across stands for.
    void reset(int total, int thickness);
    /// Adds an item: where it starts and how long it is, in units of the total; where it starts across and how broad it is,
    /// in units of the thickness. The label (may be null) is copied; the meter itself does not draw it.
    void add(int start, int size, int crossPos, int crossExtent, Pixel pixel, const char* label);
    /// The same with a colour's name, which is also the name and class of the Pixel resource that may replace it.
    void add(int start, int size, int crossPos, int crossExtent, const char* colorName, const char* label);
    /// The same, behind the last item and from the edge.
    void add(int size, int crossExtent, Pixel pixel, const char* label);
    void add(int size, int crossExtent, const char* colorName, const char* label);   ///< The same with a colour's name.
    /// The same, one unit broad.
    void add(int size, Pixel pixel, const char* label);
    void add(int size, const char* colorName, const char* label);   ///< The same with a colour's name.
    /// A title, for derived meters that show one; null: none. Copied.
    void setTitle(const char* title);

protected:
    /// One item: along the meter in hundredths of its length, across it in units of maxTop().
    struct LmMeterItem {
        /// Where the item starts, and how long it is.
        int start, size;
        /// The far edge across, and the near one.
        int top, bottom;
        lm::CString label;   ///< null for none
        Pixel pixel;         ///< the item's colour
    };

    unsigned char _resizePolicy = XmRESIZE_NONE;   ///< the resource
    std::vector<LmMeterItem> _items;               ///< in the order of drawing
    lm::CString _title;                            ///< what setTitle() gave; null for none
    int _total = 0;                                ///< the value that fills the meter
    int _thickness = 1;                            ///< pixels that one unit across stands for
    GC _drawGC = nullptr;                          ///< private: setForeground() changes it
    lm::SharedGC _sharedGC;                        ///< what bars and outlines are drawn with; shared
    XmFontList _fontList = nullptr;                ///< the resource
    Boolean _drawBorder = False;                   ///< the resource
    Pixel _borderColor = 0;                        ///< the widget's
    int _scaleMax = 100;                           ///< units that fill the meter along
    int _nextStart = 0;                            ///< where the next item starts, in units of the total
    unsigned char _orientation = XmVERTICAL;       ///< the resource

private:
    void createContexts();
    void drawBars(const lm::MeterArea& area, size_t first, size_t end);
    void drawOutline(const lm::MeterArea& area, const LmMeterItem& item);
    bool fitToNeeds();
};
