#include "LmOlDisplayParams.h"
#include "LmOlNode.h"
#include "LmOutline.h"
#include "OlBranch.h"
#include "SvScrollBar.h"
#include "support/resources.h"

#include <Xm/List.h>

#include <algorithm>
#include <vector>

int LmOutlineASB::autoScrollPos = 0;

LmOutlineASB::LmOutlineASB(const char* name, Widget parent) : LmOutline(name, parent, XmVARIABLE)
{
    XtVaGetValues(_w, XmNverticalScrollBar, &_scrollBar, nullptr);
    if (_scrollBar)
        XtAddCallback(_scrollBar, lm::xtText("troughPixmapCallback"), ASBpixmapCallback, static_cast<LmOutlineASB*>(this));
}

void LmOutlineASB::widgetDestroyed()
{
    _scrollBar = nullptr;
    LmOutline::widgetDestroyed();
}

void LmOutlineASB::setAnnotation(int attr, Boolean on)
{
    if (attr >= 0 && attr < std::ssize(_annotate))
        _annotate[attr] = on;
}

bool LmOutlineASB::isBarRealized() const { return _scrollBar && XtIsRealized(_scrollBar); }

void LmOutlineASB::redisplayBar()
{
    if (isBarRealized())
        SvScrollBarRedisplay(_scrollBar);
}

void LmOutlineASB::toggleChildren(int position)
{
    LmOutline::toggleChildren(position);
    redisplayBar();
}

void LmOutlineASB::displayAll()
{
    LmOutline::displayAll();
    redisplayBar();
}

void LmOutlineASB::highlight(int position, int attr)
{
    LmOutline::highlight(position, attr);
    redisplayBar();
}

void LmOutlineASB::unhighlight(int attr)
{
    LmOutline::unhighlight(attr);
    redisplayBar();
}

void LmOutlineASB::highlight(char** keys, int attr)
{
    autoScrollPos = 0;
    LmOutline::highlight(keys, attr);
    redisplayBar();   // paints the marks, and finds the first of them
    const bool isMarked = attr >= 0 && attr < std::ssize(_annotate) && _annotate[attr];
    if (!isMarked || autoScrollPos == 0 || !listWidget())
        return;
    int visible = 0;
    XtVaGetValues(listWidget(), XmNvisibleItemCount, &visible, nullptr);
    XmListSetPos(listWidget(), std::max(1, autoScrollPos - visible / 2));
}

void LmOutlineASB::ASBpixmapCallback(Widget, XtPointer clientData, XtPointer callData) noexcept
{
    auto* outline = static_cast<LmOutlineASB*>(clientData);
    if (outline->isBarRealized())
        outline->paintAsbPixmap(*static_cast<SvTroughCallbackStruct*>(callData));
}

namespace {

/// Calls `visit` with every shown node and its row, the descendants of a node before the node.
template <class Visit> void walkShown(LmOlNode* root, Visit visit)
{
    struct At {
        LmOlNode* node;
        int nextChild;
        int row;
    };
    std::vector<At> path{{root, 0, 0}};
    while (!path.empty()) {
        At& at = path.back();
        if (at.nextChild < at.node->nchild()) {
            LmOlNode* child = at.node->child(at.nextChild);
            const int row = lm::OutlineSteps::rowOfChild(*at.node, at.row, at.nextChild++);
            if (row > 0)
                path.push_back({child, child->isOpen() ? 0 : child->nchild(), row});
            continue;
        }
        if (at.row > 0)
            visit(*at.node, at.row);
        path.pop_back();
    }
}

}   // namespace

void LmOutlineASB::paintAsbPixmap(const SvTroughCallbackStruct& trough)
{
    if (trough.rows <= 0 || std::none_of(std::begin(_annotate), std::end(_annotate), [](bool on) { return on; }))
        return;
    const float scale = static_cast<float>(trough.height) / static_cast<float>(trough.rows);
    const int height = scale > 2.0F ? 2 : static_cast<int>(scale + 0.5F);
    Display* display = XtDisplay(_scrollBar);
    int lastSet = -1, lastY = -1;
    walkShown(root(), [&](const LmOlNode& node, int row) {
        const int set = node.isOpen() ? node.attrIndex() : std::max(node.attrIndex(), node.maxChildAttrIndex());
        if (set < 0 || set >= std::ssize(_annotate) || !_annotate[set])
            return;
        const int y = static_cast<int>(static_cast<float>(row) * scale);
        GC gc = params()->gc(set);
        const bool isThereAlready = set == lastSet && y == lastY;   // thousands of rows may share a pixel
        if (gc && !isThereAlready && trough.width > 5 && height > 0)
            XFillRectangle(display, trough.pixmap, gc, 2, y, static_cast<unsigned>(trough.width - 5),
                           static_cast<unsigned>(height));
        lastSet = set;
        lastY = y;
        if (autoScrollPos == 0)
            autoScrollPos = row;
    });
}
