// LmGangedGroup: scales and scroll bars that move together.
#pragma once

#include "LmWidgetList.h"

/// A list of scales and scroll bars that show one value: moving one sets the others, but for those whose maximum is below.
///
///   Errors     other widgets are not added, with an Xt warning
class LM_API LmGangedGroup : public LmWidgetList {
public:
    ~LmGangedGroup() override;

    using LmWidgetList::add;
    using LmWidgetList::remove;
    void add(Widget w) override;
    void remove(Widget w) override;
    void removeLast() override { remove((*this)[size() - 1]); }

    /// The Xt procedure of the members, with the group as client data.
    static void valueChangedCallback(Widget w, XtPointer clientData, XtPointer callData) noexcept;

private:
    void valueChanged(Widget w, int value);
    void leave(Widget w);
};
