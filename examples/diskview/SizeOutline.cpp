#include "SizeOutline.h"

#include <Lm/LmResource.h>
#include <Lm/support/xt.h>

#include <Xm/List.h>

#include <algorithm>
#include <chrono>
#include <cstdint>

using Clock = std::chrono::steady_clock;

const char* const SizeOutline::shownCallback = "shownCallback";
const char* const SizeOutline::chosenCallback = "chosenCallback";

static constexpr auto slice = std::chrono::milliseconds(4);

static bool isDark(Display* display, Pixel pixel)
{
    XColor color = {};
    color.pixel = pixel;
    XQueryColor(display, DefaultColormap(display, DefaultScreen(display)), &color);
    return color.red + color.green + color.blue < 3 * 0x8000;
}

SizeOutline::SizeOutline(const char* name, Widget parent)
    : LmOutlineASB(name, parent),
      _making([this] { return makeNodes(); }),
      _deleting([this] { return deleteNodes(); })
{
    const auto colour = [this](const char* resource, const char* fallback) {
        return static_cast<Pixel>(
            reinterpret_cast<std::uintptr_t>(LmGetResource(listWidget(), resource, "Color", XtRPixel, fallback)));
    };
    Pixel foreground = 0, background = 0;
    XtVaGetValues(listWidget(), XmNforeground, &foreground, XmNbackground, &background, nullptr);
    const char* tint = isDark(XtDisplay(listWidget()), background) ? "#594a1c" : "#ffe28a";
    _markStyle = setHighlightAttributes(foreground, colour("markBackground", tint), colour("markColor", "#c0392b"), nullptr);
    _excludedStyle = setHighlightAttributes(colour("excludedForeground", "gray50"), background, background, nullptr);
    setAnnotation(_markStyle, True);
    lm::on<&SizeOutline::choose>(listWidget(), XmNbrowseSelectionCallback, this);
}

SizeOutline::~SizeOutline()
{
    if (listWidget())
        lm::off<&SizeOutline::choose>(listWidget(), XmNbrowseSelectionCallback, this);
    forgetUnshown();
    for (LmOlNode* node : _old)
        delete node;
}

void SizeOutline::clear()
{
    _making.stop();
    forgetUnshown();
    takeShown();
    _tree = nullptr;
    _chosen = nullptr;
    _open.clear();
}

/// Nodes that no node has taken as a child yet are ours.
void SizeOutline::forgetUnshown()
{
    for (auto* branches : {&_branches, &_made}) {
        for (Branch& branch : *branches)
            for (LmOlNode* node : branch.below)
                delete node;
        branches->clear();
    }
}

/// Empties the outline. A hundred thousand nodes take a while to delete: that is done in idle time, too.
void SizeOutline::takeShown()
{
    for (int i = 0; i < root()->nchild(); ++i)
        _old.push_back(root()->child(i));
    for (LmOlNode* node : _old)
        root()->removeChild(node);
    reset();
    _deleting.start();
}

bool SizeOutline::deleteNodes()
{
    const auto end = Clock::now() + slice;
    while (!_old.empty() && Clock::now() < end)
        for (int i = 0; i < 32 && !_old.empty(); ++i) {
            LmOlNode* node = _old.back();
            _old.pop_back();
            const auto first = static_cast<std::ptrdiff_t>(_old.size());
            for (int child = 0; child < node->nchild(); ++child)
                _old.push_back(node->child(child));
            std::for_each(_old.begin() + first, _old.end(), [node](LmOlNode* child) { node->removeChild(child); });
            delete node;
        }
    return _old.empty();
}

// --- making ------------------------------------------------------------------------------------------------------------

void SizeOutline::build(Tree& tree, const Look& look)
{
    forgetUnshown();
    if (_tree != &tree)
        for (const Entry* top : tree.tops())
            _open.insert(top->number);
    _tree = &tree;
    _look = look;
    _nodes.assign(tree.size(), nullptr);
    _tops = bySize(tree.tops(), look.measure);
    _nextTop = 0;
    _making.start();
}

