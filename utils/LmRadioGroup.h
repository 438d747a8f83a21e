// LmRadioGroup: buttons of which one is on.
#pragma once

#include "LmWidgetList.h"

/// A list of toggle buttons and push buttons that exclude each other, wherever they stand. A chosen push button looks
/// pressed in until another is chosen.
///
///   Errors     other widgets are not added, with an Xt warning
class LM_API LmRadioGroup : public LmWidgetList {
public:
    ~LmRadioGroup() override;

    using LmWidgetList::add;
    using LmWidgetList::remove;
    void add(Widget w) override;
    void remove(Widget w) override;
    void removeLast() override { remove((*this)[size() - 1]); }
    /// A toggle changed; when it went on, it is the chosen one.
    virtual void valueChanged(Widget w, void* callData);
    /// A push button was pressed: it is the chosen one.
    virtual void arm(Widget w, void* callData);

    /// The chosen button; null when there is none.
    Widget selected() const { return _selected; }

    /// The Xt procedures of the members, with the group as client data.
    static void valueChangedCallback(Widget w, XtPointer clientData, XtPointer callData) noexcept;
    /// A push button was armed: runs arm().
    static void armCallback(Widget w, XtPointer clientData, XtPointer callData) noexcept;

protected:
    /// Gives the chosen button its own look back, when another one is chosen.
    void updateSelected(Widget w);

private:
    void leave(Widget w);
    void pressIn(Widget w);
    void release(Widget w);

    Pixel _savedTopShadow = 0, _savedBottomShadow = 0, _savedBackground = 0;   // of the chosen push button
    Widget _selected = nullptr;
    Pixmap _savedLabelPixmap = None;
};
