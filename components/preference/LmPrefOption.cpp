#include "LmPrefOption.h"

#include "LmWidgetTools.h"
#include "base/menu/Panes.h"
#include "support/calldata.h"
#include "support/resources.h"
#include "support/xmtext.h"
#include "support/xt.h"
#include "utils/CompoundResource.h"

#include <Xm/PushB.h>
#include <Xm/RowColumn.h>

#include <algorithm>
#include <cstring>
#include <utility>

LmPrefOption::LmPrefOption(const char* name, int size) : LmPrefItem(name), _labels(static_cast<size_t>(std::max(size, 0))) {}

LmPrefOption::~LmPrefOption() { LmPrefOption::widgetDestroyed(); }

// --- widgets -----------------------------------------------------------------------------------------------------------

void LmPrefOption::build(Widget labelParent, Widget baseParent)
{
    buildLabel(labelParent);
    _pane = XmCreatePulldownMenu(baseParent, lm::xtText("optionPane"), nullptr, 0);
    lm::on<&LmPrefOption::paneDestroyed>(_pane, XmNdestroyCallback, this);
    createButtons(static_cast<int>(_labels.size()));
    const lm::XmText noLabel = lm::compound("");   // the item's label shows the text
    Arg args[] = {{lm::xtText(XmNsubMenuId), reinterpret_cast<XtArgVal>(_pane)},
                  {lm::xtText(XmNlabelString), reinterpret_cast<XtArgVal>(noLabel.get())}};
    _baseWidget = XmCreateOptionMenu(baseParent, lm::xtText("optionMenu"), args, 2);
    if (!_activated)
        XtSetSensitive(_baseWidget, False);
    LmPrefOption::revertValue();
    installDestroyHandlers();
}

/// The pane is no child of the option menu: it goes when the option menu does.
void LmPrefOption::widgetDestroyed()
{
    if (Widget pane = _pane) {
        lm::off<&LmPrefOption::paneDestroyed>(pane, XmNdestroyCallback, this);
        paneDestroyed();
        lm::destroyPane(pane);
    }
    if (_baseWidget && isBeingDestroyed(_baseWidget))
        LmPrefItem::widgetDestroyed();
}

void LmPrefOption::paneDestroyed()
{
    _pane = nullptr;
    _buttons.clear();
}

std::string LmPrefOption::buttonName(int index) const { return _baseName + "Button" + std::to_string(index); }

Widget LmPrefOption::buttonOf(int index) const
{
    return index >= 0 && index < std::ssize(_buttons) ? _buttons[static_cast<size_t>(index)] : nullptr;
}

/// Makes the buttons that are missing up to the n-th.
void LmPrefOption::createButtons(int n)
{
    const auto first = static_cast<int>(_buttons.size());
    for (int i = first; i < n; ++i) {
        _buttons.push_back(
            XtVaCreateWidget(buttonName(i).c_str(), xmPushButtonWidgetClass, _pane, XmNuserData, lm::asPointer(i), nullptr));
        showLabel(i);
    }
    if (first < n)
        XtManageChildren(_buttons.data() + first, static_cast<Cardinal>(n - first));
}

/// Destroys the buttons from the n-th on. The option menu must not go on showing one of them.
void LmPrefOption::destroyButtons(int n)
{
    const auto end = _buttons.begin() + n;
    if (_baseWidget && n > 0 && std::find(end, _buttons.end(), chosenButton()) != _buttons.end())
        XtVaSetValues(_baseWidget, XmNmenuHistory, _buttons.front(), nullptr);
    std::for_each(end, _buttons.end(), XtDestroyWidget);
    _buttons.erase(end, _buttons.end());
}

void LmPrefOption::setSize(int n)
{
    const auto built = static_cast<int>(_buttons.size());
    if (n < 0 || n == built)
        return;
    if (n > built) {
        if (n > std::ssize(_labels))
            _labels.resize(static_cast<size_t>(n));
        if (_pane)
            createButtons(n);
        return;
    }
    if (_pane)
        destroyButtons(n);
    _labels.resize(static_cast<size_t>(n));
}

// --- labels ------------------------------------------------------------------------------------------------------------

/// What the user's resources make of an entry's text, shown on its button.
void LmPrefOption::showLabel(int index)
{
    const char* text = _labels[static_cast<size_t>(index)].get();
    Widget button = buttonOf(index);
    if (!text || !button)
        return;
    XtVaSetValues(button, XmNlabelString, lm::labelResource(button, text).get(), nullptr);
}

void LmPrefOption::setLabel(int index, const char* label)
{
    if (index < 0 || index >= std::ssize(_labels))
        return;
    auto& stored = _labels[static_cast<size_t>(index)];
    if (label != stored.get())
        stored.reset(label ? strdup(label) : nullptr);
    showLabel(index);
    if (index == _value)
        showChoice();
}

char* LmPrefOption::getLabel(int index)
{
    if (index < 0 || index >= std::ssize(_labels))
        return nullptr;
    auto& stored = _labels[static_cast<size_t>(index)];
    if (!stored)
        stored.reset(strdup(buttonName(index).c_str()));
    return stored.get();
}

// --- the value ---------------------------------------------------------------------------------------------------------

Widget LmPrefOption::chosenButton() const
{
    Widget chosen = nullptr;
    XtVaGetValues(_baseWidget, XmNmenuHistory, &chosen, nullptr);
    return chosen;
}

/// The cascade button takes the chosen entry's text at once; Motif alone would wait until the menu is used.
void LmPrefOption::showChoice()
{
    Widget button = _baseWidget ? chosenButton() : nullptr;
    Widget cascade = button ? XmOptionButtonGadget(_baseWidget) : nullptr;
    if (!cascade)
        return;
    XmString text = nullptr;
    XtVaGetValues(button, XmNlabelString, &text, nullptr);
    const lm::XmText owner(text);
    XtVaSetValues(cascade, XmNlabelString, text, nullptr);
}

char LmPrefOption::changed() { return _baseWidget && chosenButton() != buttonOf(_value); }

void LmPrefOption::updateValue()
{
    if (!_baseWidget)
        return;
    const auto chosen = std::ranges::find(_buttons, chosenButton());
    if (chosen != _buttons.end())
        _value = static_cast<int>(chosen - _buttons.begin());
}

void LmPrefOption::revertValue()
{
    if (!_baseWidget || !buttonOf(_value))
        return;
    XtVaSetValues(_baseWidget, XmNmenuHistory, buttonOf(_value), nullptr);
    showChoice();
}

void LmPrefOption::setValue(int index)
{
    _value = index;
    revertValue();
}

int LmPrefOption::getValue()
{
    updateValue();
    return _value;
}
