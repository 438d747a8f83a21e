// LmPrefItem: the base of everything that stands on a preference sheet.
#pragma once

#include "LmComponent.h"

#include <string>

/// The kinds of preference items.
enum LmPrefItemType : int {
    PI_none = 0,
    PI_group = 1,
    PI_list = 2,
    PI_radio = 3,
    PI_text = 4,
    PI_toggle = 5,
    PI_option = 6,
    PI_custom = 7,
    PI_empty = 8,
    PI_label = 9,
    PI_separator = 10
};

/// One item of a preference sheet: a label, and a widget that edits a value (or only decorates the sheet).
///
/// An item holds the committed value; its widget holds the one on screen. updateValue() commits, revertValue() discards,
/// changed() tells whether they differ. Values can be set and read before there are widgets, and after they are gone.
///
///   Widgets    "<name>Label", a label gadget (labelWidget()), and "<name>Base" (base widget), unless the class says
///              otherwise; the label's text is its resource "labelString"
///   Errors     none reported
class LM_API LmPrefItem : public LmComponent {
public:
    explicit LmPrefItem(const char* name);   ///< The name is the start of the widgets' names.
    ~LmPrefItem() override;

    const char* className() override { return "LmPrefItem"; }
    virtual LmPrefItemType type() { return PI_none; }   ///< What kind of item this is.
    /// Whether the value on screen differs from the committed one.
    virtual char changed() { return true; }
    /// Whether the item holds others.
    virtual char isContainer() { return false; }
    /// Makes the widgets, label and editing widget in the same parent.
    virtual void build(Widget parent) { build(parent, parent); }
    /// Makes the widgets and shows the committed value. Called once, normally by the container; show() manages them.
    virtual void build(Widget labelParent, Widget baseParent) = 0;
    /// Commits the value on screen.
    virtual void updateValue() = 0;
    /// Shows the committed value again.
    virtual void revertValue() = 0;
    /// Makes the item's widgets sensitive or not, now and when they are built.
    virtual void setActivated(char activated);
    /// Deletes the items that a container holds. Nothing here.
    virtual void deleteChildren() {}

    /// The label; null before it is built, after it was destroyed, and for items that have none.
    Widget labelWidget() const { return _labelWidget; }
    /// The height of the label, in pixels; 0 without one.
    Dimension labelHeight() const { return getHeight(_labelWidget); }
    /// The height of the base widget, in pixels; 0 without one.
    Dimension baseHeight() const { return getHeight(_baseWidget); }
    /// Sets the height of the label, in pixels; nothing without one.
    void setLabelHeight(Dimension height) { setHeight(_labelWidget, height); }
    /// Sets the height of the base widget, in pixels; nothing without one.
    void setBaseHeight(Dimension height) { setHeight(_baseWidget, height); }
    /// Containers tell their items whether all of them are of one type.
    void setHomogeneous(char homogeneous) { _homogeneous = homogeneous; }

protected:
    /// Makes and manages the label.
    void buildLabel(Widget parent);
    /// Has the item forget its widgets when they are destroyed. Every build() ends with it.
    void installDestroyHandlers();
    static Dimension getHeight(Widget w);                ///< A widget's height, in pixels; 0 for null.
    static void setHeight(Widget w, Dimension height);   ///< Sets a widget's height, in pixels; nothing for null.
    /// The Xt destroy procedure of the label, with the item as client data.
    static void labelDestroyedCallback(Widget w, XtPointer clientData, XtPointer callData) noexcept;

    Widget _labelWidget = nullptr;   ///< what labelWidget() answers
    std::string _baseName;           ///< "<name>Base"
    std::string _labelName;          ///< "<name>Label"
    char _activated = true;          ///< what setActivated() set
    char _homogeneous = true;        ///< what setHomogeneous() set
};
