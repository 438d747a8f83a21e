// The jobs with Lumora.
#include "Job.h"

#include <Lm/LmApp.h>
#include <Lm/LmForkIO.h>
#include <Lm/LmMenuBar.h>
#include <Lm/LmOutline.h>
#include <Lm/LmSubMenu.h>
#include <Lm/LmWindow.h>
#include <Lm/support/resources.h>

#include <Xm/PushB.h>
#include <Xm/RowColumn.h>
#include <Xm/Text.h>

#include <memory>

class StartWindow : public LmWindow {
public:
    StartWindow() : LmWindow("start")
    {
        for (int m = 0; m < menus; ++m) {
            LmSubMenu* menu = addMenuPane(title("Menu ", m).c_str());
            for (int i = 0; i < entriesPerMenu; ++i)
                menu->addAction(title("Entry ", i).c_str(), nullptr, nullptr);
        }
    }
    Widget setUpInterface(Widget parent) override
    {
        Widget column = XtVaCreateWidget("column", xmRowColumnWidgetClass, parent, nullptr);
        Arg size[] = {{lm::xtText(XmNeditMode), XmMULTI_LINE_EDIT}, {lm::xtText(XmNrows), 10}, {lm::xtText(XmNcolumns), 60}};
        Widget text = XmCreateScrolledText(column, lm::xtText("text"), size, XtNumber(size));
        XmTextSetString(text, lm::xtText("hello, world\n"));
        XtManageChild(text);
        Widget grid = XtVaCreateManagedWidget("grid", xmRowColumnWidgetClass, column, XmNpacking, XmPACK_COLUMN, XmNorientation,
                                              XmHORIZONTAL, XmNnumColumns, 4, nullptr);
        for (int i = 0; i < buttons; ++i)
            XtVaCreateManagedWidget(title("Button ", i).c_str(), xmPushButtonWidgetClass, grid, nullptr);
        return column;
    }
};

class OutlineWindow : public LmSimpleWindow {
public:
    OutlineWindow() : LmSimpleWindow("outline") {}
    Widget setUpInterface(Widget parent) override
    {
        outline = std::make_unique<LmOutline>("rows", parent, XmCONSTANT);
        return outline->baseWidget();
    }
    void fill()
    {
        std::vector<std::string> names;
        const auto add = [&](const char* parent) {
            std::vector<char*> children;
            for (std::string& name : names)
                children.push_back(name.data());
            children.push_back(nullptr);
            char* path[] = {const_cast<char*>(parent), nullptr};
            outline->addChildren(path, children.data());
            names.clear();
        };
        for (int g = 0; g < groups; ++g)
            names.push_back(groupName(g));
        add(nullptr);
        for (int g = 0; g < groups; ++g) {
            for (int i = 0; i < childrenPerGroup; ++i)
                names.push_back(nodeName(g, i));
            add(groupName(g).c_str());
        }
        outline->displayAll();
    }
    std::unique_ptr<LmOutline> outline;
};

class ConsoleWindow : public LmSimpleWindow {
public:
    ConsoleWindow() : LmSimpleWindow("console") {}
    Widget setUpInterface(Widget parent) override
    {
        console = std::make_unique<LmForkIO>("pane", parent, nullptr);
        console->show();
        return console->baseWidget();
    }
    std::unique_ptr<LmForkIO> console;
};

/// Until everything that was sent is drawn.
static void untilDrawn()
{
    for (int i = 0; i < 2; ++i) {
        theApplication->handlePendingEvents();
        XSync(theApplication->display(), False);
    }
}

int main(int argc, char** argv)
{
    Job job(argc, argv);
    LmApp app("Peer", &argc, argv, nullptr, 0);
    if (job.is("start")) {
        (new StartWindow)->show();
        untilDrawn();
        job.done();
    }
    if (job.is("outline")) {
        auto* window = new OutlineWindow;
        window->show();
        untilDrawn();
        job.begin();
        window->fill();
        untilDrawn();
        job.done();
    }
    auto* window = new ConsoleWindow;
    window->show();
    untilDrawn();
    bool ended = false;
    window->console->addCallback(
        LmForkIO::exitCallback, [](LmCallbackObject*, void* flag, void*) { *static_cast<bool*>(flag) = true; }, &ended);
    job.begin();
    window->console->execCommand((std::string("sh -c '") + writer + "'").c_str());
    while (!ended)
        XtAppProcessEvent(app.appContext(), XtIMAll);
    untilDrawn();
    job.done();
}
