#include "LmOutline.h"

#include "KeyIndex.h"
#include "LmOlDisplayParams.h"
#include "LmOlNode.h"
#include "LmScrolledList.h"
#include "OlBranch.h"
#include "TabStops.h"
#include "support/resources.h"

#include <cstring>
#include <string>
#include <vector>

LmOutline::LmOutline(const char* name, Widget parent, Boolean sizePolicy) : LmComponent(name)
{
    _rootKey.reset(strdup(std::string("_").append(this->name()).append("_ps_root_").c_str()));
    makeRoot();
    Arg policy{const_cast<char*>(XmNlistSizePolicy), sizePolicy};
    _list = LmCreateScrolledList(parent, this->name(), &policy, 1);
    XtVaSetValues(_list, "showIcons", True, nullptr);
    _w = XtParent(_list);
    XtManageChild(_list);
    XtManageChild(_w);
    installDestroyHandler();
    XtAddCallback(_list, XmNactivateCallback, activateCallback, static_cast<LmOutline*>(this));
    _params = std::make_unique<LmOlDisplayParams>(_list);
}

LmOutline::~LmOutline()
{
    if (_list) {
        XtRemoveCallback(_list, XmNactivateCallback, activateCallback, static_cast<LmOutline*>(this));
        setUpdate(False);   // the icons go before the list, which must not draw them any more
    }
    const lm::OwnEdits own;
    _root.reset();
}

void LmOutline::widgetDestroyed()
{
    _list = nullptr;
    _params->forgetWidget();
    LmComponent::widgetDestroyed();
}

void LmOutline::makeRoot()
{
    const lm::OwnEdits own;
    _root = std::make_unique<LmOlNode>(_rootKey.get());
    _index.reset();
    _needsDisplay = false;
}

// --- finding ---------------------------------------------------------------------------------------------------------

LmOlNode* LmOutline::nodeAt(int position, int* level) { return position > 0 ? _root->getNodeAt(position, level) : nullptr; }

LmOlNode* LmOutline::nodeAtPath(char** path) const { return _root->pathToNode(path); }

LmOlNode* LmOutline::nodeWithKey(const char* key)
{
    if (!_index || _editsSeen != lm::OutlineSteps::edits)
        indexWholeTree();
    const auto found = _index->find(key);
    return found.isOnly ? found.node : _root->search(const_cast<char*>(key), 0);   // the index knows no order
}

void LmOutline::indexWholeTree()
{
    _index = std::make_unique<lm::KeyIndex>();
    lm::walkTree(_root.get(), 0, [this](LmOlNode* node, int) {
        _index->insert(node);
        return false;
    });
    _editsSeen = lm::OutlineSteps::edits;
}

bool LmOutline::isTopLevel(const LmOlNode* node) const { return node->getParent() == _root.get(); }

// --- building --------------------------------------------------------------------------------------------------------

LmOlNode* LmOutline::append(LmOlNode* parent, char* label, char* key, void* hook)
{
    const bool indexIsRight = _index && _editsSeen == lm::OutlineSteps::edits;
    const lm::OwnEdits own;
    auto* node = new LmOlNode(label, key, hook);
    parent->addChild(node);
    if (indexIsRight)
        _index->insert(node);
    _needsDisplay = true;
    return node;
}

void LmOutline::moveBelow(LmOlNode* node, LmOlNode* parent)
{
    const lm::OwnEdits own;
    node->getParent()->removeChild(node);
    parent->addChild(node);
}

void LmOutline::add(char* parent, char* child)
{
    if (!parent || !child)
        return;
    LmOlNode* above = nodeWithKey(parent);
    LmOlNode* below = nodeWithKey(child);
    if (above && below)
        return;
    if (above) {
        append(above, child, child, nullptr);
    } else if (!below) {
        above = append(_root.get(), parent, parent, nullptr);
        append(above, child, child, nullptr);
    } else if (isTopLevel(below)) {
        above = append(_root.get(), parent, parent, nullptr);
        moveBelow(below, above);
    }
}

void LmOutline::addChildren(char** path, char** names)
{
    LmOlNode* parent = nodeAtPath(path);
    for (; parent && names && *names; ++names)
        append(parent, *names, *names, nullptr);
}

void LmOutline::addChildren(char** path, char** labels, char** keys, void** hooks)
{
    LmOlNode* parent = nodeAtPath(path);
    if (!parent || !labels || !keys)
        return;
    int count = 0;
    while (labels[count])
        ++count;
    processTabs(labels, count);
    for (int i = 0; i < count; ++i)
        append(parent, labels[i], keys[i], hooks ? hooks[i] : nullptr);
}

LmOlNode* LmOutline::createPath(char** labels, char** keys)
{
    LmOlNode* node = _root.get();
    for (; keys && *keys; ++keys) {
        LmOlNode* next = lm::OutlineSteps::childWithKey(*node, *keys);
        char* label = labels && *labels ? *labels++ : *keys;
        node = next ? next : append(node, label, *keys, nullptr);
    }
    return node;
}

void LmOutline::processTabs(char** labels, int n)
{
    if (!_tabProcessing || !_list)
        return;
    XmFontList font = nullptr;
    XtVaGetValues(_list, XmNfontList, &font, nullptr);
    const auto width = [font](const std::string& text) {
        const lm::XmText string(XmStringCreate(const_cast<char*>(text.c_str()), const_cast<char*>(XmSTRING_DEFAULT_CHARSET)));
        return static_cast<int>(XmStringWidth(font, string.get()));
    };
    std::vector<std::string> texts(labels, labels + n);
    if (!lm::expandTabs(texts, width))
        return;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (texts[i] == labels[i])
            continue;
        std::free(labels[i]);
        labels[i] = strdup(texts[i].c_str());
    }
}

