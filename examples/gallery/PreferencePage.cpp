#include "PreferencePage.h"

#include <Lm/LmApp.h>
#include <Lm/LmInterruptDialog.h>
#include <Lm/LmQuestionDialog.h>
#include <Lm/support/calldata.h>
#include <Lm/support/xmtext.h>
#include <Lm/support/xt.h>

#include <Xm/Xm.h>

#include <cstdlib>
#include <memory>
#include <span>
#include <string>

// --- the sheet ---------------------------------------------------------------------------------------------------------

GalleryPreferences::GalleryPreferences() : LmPrefDialog("galleryPreferences", &_sheet)
{
    heads.setLabel(0, "As the text");
    heads.setLabel(1, "Blue");
    heads.setLabel(2, "Green");
    showTexts.setValue(true);
    plainBusy.setValue(true);
    _toggles.addItem(&askAtClose);
    _toggles.addItem(&showTexts);
    _busy.addItem(&plainBusy);
    _busy.addItem(&stoppableBusy);
    for (LmPrefItem* item : std::initializer_list<LmPrefItem*>{&title, &heads, &_toggles, &_busy, &_custom})
        _general.addItem(item);
    _person.addItem(&author);
    for (LmPrefItem* item : std::initializer_list<LmPrefItem*>{&_text, &_general, &_line, &_person, &_gap})
        _sheet.addItem(item);
}

Widget GalleryPreferences::createDialog(Widget parent)
{
    Widget dialog = LmPrefDialog::createDialog(parent);
    row::label("prefCustomText", _custom.baseWidget());
    return dialog;
}

// --- the page ----------------------------------------------------------------------------------------------------------

PreferencePage::PreferencePage(Widget parent, LmSimpleWindow* window) : Page("preferencePage", parent), _window(window)
{
    Widget column = row::down("column", body());
    lm::on<&PreferencePage::post>(row::button("preferences", column), XmNactivateCallback, this);
    _state = row::label("preferenceState", column);
    _preferences.title.setValue(window->getTitle());
    _preferences.addCallback(LmPrefDialog::prefCallback, this, &PreferencePage::preferencesChosen, nullptr);
}

void PreferencePage::post() { _preferences.post(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, _window); }

static std::string textOf(LmPrefText& item)
{
    const std::unique_ptr<char, decltype(&std::free)> text(item.getValue(), &std::free);
    return text.get();
}

/// Apply comes before the values are committed; getValue() commits each.
void PreferencePage::preferencesChosen(LmCallbackObject*, void*, void* reason)
{
    if (lm::asInt(reason) != LmDialogManager::REASON_APPLY)
        return;
    const std::string title = textOf(_preferences.title), author = textOf(_preferences.author);
    _window->setTitle(title.c_str());
    theApplication->setBusyDialog(_preferences.stoppableBusy.getValue() ? getTheInterruptDialog() : nullptr);
    dressPages();
    const std::string state = "Title “" + title + "”, by " + (author.empty() ? "nobody" : author) + ".";
    XtVaSetValues(_state, XmNlabelString, lm::compound(state.c_str()).get(), nullptr);
}

/// Gives the heads of all pages their colour, and shows or hides the texts below.
void PreferencePage::dressPages()
{
    static const char* const colours[] = {nullptr, "#1f4e9c", "#1d6b3a"};
    const char* colour = colours[_preferences.heads.getValue()];
    Pixel foreground = 0;
    XtVaGetValues(_state, XmNforeground, &foreground, nullptr);
    WidgetList pages = nullptr;
    Cardinal count = 0;
    XtVaGetValues(XtParent(_w), XmNchildren, &pages, XmNnumChildren, &count, nullptr);
    for (Widget page : std::span(pages, count)) {
        Widget head = XtNameToWidget(page, "pageTitle"), text = XtNameToWidget(page, "pageText");
        if (!head || !text)
            continue;
        if (colour)
            XtVaSetValues(head, XtVaTypedArg, XmNforeground, XmRString, colour, 8, nullptr);
        else
            XtVaSetValues(head, XmNforeground, foreground, nullptr);
        XtSetMappedWhenManaged(text, _preferences.showTexts.getValue());
    }
}

bool PreferencePage::mayClose()
{
    return !_preferences.askAtClose.getValue() ||
           getTheQuestionDialog()->postAndWait("Close the gallery?", -1, -1, -1, nullptr, _window, nullptr) ==
               LmDialogManager::REASON_OK;
}