/// Goes through the tree, parents first; a slice of it.
bool SizeOutline::makeNodes()
{
    const auto end = Clock::now() + slice;
    while (Clock::now() < end) {
        if (_branches.empty()) {
            if (_nextTop == _tops.size()) {
                show();
                return true;
            }
            begin(*_tops[_nextTop++], nullptr);
        }
        for (int i = 0; i < 32 && !_branches.back().waiting.empty(); ++i) {
            Branch& branch = _branches.back();
            Entry& entry = *branch.waiting.back();
            branch.waiting.pop_back();
            LmOlNode* node = makeNode(entry);
            if (branch.node)
                branch.node->addChild(node);
            else
                branch.below.push_back(node);
            if (!entry.children.empty())
                begin(entry, node);
        }
        while (!_branches.empty() && _branches.back().waiting.empty()) {
            if (!_branches.back().node)
                _made.push_back(std::move(_branches.back()));
            _branches.pop_back();
        }
    }
    return false;
}

void SizeOutline::begin(Entry& entry, LmOlNode* node)
{
    std::vector<Entry*> children = bySize(entry.children, _look.measure);
    std::reverse(children.begin(), children.end());
    _branches.push_back({&entry, node, {}, std::move(children)});
}

std::string SizeOutline::labelOf(const Entry& entry) const
{
    std::string size = sizeText(entry.total.by(_look.measure), _look.units);
    size.insert(0, size.size() < 9 ? 9 - size.size() : 0, ' ');
    return size + "  " + shownName(entry.name);
}

int SizeOutline::styleOf(const Entry& entry) const
{
    if (entry.isExcluded)
        return _excludedStyle;
    return entry.total.by(_look.measure) > _look.markAbove ? _markStyle : 0;
}

/// What is marked in a directory shows in the arrow of the directory, which is larger still.
LmOlNode* SizeOutline::makeNode(Entry& entry)
{
    std::string label = labelOf(entry), key = std::to_string(entry.number);
    auto* node = new LmOlNode(label.data(), key.data(), &entry);
    node->setAttrIndex(styleOf(entry));
    const auto isMarked = [this](const Entry* child) { return styleOf(*child) == _markStyle; };
    if (std::any_of(entry.children.begin(), entry.children.end(), isMarked))
        node->setMaxChildAttrIndex(_markStyle);
    if (_open.count(entry.number) == 0)
        node->Close();
    return _nodes[entry.number] = node;
}

// --- showing -----------------------------------------------------------------------------------------------------------

void SizeOutline::show()
{
    int topRow = 1;
    XtVaGetValues(listWidget(), XmNtopItemPosition, &topRow, nullptr);
    takeShown();
    for (Branch& branch : _made) {
        std::string label = labelOf(*branch.entry), key = std::to_string(branch.entry->number);
        char *labels[] = {label.data(), nullptr}, *keys[] = {key.data(), nullptr};
        LmOlNode* node = createPath(labels, keys);
        node->setHook(branch.entry);
        node->setAttrIndex(styleOf(*branch.entry));
        for (LmOlNode* child : branch.below) {
            node->addChild(child);
            if (child->attrIndex() == _markStyle)
                node->setMaxChildAttrIndex(_markStyle);
        }
        if (_open.count(branch.entry->number) == 0)
            node->Close();
        _nodes[branch.entry->number] = node;
        branch.below.clear();
    }
    _made.clear();
    displayAll();
    int rows = 0, visible = 0;
    XtVaGetValues(listWidget(), XmNitemCount, &rows, XmNvisibleItemCount, &visible, nullptr);
    if (rows > 0)
        XmListSetPos(listWidget(), std::clamp(topRow, 1, std::max(1, rows - visible + 1)));
    if (_chosen && _nodes[_chosen->number])
        select(_nodes[_chosen->number]->whereDisplayed());
    callCallbacks(shownCallback, nullptr);
}

// --- what the user does ------------------------------------------------------------------------------------------------

/// A toggle takes the selection away; what was chosen stays so.
void SizeOutline::toggleChildren(int position)
{
    LmOutlineASB::toggleChildren(position);
    auto* entry = static_cast<Entry*>(getHookAt(position));
    int row = 0, count = 0;
    if (!entry)
        return;
    if (effectOfLastToggle(row, count))
        _open.insert(entry->number);
    else if (row > 0)
        _open.erase(entry->number);
    select(position);
}

void SizeOutline::choose(XmListCallbackStruct* choice)
{
    _chosen = static_cast<Entry*>(getHookAt(choice->item_position));
    callCallbacks(chosenCallback, nullptr);
}