// --- showing ---------------------------------------------------------------------------------------------------------

void LmOutline::setUpdate(Boolean on) { XtVaSetValues(_list, XtNupdate, on, nullptr); }

void LmOutline::clearRows()
{
    if (!_list)
        return;
    LmListDeselectAllItems(_list);
    LmListDeleteAllItems(_list);
}

void LmOutline::displayAll()
{
    if (!_needsDisplay || !_list)
        return;
    setUpdate(False);
    clearRows();
    LmOlNode::setItemCount(0);
    _root->display(0, _params.get());
    setUpdate(True);
}

void LmOutline::reset()
{
    makeRoot();
    clearRows();
}

void LmOutline::printTree() { _root->print(0); }

void LmOutline::activateCallback(Widget, XtPointer clientData, XtPointer callData) noexcept
{
    static_cast<LmOutline*>(clientData)->toggleChildren(static_cast<XmListCallbackStruct*>(callData)->item_position);
}

void LmOutline::toggleChildren(int position)
{
    _lastToggleOpened = _lastTogglePosition = _lastToggleCount = 0;
    int level = 0;
    LmOlNode* node = nodeAt(position, &level);
    if (!node || node->nchild() == 0 || !_list)
        return;
    setUpdate(False);
    LmListDeselectAllItems(_list);
    _lastTogglePosition = position;
    if (node->isOpen())
        close(node);
    else
        open(node, level);
    setUpdate(True);
}

void LmOutline::close(LmOlNode* node)
{
    _lastToggleCount = lm::OutlineSteps::hideDescendants(*node);
    LmListDeleteItemsPos(_list, _lastToggleCount, _lastTogglePosition + 1);
    LmListSetPositionIcon(_list, _lastTogglePosition, _params->closedPixmap(node->maxChildAttrIndex()));
    node->Close();
    lm::OutlineSteps::moveRowsBehind(*node, -_lastToggleCount);
}

void LmOutline::open(LmOlNode* node, int level)
{
    // Rows that are still there because the node was closed without a word to the list.
    const int stale = lm::OutlineSteps::hideDescendants(*node);
    LmListDeleteItemsPos(_list, stale, _lastTogglePosition + 1);
    node->Open();
    _lastToggleOpened = 1;
    LmListSetPositionIcon(_list, _lastTogglePosition, _params->openPixmap());
    LmOlNode::setItemCount(_lastTogglePosition);
    lm::OutlineSteps::displayChildren(*node, level, *_params);
    _lastToggleCount = LmOlNode::getItemCount() - _lastTogglePosition;
    lm::OutlineSteps::moveRowsBehind(*node, _lastToggleCount - stale);
}

int LmOutline::effectOfLastToggle(int& position, int& count) const
{
    position = _lastTogglePosition;
    count = _lastToggleCount;
    return _lastToggleOpened;
}

void* LmOutline::getHookAt(int position)
{
    int level = 0;
    const LmOlNode* node = nodeAt(position, &level);
    return node ? node->getHook() : nullptr;
}

void LmOutline::setIndentationWidth(int pixels)
{
    if (pixels > 0)
        _params->setIndentation(pixels);
}

void LmOutline::select(int position)
{
    int level = 0;
    if (nodeAt(position, &level))
        LmListSelectPos(_list, position, False);
}

void LmOutline::closePath(char** path)
{
    LmOlNode* node = nodeAtPath(path);
    if (node && node->nchild() > 0)
        node->Close();
}

int LmOutline::isPathClosed(char** path)
{
    const LmOlNode* node = nodeAtPath(path);
    return !node || node->nchild() == 0 ? -1 : !node->isOpen();
}

// --- styles ----------------------------------------------------------------------------------------------------------

int LmOutline::setHighlightAttributes(Pixel foreground, Pixel background, Pixel markColor, XmFontList font)
{
    return _list ? _params->setAttributeSet(foreground, background, markColor, font) : 0;
}

int LmOutline::setKeywordAttributes(Pixel foreground, Pixel background, XmFontList font)
{
    return _keywordAttr = setHighlightAttributes(foreground, background, background, font);
}

void LmOutline::displayAsKeyword(char** path)
{
    if (LmOlNode* node = nodeAtPath(path))
        node->highlight(_keywordAttr, _params.get());
}

void LmOutline::highlight(char** keys, int attr)
{
    for (; keys && *keys; ++keys)
        if (LmOlNode* node = nodeWithKey(*keys))
            node->highlight(attr, _params.get());
}

void LmOutline::highlight(int position, int attr)
{
    int level = 0;
    if (LmOlNode* node = nodeAt(position, &level))
        node->highlight(attr, _params.get());
}

void LmOutline::unhighlight(int attr) { _root->unhighlight(attr, _params.get()); }

void LmOutline::walkAllKeywords(void* clientData, void (*fn)(void*, LmOlNode*))
{
    visitEveryKeyword(_root.get(), clientData, fn);
}

void LmOutline::visitEveryKeyword(LmOlNode* start, void* clientData, void (*fn)(void*, LmOlNode*))
{
    if (!start)
        return;
    lm::walkTree(start, 0, [&](LmOlNode* node, int) {
        if (node->attrIndex() == _keywordAttr)
            fn(clientData, node);
        return false;
    });
}
