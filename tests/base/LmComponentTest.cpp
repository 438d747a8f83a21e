#include "tests/support/OnScreen.h"   // first: gtest must come before X.h defines None

#include "LmCallback.h"
#include "support/resources.h"

#include <Xm/DrawingA.h>

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
    void widgetDestroyed() override
    {
        if (deaths)
            ++*deaths;
        LmComponent::widgetDestroyed();
    }
    using LmComponent::setDefaultResources;
    int* deaths;
};

using ComponentOnScreen = OnScreen;

std::string valueOf(const char* name, const char* cls)
{
    char* type = nullptr;
    XrmValue value = {};
    return XrmGetResource(XtDatabase(app().display()), name, cls, &type, &value) ? value.addr : "(none)";
}

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

TEST_F(ComponentOnScreen, OnlyLivingComponentsAreComponents)
{
    alignas(LmComponent) static unsigned char place[sizeof(LmComponent)];
    auto* component = new (place) LmComponent("c");
    EXPECT_TRUE(LmComponent::isComponent(component));
    component->~LmComponent();
    EXPECT_FALSE(LmComponent::isComponent(component));
    EXPECT_FALSE(LmComponent::isComponent(nullptr));
    EXPECT_FALSE(LmComponent::isComponent(reinterpret_cast<LmComponent*>(8)));
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
}

TEST_F(ComponentOnScreen, AFunctorLeavesItsWidgetAndSurvivesIt)
{
    struct Count : LmCallback {
        using LmCallback::LmCallback;
        void callback(void*) override { ++calls; }
        int calls = 0;
    };
    Panel panel("panel", shell());
    Widget other = XtVaCreateWidget("other", xmDrawingAreaWidgetClass, panel.baseWidget(), nullptr);
    Count(other, XmNresizeCallback);   // gone at once
    Count count(other, XmNresizeCallback);
    XtCallCallbacks(other, XmNresizeCallback, nullptr);
    count.attach(panel.baseWidget(), XmNresizeCallback);
    XtCallCallbacks(other, XmNresizeCallback, nullptr);
    EXPECT_EQ(count.calls, 1);
    destroyShell();
    count.attach(nullptr, nullptr);   // must not touch the widget that is gone
}
