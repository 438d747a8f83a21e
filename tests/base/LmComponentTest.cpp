#include "tests/support/OnScreen.h"   // first: gtest must come before X.h defines None

#include "LmCallback.h"
#include "LmComponentList.h"
#include "LmWidgetList.h"
#include "support/resources.h"

#include <Xm/DrawingA.h>
#include <Xm/Label.h>

#include <memory>
#include <new>

using namespace lmtest;

namespace {

struct Panel : LmComponent {
    Panel(const char* name, Widget parent, int* count = nullptr) : LmComponent(name), deaths(count)
    {
        _w = XtVaCreateWidget(name, xmDrawingAreaWidgetClass, parent, XmNwidth, 50, XmNheight, 50, nullptr);
        installDestroyHandler();
    }
    const char* className() override { return "Panel"; }
    void afterRealizeHook() override { ++realized; }
    void widgetDestroyed() override
    {
        if (deaths)
            ++*deaths;
        LmComponent::widgetDestroyed();
    }
    using LmComponent::setDefaultResources;
    int loadSpeed()
    {
        XtResource table[] = {lm::resource(static_cast<LmComponent*>(this), speed, "speed", "Speed", "7")};
        getResources(table, std::ssize(table));
        return speed;
    }

    int speed = 0, realized = 0;
    int* deaths;
};

using ComponentOnScreen = OnScreen;

std::string valueOf(const char* name, const char* cls)
{
    char* type = nullptr;
    XrmValue value = {};
    return XrmGetResource(XtDatabase(app().display()), name, cls, &type, &value) ? value.addr : "(none)";
}

struct Count : LmCallback {
    using LmCallback::LmCallback;
    void callback(void*) override { ++calls; }
    int calls = 0;
};

}   // namespace

TEST_F(ComponentOnScreen, ObjectAndWidgetsMayDieInEitherOrder)
{
    int deaths = 0;
    auto outlives = std::make_unique<Panel>("outlives", shell(), &deaths);
    Heard deleted(*outlives, LmComponent::deleteCallback);
    auto* first = new Panel("first", shell(), &deaths);
    show(*outlives);
    delete first;
    EXPECT_EQ(deaths, 0);   // the object went first: it has nothing to learn

    destroyShell();
    EXPECT_EQ(deaths, 1);
    EXPECT_EQ(outlives->baseWidget(), nullptr);
    outlives->show();
    outlives->hide();
    EXPECT_TRUE(LmComponent::isComponent(outlives.get()));
    outlives.reset();
    EXPECT_EQ(deleted.values.size(), 1U);
}

TEST_F(ComponentOnScreen, DeletionInsideItsOwnWidgetsCallbacksIsSafe)
{
    for (const char* list : {XmNexposeCallback, XmNdestroyCallback, XmNresizeCallback}) {
        auto* panel = new Panel("panel", shell());
        XtAddCallback(
            panel->baseWidget(), list, [](Widget, XtPointer p, XtPointer) { delete static_cast<Panel*>(p); }, panel);
        XtManageChild(panel->baseWidget());
        XtPopup(shell(), XtGrabNone);
        settle();
        XResizeWindow(app().display(), XtWindow(shell()), 90, 90);   // inside a dispatch: Motif itself survives nothing else
        settle();
        destroyShell();
        EXPECT_FALSE(LmComponent::isComponent(panel)) << list;
    }
}

TEST_F(ComponentOnScreen, TheHookRunsOnceAtTheFirstMap)
{
    Panel panel("panel", shell());
    show(panel);
    EXPECT_EQ(panel.realized, 1);
    panel.hide();
    panel.show();
    settle();
    EXPECT_EQ(panel.realized, 1);

    Panel late("late", panel.baseWidget());
    late.realize();
    late.show();
    settle();
    EXPECT_EQ(late.realized, 0);
}

TEST_F(ComponentOnScreen, OnlyLivingComponentsAreComponents)
{
    alignas(LmComponent) static unsigned char place[sizeof(LmComponent)];
    auto* component = new (place) LmComponent("c");
    EXPECT_TRUE(LmComponent::isComponent(component));
    component->~LmComponent();
    EXPECT_FALSE(LmComponent::isComponent(component));
    EXPECT_FALSE(LmComponent::isComponent(nullptr));
    EXPECT_FALSE(LmComponent::isComponent(reinterpret_cast<LmComponent*>(8)));
    LmComponent latin("\xe9tat"), empty("");
    EXPECT_FALSE(LmComponent::isComponent(&latin));
    EXPECT_TRUE(LmComponent::isComponent(&empty));
}

TEST_F(ComponentOnScreen, DefaultsFillWhatTheUserLeftOpenAndNothingElse)
{
    setResource("*panel*colour: user's");
    Panel panel("panel", shell());
    const String lines[] = {lm::xtText("colour: ours"), lm::xtText("size: 3"), lm::xtText("-*elsewhere: yes"), nullptr};
    panel.setDefaultResources(shell(), lines);
    EXPECT_EQ(valueOf("lmtest.panel.colour", "A.B.C"), "user's");
    EXPECT_EQ(valueOf("lmtest.panel.size", "A.B.C"), "3");
    EXPECT_EQ(valueOf("lmtest.elsewhere", "A.B"), "yes");

    Panel hostile("x: 1\n*planted", shell());
    hostile.setDefaultResources(shell(), lines);
    EXPECT_EQ(valueOf("lmtest.planted.size", "A.B.C"), "(none)");
    EXPECT_EQ(valueOf("lmtest.x", "A.B"), "(none)");

    EXPECT_EQ(panel.loadSpeed(), 7);
    setResource("*Panel.Speed: 9");
    EXPECT_EQ(panel.loadSpeed(), 9);
}

TEST_F(ComponentOnScreen, ListsForgetWhatTheyAreToldAndDestroyedWidgets)
{
    LmComponentList components;
    LmComponent a("a"), b("b");
    for (LmComponent* component : {&a, &b, &a})
        components.add(component);
    components.removeLast(&a);
    EXPECT_EQ(components[0], &a);
    components.add(&a);
    components.removeFirst(&a);
    EXPECT_EQ(components[0], &b);
    EXPECT_EQ(components[2], nullptr);
    components.remove(&a);
    EXPECT_EQ(components.size(), 1);

    Panel panel("panel", shell());
    Widget label = XtVaCreateWidget("label", xmLabelWidgetClass, panel.baseWidget(), nullptr);
    LmWidgetList widgets;
    widgets.add(label);
    widgets.add(&panel);
    widgets.add(label);
    XtDestroyWidget(label);
    settle();
    EXPECT_EQ(widgets.size(), 1);
    EXPECT_TRUE(widgets.exists(panel.baseWidget()));
    widgets.remove(&panel);
    widgets.removeFirst();
    EXPECT_EQ(widgets.size(), 0);
}

TEST_F(ComponentOnScreen, AFunctorLeavesItsWidgetAndSurvivesIt)
{
    Panel panel("panel", shell());
    Widget other = XtVaCreateWidget("other", xmDrawingAreaWidgetClass, panel.baseWidget(), nullptr);
    auto gone = std::make_unique<Count>(other, XmNresizeCallback);
    Count count(other, XmNresizeCallback);
    gone.reset();
    XtCallCallbacks(other, XmNresizeCallback, nullptr);
    count.attach(panel.baseWidget(), XmNresizeCallback);
    XtCallCallbacks(other, XmNresizeCallback, nullptr);
    EXPECT_EQ(count.calls, 1);
    destroyShell();
    count.attach(nullptr, nullptr);   // must not touch the widget that is gone
}
