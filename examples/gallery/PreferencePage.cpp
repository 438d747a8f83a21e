#include "PreferencePage.h"

#include <Lm/LmQuestionDialog.h>
#include <Lm/support/calldata.h>
#include <Lm/support/xmtext.h>
#include <Lm/support/xt.h>

#include <Xm/Xm.h>

#include <cstdlib>
#include <memory>
#include <string>

// --- the sheet ---------------------------------------------------------------------------------------------------------

GalleryPreferences::GalleryPreferences() : LmPrefDialog("galleryPreferences", &_sheet)
{
    heads.setLabel(0, "As the text");
    heads.setLabel(1, "Blue");
    heads.setLabel(2, "Green");
    listLeft.setValue(true);
    _toggles.addItem(&askAtClose);
    _toggles.addItem(&beepAtEnd);
    _list.addItem(&listLeft);
    _list.addItem(&listHidden);
    for (LmPrefItem* item : std::initializer_list<LmPrefItem*>{&title, &heads, &_toggles, &_list, &_custom})
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

PreferencePage::PreferencePage(Widget parent, LmSimpleWindow* window, Widget list)
    : Page("preferencePage", parent), _window(window), _list(list)
{
    Widget column = row::down("column", body());
    lm::on<&PreferencePage::post>(row::button("preferences", column), XmNactivateCallback, this);
    _state = row::label("preferenceState", column);
    _preferences.title.setValue(window->getTitle());
    _preferences.addCallback(LmPrefDialog::prefCallback, this, &PreferencePage::preferencesChosen, nullptr);
}

void PreferencePage::post()
{
    _preferences.post(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, _window);
}

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
    if (_preferences.listHidden.getValue())
        XtUnmanageChild(XtParent(_list));
    else
        XtManageChild(XtParent(_list));
    colourHeads();
    const std::string state = "Title “" + title + "”, by " + (author.empty() ? "nobody" : author) + ".";
    XtVaSetValues(_state, XmNlabelString, lm::compound(state.c_str()).get(), nullptr);
}

void PreferencePage::colourHeads()
{
    static const char* const colours[] = {nullptr, "#1f4e9c", "#1d6b3a"};
    const char* colour = colours[_preferences.heads.getValue()];
    Pixel foreground = 0;
    XtVaGetValues(_state, XmNforeground, &foreground, nullptr);
    WidgetList pages = nullptr;
    Cardinal count = 0;
    XtVaGetValues(XtParent(_w), XmNchildren, &pages, XmNnumChildren, &count, nullptr);
    for (Cardinal i = 0; i < count; ++i) {
        Widget head = XtNameToWidget(pages[i], "pageTitle");
        if (head && colour)
            XtVaSetValues(head, XtVaTypedArg, XmNforeground, XmRString, colour, 8, nullptr);
        else if (head)
            XtVaSetValues(head, XmNforeground, foreground, nullptr);
    }
}

bool PreferencePage::mayClose()
{
    return !_preferences.askAtClose.getValue() ||
           getTheQuestionDialog()->postAndWait("Close the gallery?", -1, -1, -1, nullptr, _window, nullptr) ==
               LmDialogManager::REASON_OK;
}
