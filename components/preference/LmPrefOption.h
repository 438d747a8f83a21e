// LmPrefOption: a choice among named entries on a preference sheet.
#pragma once

#include "LmPrefItem.h"
#include "support/handles.h"

#include <vector>

/// One of several entries, by its index.
///
///   Widgets    "<name>Label", a label gadget; "optionMenu", an option menu (base widget), and its pane "optionPane" with the
///              push buttons "<name>BaseButton0", "<name>BaseButton1" ..., whose "userData" is the index
///   Resources  the label of an entry itself, class "LabelString" XmString: replaces it; default the text. Without
///              setLabel() the entry's text is its button's "labelString"
///   Others     as LmPrefItem; an index outside 0..size-1 is ignored
class LM_API LmPrefOption : public LmPrefItem {
public:
    /// An option of `size` entries, of which the first is chosen.
    LmPrefOption(const char* name, int size);
    ~LmPrefOption() override;

    const char* className() override { return "LmPrefOption"; }
    LmPrefItemType type() override { return PI_option; }
    char changed() override;
    using LmPrefItem::build;
    void build(Widget labelParent, Widget baseParent) override;
    void updateValue() override;
    void revertValue() override;
    void widgetDestroyed() override;

    /// Commits a choice and shows it.
    void setValue(int index);
    /// Commits what is on screen and returns it.
    int getValue();
    /// Grows the option to n entries, or takes the entries from n on away. Before the option is built it only grows.
    void setSize(int n);
    /// The text of an entry.
    void setLabel(int index, const char* label);
    /// The text of an entry, or the name of its button when it has none; owned by the item. Null for a wrong index.
    char* getLabel(int index);

private:
    std::string buttonName(int index) const;
    Widget chosenButton() const;
    Widget buttonOf(int index) const;
    void createButtons(int n);
    void destroyButtons(int n);
    void showLabel(int index);
    void showChoice();
    void paneDestroyed();

    Widget _pane = nullptr;
    std::vector<Widget> _buttons;       // those built
    std::vector<lm::CString> _labels;   // one for each entry; null where none was set
    int _value = 0;
};
