#include "LmHelpIndex.h"

#include "LmApp.h"
#include "LmHelpPane.h"
#include "LmOutline.h"
#include "LmWarningDialog.h"
#include "base/help/HelpFile.h"
#include "base/help/HelpMap.h"
#include "base/help/HelpRequest.h"
#include "support/resources.h"
#include "support/xmtext.h"

#include <Xm/List.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

char* gettoken(const char* text) { return text ? strndup(text, std::strcspn(text, " \t")) : nullptr; }

void MapfileToText(char* text)
{
    if (text)
        std::replace(text, text + std::strlen(text), '/', ' ');
}

void TextToMapfile(char* text)
{
    if (text)
        std::replace(text, text + std::strlen(text), ' ', '/');
}

// --- the dialog --------------------------------------------------------------------------------------------------------

static const String defaults[] = {lm::xtText("outline.visibleItemCount: 16"), nullptr};

LmHelpIndex::LmHelpIndex(const char* name) : LmGenericDialog(name)
{
    _showOK = false;
    _allowMultipleDialogs = false;
    setButtonLabels(nullptr, "Dismiss", nullptr);
}

LmHelpIndex::~LmHelpIndex()
{
    if (isComponent(_outline))
        delete _outline;
}

LmOutline* LmHelpIndex::outline() const { return isComponent(_outline) && _outline->baseWidget() ? _outline : nullptr; }

static lm::CString copyOfPath(LmHelpMapfileFunction function)
{
    const char* path = LmHelpPane::useNativeHelp && function ? function() : nullptr;
    return lm::CString(path ? strdup(path) : nullptr);
}

Widget LmHelpIndex::createDialog(Widget parent)
{
    setDefaultResources(parent, defaults);
    Widget dialog = LmGenericDialog::createDialog(parent);
    _mapfile = copyOfPath(LmHelpPane::Mapfile);
    _eclassMapfile = copyOfPath(LmHelpPane::EClassMapfile);
    if (isComponent(_outline))
        delete _outline;   // of a dialog that was destroyed
    _outline = new LmOutline("outline", dialog, True);
    const bool hasTopics = OpenReadMapFile();
    LmOutline* shown = outline();   // a warning runs events
    if (hasTopics && shown)
        XtAddCallback(shown->listWidget(), XmNdefaultActionCallback, LmHelpSelectCallback, nullptr);
    if (shown)
        shown->displayAll();   // before the dialog is shown: it is as wide as the topics
    return dialog;
}

// --- map files ---------------------------------------------------------------------------------------------------------

void LmHelpIndex::warnOfMapFiles() const
{
    const auto text = [](const lm::CString& path) { return path ? path.get() : ""; };
    const std::string message = std::string("Error opening mapfiles:\n") + text(_mapfile) + ", " + text(_eclassMapfile);
    getTheWarningDialog()->post(message.c_str());
}

bool LmHelpIndex::OpenReadMapFile()
{
    std::optional<std::string> text = lm::readHelpFile(_eclassMapfile.get());
    if (!text)
        text = lm::readHelpFile(_mapfile.get());
    if (!text) {
        warnOfMapFiles();
        return false;
    }
    _fieldHelpMissing = !addSection(*text, "FieldHelp");
    return addSection(*text, "TransHelp") || !_fieldHelpMissing;
}

/// Adds a section's topics below its root topic. False when the file does not have the section.
bool LmHelpIndex::addSection(const std::string& text, const char* name)
{
    std::optional<lm::HelpSection> section = lm::readHelpSection(text, name);
    if (!section)
        return false;
    if (!section->isClosed || !outline())
        return true;
    std::vector<char*> topics;
    for (std::string& topic : section->topics) {
        MapfileToText(topic.data());
        topics.push_back(topic.data());
    }
    topics.push_back(nullptr);
    char* path[] = {section->root.data(), nullptr};
    outline()->createPath(path, path);
    outline()->addChildren(path, topics.data());
    return true;
}

// --- showing and choosing ----------------------------------------------------------------------------------------------

LmHelpIndex* getTheHelpIndex()
{
    static auto* index = new LmHelpIndex("helpIndex");
    return index;
}

void myHelpIndexMsg(const char*, ...)
{
    if (!theApplication)
        return;
    LmHelpIndex* index = getTheHelpIndex();
    index->setButtonLabels(nullptr, "Dismiss", nullptr);
    index->post(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, theApplication->baseWidget());
    if (LmOutline* outline = index->outline())
        outline->displayAll();
}

void LmHelpSelectCallback(Widget list, XtPointer, XtPointer callData) noexcept
{
    XmStringTable items = nullptr;
    int count = 0;
    XtVaGetValues(list, XmNselectedItems, &items, XmNselectedItemCount, &count, nullptr);
    if (count < 1 || !LmHelpPane::useNativeHelp || !theApplication)
        return;
    std::string topic = lm::plainText(items[0]);
    TextToMapfile(topic.data());
    lm::requestHelp(std::move(topic), lm::timeOfCall(callData), theApplication->baseWidget());
}
