#include "tests/support/OnScreen.h"   // first: gtest must come before X.h defines None

#include "examples/gallery/GalleryWindow.h"

#include <Xm/Label.h>
#include <Xm/LabelG.h>
#include <Xm/ScrolledW.h>
#include <Xm/XmP.h>

#include <fstream>

using namespace lmtest;

namespace {

constexpr int margin = 10;

/// The gallery's own resources, as its app-defaults file has them. The test's application is of another class.
void loadResources()
{
    XrmDatabase database = XtDatabase(app().display());
    std::ifstream file(LUMORA_SOURCE_DIR "/examples/gallery/app-defaults/Gallery");
    std::string line, whole;
    while (std::getline(file, line)) {
        whole += line;
        if (whole.ends_with('\\')) {
            whole.pop_back();
            continue;
        }
        if (whole.starts_with("Gallery"))
            whole.replace(0, 7, "LmTest");
        XrmPutLineResource(&database, whole.c_str());
        whole.clear();
    }
}

bool isText(Widget w)
{
    unsigned char type = XmPIXMAP;
    XtVaGetValues(w, XmNlabelType, &type, nullptr);
    return (XmIsLabel(w) || XmIsLabelGadget(w)) && type == XmSTRING;
}

/// Calls `visit` with every managed widget below, but not with what scrolls.
template <class Visit> void walk(Widget w, Visit visit)
{
    if (!XtIsComposite(w) || XmIsScrolledWindow(w) || std::string(XtName(w)) == "clip" || std::string(XtName(w)) == "viewport")
        return;
    WidgetList children = nullptr;
    Cardinal count = 0;
    XtVaGetValues(w, XmNchildren, &children, XmNnumChildren, &count, nullptr);
    for (Cardinal i = 0; i < count; ++i) {
        if (!XtIsManaged(children[i]))
            continue;
        visit(children[i]);
        walk(children[i], visit);
    }
}

/// Where the widget is in an ancestor.
std::pair<int, int> placeIn(Widget ancestor, Widget w)
{
    int x = 0, y = 0;
    for (; w != ancestor; w = XtParent(w)) {
        x += w->core.x;
        y += w->core.y;
    }
    return {x, y};
}

/// What is wrong with a page; empty when nothing is.
std::string faultsOf(Widget page)
{
    std::string faults;
    walk(page, [&](Widget w) {
        const auto [x, y] = placeIn(page, w);
        const int right = page->core.width - x - w->core.width, bottom = page->core.height - y - w->core.height;
        if (isText(w)) {
            XtWidgetGeometry natural{};
            XtQueryGeometry(w, nullptr, &natural);
            if (w->core.width < natural.width || w->core.height < natural.height)
                faults += std::string(XtName(w)) + " is clipped " + std::to_string(w->core.width) + "x" +
                          std::to_string(w->core.height) + " of " + std::to_string(natural.width) + "x" +
                          std::to_string(natural.height) + "; ";
            if (x < 0 || y < 0 || right < 0 || bottom < 0)
                faults += std::string(XtName(w)) + " leaves the page; ";
        }
        if (!XtIsComposite(w) && (x < margin || y < margin || right < margin || bottom < margin))
            faults += std::string(XtName(w)) + " touches the edge; ";
    });
    return faults;
}

}   // namespace

struct GalleryOnScreen : OnScreen {};

TEST_F(GalleryOnScreen, NoTextIsClippedAndNothingTouchesTheEdgeAtThreeSizes)
{
    loadResources();
    new LmSimpleWindow("keeper");
    auto* gallery = new GalleryWindow;
    gallery->show();
    settle();
    for (const auto& [width, height] : {std::pair(860, 580), std::pair(1000, 700), std::pair(1400, 950)}) {
        XtVaSetValues(gallery->baseWidget(), XmNwidth, width, XmNheight, height, nullptr);
        settle();
        for (int i = 0; i < gallery->pageCount(); ++i) {
            gallery->choose(i);
            settle();
            EXPECT_EQ(takeErrors(), std::vector<std::string>()) << gallery->page(i).name();
            EXPECT_EQ(faultsOf(gallery->page(i).baseWidget()), "") << gallery->page(i).name() << " at " << width << "x" << height;
        }
    }
    delete gallery;
}
