// LmPie: a meter as a pie.
#pragma once

#include "LmMeter.h"

/// A three-dimensional pie, with a title and the items' labels above it. The meter's length is 360 degrees,
/// counter-clockwise from three o'clock; what is across in the meter is a slice's elevation and height, in pixels times the
/// thickness. With the resize policy RESIZE_ANY or RESIZE_GROW the widget takes the size that radius and labels need.
///
///   Others     as LmMeter; an item of size 0 is not drawn
class LM_API LmPie : public LmMeter {
public:
    LmPie(const char* name, Widget parent);   ///< An empty pie.

    const char* className() override { return "LmPie"; }
    void draw() override;
    int neededWidth() override;
    int neededHeight() override;   ///< The height for radius and labels, pixels.
    /// Computes what neededWidth() and neededHeight() answer.
    virtual void computeBounds();

    /// The horizontal radius of the disc, pixels; 0: half the width at the next drawing.
    void setRadius(int radius) { _radius = radius; }

    // --- the steps of drawing; boxes and points are in the pixels of the picture ---
    /// Fills the disc's whole ellipse in the foreground.
    void drawPieCrust(int x, int y, int w, int h);
    /// Draws the slices of `n` items on the disc x, y, w, h.
    void drawPieSlices(int x, int y, int w, int h, LmMeterItem* items, int n);
    /// Draws one piece that lies within a quadrant; `flags` as lm::PieFlag.
    void drawPieQuadrantSlice(int x, int y, int w, int h, Pixel pixel, int start, int extent, int elevation, int height,
                              int flags);
    /// Draws the edges of a side: centre top, outer top, outer bottom, centre bottom.
    void drawPieEdges(XPoint* side, GC gc, int flags);
    /// The point of the ellipse x, y, w, h at an angle.
    void computePixelPosition(int x, int y, int w, int h, int degrees, int* px, int* py);
    double degreesToRadians(int degrees);   ///< For the angles of slices.

private:
    struct Side;
    int radius();
    int labelColumn(int radius) const;
    void measureLabels(int column);
    int drawLabels(int column);
    int highestLevel() const;
    void fillSide(const Side& side);

    int _radius = 0;
    int _labelPercent = 50;                    // where the labels start, per cent of the diameter
    int _labelsWidth = 0, _labelsHeight = 0;   // of title and labels together
    Dimension _neededWidth = 0, _neededHeight = 0;
};
