#include "FileSetPage.h"

#include <Lm/LmFormat.h>
#include <Lm/support/calldata.h>
#include <Lm/support/resources.h>
#include <Lm/support/text.h>
#include <Lm/support/xmtext.h>
#include <Lm/support/xt.h>

#include <Xm/Form.h>
#include <Xm/List.h>

#include <vector>

static constexpr int margin = 10;

FileSetPage::Chooser::Chooser(FileSetPage* page) : LmFileSet(page->body(), "fileSet"), _page(page) {}

void FileSetPage::Chooser::ok()
{
    LmFileSet::ok();
    _page->showChosen(chosen());
}

FileSetPage::FileSetPage(Widget parent) : Page("fileSetPage", parent)
{
    Widget controls = row::across("fileSetControls", body());
    lm::on<&FileSetPage::open>(row::button("openFileSet", controls), XmNactivateCallback, this);
    _state = row::label("fileSetState", controls);
    _list = XmCreateScrolledList(body(), lm::xtText("chosenFiles"), nullptr, 0);
    XtVaSetValues(XtParent(_list), XmNtopAttachment, XmATTACH_WIDGET, XmNtopWidget, controls, XmNtopOffset, margin,
                  XmNbottomAttachment, XmATTACH_FORM, XmNleftAttachment, XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM,
                  nullptr);
    XtManageChild(_list);
}

/// The set keeps what was chosen before.
void FileSetPage::open()
{
    if (!_chooser) {
        _chooser = std::make_unique<Chooser>(this);
        _chooser->addCallback(LmFileSet::dismissCallback, this, &FileSetPage::dismissed, nullptr);
    }
    _chooser->show();
}

void FileSetPage::dismissed(LmCallbackObject*, void*, void* callData)
{
    if (lm::asInt(callData) == 0)
        say("You chose nothing.");
}

void FileSetPage::showChosen(const LmNameList& names)
{
    std::vector<lm::XmText> texts;
    std::vector<XmString> items;
    for (int i = 0; i < names.size(); ++i) {
        texts.push_back(lm::compound(lm::toUtf8(names.at(i)).c_str()));
        items.push_back(texts.back().get());
    }
    XmListDeleteAllItems(_list);
    XmListAddItemsUnselected(_list, items.data(), names.size(), 0);
    say(LmFormat(names.size() == 1 ? "%d file" : "%d files", names.size()));
}

void FileSetPage::say(const char* text) { XtVaSetValues(_state, XmNlabelString, lm::compound(text).get(), nullptr); }
