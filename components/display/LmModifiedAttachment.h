// LmModifiedAttachment: a folded corner on a widget whose value was changed.
#pragma once

#include "LmModified.h"

class LmModifiedAttachment;

/// Why "modifiedCallback" runs.
enum LmModifiedReason : int {
    LM_activate = 0,      ///< Return was pressed in the attached text widget
    LM_valueChanged = 1   ///< its text changed
};

/// Call data of "modifiedCallback".
struct LmModifiedCallbackStruct {
    LmModifiedReason reason;            ///< why the callback runs
    LmModifiedAttachment* attachment;   ///< who calls
    XEvent* event;                      ///< what caused it, from the widget's callback; may be null
};

/// Watches the value of one widget (XmText, XmTextField, or a label or button, whose value is its "labelString") and shows in
/// its upper right corner whether it differs from the previous value: the corner is folded down. A press on it shows the
/// previous value (a dashed diagonal instead), another one the current value again.
///
/// The indicator is a sibling of the widget, so the parent should be one that leaves its children where they want to be: a form,
/// a bulletin board, a drawing area. It exists while the attached widget is realized, and goes with the attachment, with detach()
/// and with the widget. Values can be set before.
///
///   Widgets    "modifiedArea" (XmDrawingArea), a child of the attached widget's parent
///   Resources  of the attached widget: "displayModified" (class "DisplayModified", String): "false", in any case, for no
///              indicator; values are compared all the same
///   Callbacks  modifiedCallback, when Return is pressed in an attached text widget and whenever its text changes, also by
///              this object: LmModifiedCallbackStruct. It may delete the attachment and destroy the widget
///   Errors     a widget of another kind, and a "shadowType" that is none of the four, end the program with a message on standard
///              error and status 1
class LM_API LmModifiedAttachment : public LmModified {
public:
    static const char* const modifiedCallback;   ///< "modifiedCallback"

    /// `followGeometry`: the indicator follows a widget that is moved or resized. `updateOnChange`: the value is taken at every
    /// change of a text, else only at Return.
    LmModifiedAttachment(Boolean blankIsValue, Boolean followGeometry, Boolean updateOnChange);
    ~LmModifiedAttachment() override;

    void setModified(Boolean m) override;
    void toggleDisplay() override;
    void setValue(const char* v) override;
    void fixPreviousValue(char* v, Boolean alsoCurrent) override;
    /// Sets the size of the indicator, in pixels.
    virtual void setParameters(Dimension width, Dimension height);
    /// Gives the size of the indicator, in pixels.
    void getParameters(Dimension* width, Dimension* height) const;

    /// Binds to a widget, and writes the value into it: nothing there yet empties it. Lets go of the widget before; null does
    /// that alone.
    void attach(Widget w);
    /// Hides the indicator and lets go of the widget, which keeps what it shows.
    void detach();
    /// Lets the indicator be seen while the value is modified.
    void show();
    void hide();   ///< Keeps the indicator from sight.

    /// Writes the value that is shown into the widget.
    void displayValue();
    /// Takes the widget's value, unless this object is writing it.
    void updateDisplay();
    /// Places the indicator anew.
    void adjustGeometry();
    /// Writes a value into a widget, when it has another one.
    void setWidgetValue(Widget w, char* v);
    /// The value of a widget; the caller frees it with free().
    char* getWidgetValue(Widget w);

    /// The attached widget; null when there is none.
    Widget widget() const { return _widget; }
    /// The indicator; null while there is none.
    Widget indicator() const { return _indicator; }

    /// Draws the indicator.
    void expose();
    /// Draws the piece of the widget's frame that the indicator covers.
    void drawCornerShadows(Pixel a, Pixel b, Boolean etched);
    /// Has the indicator drawn anew.
    void forceExpose();
    void setCursor();                 ///< Gives the indicator the cursor for what a press on it does.
    void buildWindow(Widget w);       ///< Makes the indicator for a realized widget, in place of the one before.
    void reparentWindow(Widget w);    ///< Places the indicator; first makes it where the widget's parent has none.
    void adjustWindow();              ///< Gives the indicator its place, size and colours.
    void setupCallbacks(Widget w);    ///< Watches a widget's value and its end.
    void removeCallbacks(Widget w);   ///< Undoes setupCallbacks().
    /// Calls "modifiedCallback". The attachment may be gone afterwards.
    void callCallback(LmModifiedReason r, XEvent* e);

    /// The widget's and the indicator's callbacks, with the attachment as client data.
    static void value_stub(Widget w, XtPointer clientData, XtPointer callData) noexcept;
    /// Return in the attached text.
    static void activate_stub(Widget w, XtPointer clientData, XtPointer callData) noexcept;
    /// The widget is being destroyed.
    static void destroy_stub(Widget w, XtPointer clientData, XtPointer callData) noexcept;
    static void expose_stub(Widget w, XtPointer clientData, XtPointer callData) noexcept;   ///< The indicator was exposed.
    /// A button was pressed on the indicator.
    static void input_stub(Widget w, XtPointer clientData, XtPointer callData) noexcept;
    /// The widget was moved, resized or mapped.
    static void reconfig_stub(Widget w, XtPointer clientData, XEvent* event, Boolean* goOn) noexcept;

private:
    void readColors();
    void readFrame();
    void createContext();
    void destroyIndicator();
    void forgetIndicator();
    void mapIndicator();
    void drawDiagonal();
    void drawFold(Pixel a, Pixel b, bool etched);
    void setInk(Pixel pixel);
    bool hasWindow() const { return _indicator && XtIsRealized(_indicator); }

    Display* _display = nullptr;
    Widget _widget = nullptr;
    Widget _structureWidget =
        nullptr;   // carries the structure handler: the widget, or a gadget's nearest ancestor with a window
    Widget _indicator = nullptr;
    Pixel _background = 0;
    Pixel _foreground = 0;
    Pixel _topShadow = 0;
    Pixel _bottomShadow = 0;
    Pixel _parentBackground = 0;
    GC _gc = nullptr;   // lives and dies with the indicator
    Dimension _shadowThickness = 2;
    Dimension _highlightThickness = 0;
    lm::CursorHandle _upCursor;
    lm::CursorHandle _downCursor;
    Boolean _shown = False;
    unsigned char _shadowType = 0;
    Boolean _displayModified = True;
    Boolean _updateOnChange;
    Boolean _toggling = False;   // the widget's value changes by our own doing: it is no new one
    Boolean _followGeometry;
};
