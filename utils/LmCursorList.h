// LmCursorList.h: animated cursors, and the watch that shows while the application is busy.
#pragma once

#include "support/LmExport.h"

#include <X11/Xlib.h>

#include <memory>

/// A cursor in several frames. Each frame is created when it is first asked for and then kept; the server's cursors
/// live as long as the connection.
///
/// A derived list says how a frame is made:
///
///     void createCursor(int index) override { _cursors[index] = XCreateFontCursor(theApplication->display(), shapes[index]); }
///
/// Errors: a list of no frames answers None (0).
class LM_API LmCursorList {
public:
    /// A list of `numCursors` frames, none of them created yet.
    explicit LmCursorList(int numCursors);
    LmCursorList(const LmCursorList&) = delete;
    LmCursorList& operator=(const LmCursorList&) = delete;
    virtual ~LmCursorList();

    /// Creates frame `index` (0 to the number of frames - 1) and stores it in `_cursors`.
    virtual void createCursor(int index) = 0;

    /// Starts over: the next frame is frame 0.
    void reset() { _index = 0; }
    /// The next frame, frame 0 again after the last one.
    Cursor next();
    /// The frame that next() answered last, frame 0 before that. Never advances.
    Cursor current();

protected:
    int _numCursors;                      ///< as constructed
    int _index = -1;                      ///< the frame that next() will answer; -1 before the first use
    std::unique_ptr<Cursor[]> _cursors;   ///< `_numCursors` frames, 0 where not created yet

private:
    Cursor frame(int index);
};

/// Eight frames of a watch whose hand turns clockwise, an eighth of a turn with each frame.
///
/// Resources, of the application:
///   name                    class         type   default
///   busyCursorForeground    Foreground    Pixel  "Black"
///   busyCursorBackground    Background    Pixel  "White"
/// Errors: the process ends with status 1 when there is no application object.
class LM_API LmBusyCursors : public LmCursorList {
public:
    LmBusyCursors();

    void createCursor(int index) override;

protected:
    XColor _foreground{};   ///< the resource busyCursorForeground
    XColor _background{};   ///< the resource busyCursorBackground
};
