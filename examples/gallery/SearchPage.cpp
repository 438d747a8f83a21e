#include "SearchPage.h"

#include <Lm/LmNameList.h>
#include <Lm/support/handles.h>
#include <Lm/support/resources.h>
#include <Lm/support/xt.h>

#include <Xm/Form.h>
#include <Xm/Label.h>
#include <Xm/List.h>
#include <Xm/TextF.h>

#include <cstdlib>
#include <string>

static constexpr int margin = 10;

/// Ten thousand places, each once: 10 x 40 x 25.
static LmNameList places()
{
    static const char* const sides[] = {"",       "North ",  "South ", "East ",  "West ",
                                        "Great ", "Little ", "Upper ", "Lower ", "Old "};
    static const char* const stems[] = {"Alder", "Amber", "Ash",     "Beck",  "Birch", "Black",  "Bram",  "Brook",
                                        "Cald",  "Cam",   "Chester", "Clay",  "Cold",  "Copper", "Dun",   "Elm",
                                        "Fair",  "Fern",  "Glen",    "Hart",  "Hazel", "Holly",  "Kings", "Lang",
                                        "Mill",  "Moor",  "Oak",     "Otter", "Pen",   "Raven",  "Red",   "Rowan",
                                        "Salt",  "Shep",  "Stan",    "Thorn", "Wal",   "West",   "White", "Wood"};
    static const char* const ends[] = {"bank",  "borough", "bridge", "brook", "bury", "by",   "cliff", "combe", "dale",
                                       "den",   "field",   "ford",   "gate",  "ham",  "hill", "holm",  "hurst", "leigh",
                                       "mouth", "ridge",   "stead",  "ton",   "well", "wick", "worth"};
    LmNameList names;
    for (const char* side : sides)
        for (const char* stem : stems)
            for (const char* end : ends)
                names.add((std::string(side) + stem + end).c_str());
    names.sort();
    return names;
}

/// Fills a list in one go: an XmList takes ten thousand single additions badly.
static void fill(Widget list, const LmNameList& names)
{
    XmString* items = names;
    XmListAddItemsUnselected(list, items, names.size(), 0);
    for (int i = 0; i < names.size(); ++i)
        XmStringFree(items[i]);
    std::free(items);
}

SearchPage::SearchPage(Widget parent) : Page("searchPage", parent)
{
    Widget fields = row::down("fields", body());
    XtVaSetValues(fields, XmNtopAttachment, XmATTACH_FORM, XmNleftAttachment, XmATTACH_FORM, nullptr);
    Widget completion = row::across("completionRow", fields);
    row::label("completionLabel", completion);
    _field.reset(LmCreateCompletionField("completionField", completion));
    const LmNameList names = places();
    _field->clear(new LmNameList(names));
    _field->addCallback(LmCompletionField::enterCallback, this, &SearchPage::searchCompleted, nullptr);

    Widget searching = row::across("searchRow", fields);
    row::label("searchLabel", searching);
    _searchField = XtVaCreateManagedWidget("searchField", xmTextFieldWidgetClass, searching, nullptr);

    _selected = XtVaCreateManagedWidget("selected", xmLabelWidgetClass, body(), XmNbottomAttachment, XmATTACH_FORM,
                                        XmNleftAttachment, XmATTACH_FORM, nullptr);
    _list = XmCreateScrolledList(body(), lm::xtText("places"), nullptr, 0);
    XtVaSetValues(XtParent(_list), XmNtopAttachment, XmATTACH_WIDGET, XmNtopWidget, fields, XmNtopOffset, margin,
                  XmNbottomAttachment, XmATTACH_WIDGET, XmNbottomWidget, _selected, XmNbottomOffset, margin, XmNleftAttachment,
                  XmATTACH_FORM, nullptr);
    fill(_list, names);
    lm::on<&SearchPage::showSelection>(_list, XmNbrowseSelectionCallback, this);
    _search = std::make_unique<LmListSearch>(_list, _searchField, False);
    XtManageChild(_list);
    _search->search_change(_searchField, nullptr, nullptr);   // the text that the resources give
}

/// Return in the completion field looks its text up in the list.
void SearchPage::searchCompleted(LmCallbackObject*, void*, void*)
{
    const lm::XtString text(_field->getText());
    XmTextFieldSetString(_searchField, text.get());
}

void SearchPage::showSelection(XmListCallbackStruct* selection)
{
    XtVaSetValues(_selected, XmNlabelString, selection->item, nullptr);
}
