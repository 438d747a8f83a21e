// XmGrid.h: two constraint managers: children in rows and columns, and children in a line between springs.
#pragma once

#include "support/LmExport.h"

#include <X11/Intrinsic.h>

/// \file
/// Both are subclasses of XmManager, take widgets and gadgets, and tell their parent their natural size: that of the
/// children's own sizes. A child's own size is the one it was made with or asked for last, whatever room it is given. A
/// manager that was given more than its natural size keeps that when the natural size changes, as long as it suffices.
/// Above the natural size the room to spare is shared out by weights; below it, rows, columns and children that have a
/// weight shrink first. The layout is the same from right to left.
///
///   Resources of both
///     defaultSpacing  DefaultSpacing  Int          4           between children, pixels
///     orientation     Orientation     Orientation  HORIZONTAL  the direction in which children follow each other
///     autoLayout      AutoLayout      Boolean      True        children that come, go or ask for a size are laid out at
///                                                              once; False: when it is set again, or the manager is
///                                                              given a new size
///     marginWidth     MarginWidth     Dimension    0           at the left and the right, pixels
///     marginHeight    MarginHeight    Dimension    0           at the top and the bottom, pixels
///     width, height                                natural     one that the application gives stays
///
///   Resources of the grid
///     numRows         NumRows         Int          0           how children without a cell of their own fill the cells:
///     numColumns      NumColumns      Int          0           row by row when numColumns is given, column by column when
///                                                              numRows is; with both, or none, along the orientation
///
///   Constraints of the grid
///     row             Row             Int          -1          the cell; -1: the next one that is free
///     column          Column          Int          -1
///     resizeHorizontal ResizeHorizontal Boolean    True        the child is as wide as its column
///     resizeVertical  ResizeVertical  Boolean      True        the child is as high as its row
///     gravity         Gravity         XmGridGravity 5          where a child lies in a cell that it does not fill: 1 to 9
///                                                              row by row from the upper left corner, or X's names
///
///   Constraints of the spring box: weights by which room to spare goes to the springs beside a child and to the child
///     leftSpring, rightSpring, topSpring, bottomSpring      Spring  Int  50
///     horizontalSpring, verticalSpring                      Spring  Int  0
///
/// Rows and columns are resizable with weight 1 until told otherwise. One without managed children takes no room. Children
/// overlap only when they name the same cell. Negative weights count as 0.

extern "C" {

/// Rows and columns.
LM_API extern WidgetClass xmGridWidgetClass;
/// A line of children, horizontal or vertical by its orientation.
LM_API extern WidgetClass xmSpringBoxWidgetClass;

/// An unmanaged grid.
LM_API Widget XmCreateGrid(Widget parent, char* name, ArgList args, Cardinal count);
/// A form dialog of that name that holds a grid, "dialogGrid", attached to all its sides; returns the form, whose managing
/// pops the dialog up. The grid takes the arguments that are a grid's alone. Children belong into XmGridOfDialog().
LM_API Widget XmCreateGridDialog(Widget parent, char* name, ArgList args, Cardinal count);
/// The grid of what XmCreateGridDialog made; null for any other widget.
LM_API Widget XmGridOfDialog(Widget dialog);
/// An unmanaged spring box.
LM_API Widget XmCreateSpringBox(Widget parent, char* name, ArgList args, Cardinal count);

/// Sets the weight by which a row or column (counted from 0) shares in the room to spare; 0: it keeps its natural size.
/// These functions take a grid or a grid dialog; for any other widget, or an index that is no track, nothing happens.
LM_API void XmGridSetRowResizability(Widget grid, int row, int weight);
LM_API void XmGridSetColumnResizability(Widget grid, int column, int weight);   ///< As XmGridSetRowResizability().
/// Sets the space on both sides of a row or column, pixels; where two meet, the larger counts. -1: defaultSpacing between
/// tracks, and none at the edges.
LM_API void XmGridSetRowMargin(Widget grid, int row, int margin);
LM_API void XmGridSetColumnMargin(Widget grid, int column, int margin);   ///< As XmGridSetRowMargin().
}
