#include "tests/support/OnScreen.h"   // first: gtest must come before X.h defines None

#include "LmMenuUndoManager.h"
#include "LmSubMenu.h"

#include <Xm/RowColumn.h>

#include <memory>
#include <random>

using namespace lmtest;

namespace {

std::vector<std::string> done;

void doIt(Widget, XtPointer text, XtPointer) { done.push_back(std::string("do ") + static_cast<const char*>(text)); }
void undoIt(Widget, XtPointer text, XtPointer) { done.push_back(std::string("undo ") + static_cast<const char*>(text)); }

char a[] = "A", b[] = "B", c[] = "C";

struct Rename : LmAction {
    Rename() : LmAction("Rename") {}
    void undoit() override { done.emplace_back("undo Rename"); }
    void doit() override { done.emplace_back("do Rename"); }
};

struct Move : LmMenuActionObject {
    using LmMenuActionObject::LmMenuActionObject;
    void undoit(void* data) override { undoIt(nullptr, data, nullptr); }
    void doit(void* data) override { doIt(nullptr, data, nullptr); }
};

/// What the manager is meant to do, in a few lines.
struct Model {
    void add(int action)
    {
        if (undoPerformed)
            stack.clear();
        undoPerformed = false;
        stack.push_back(action);
    }
    int undo()
    {
        undoPerformed = true;
        if (stack.empty())
            return 0;
        const int newest = stack.back();
        stack.pop_back();
        if (!multiLevel)
            reset();
        return newest;
    }
    void reset()
    {
        stack.clear();
        undoPerformed = false;
    }
    std::vector<int> stack;
    bool undoPerformed = false, multiLevel = true;
};

int undone;
void remember(Widget, XtPointer action, XtPointer) { undone = lm::asInt(action); }

}   // namespace

TEST(UndoModel, AHundredThousandRandomOperationsBehaveAsTheSimpleModel)
{
    std::mt19937 random(20240607);
    LmMenuUndoManager manager("Undo");
    Model model;
    std::unique_ptr<LmMenuAction> actions[8];   // 1 to 7 may die and come back; stubs are 100 and above
    for (int step = 0; step < 100000; ++step) {
        const int which = 1 + static_cast<int>(random() % 7);
        switch (random() % 32) {
        case 0:
            manager.reset();
            model.reset();
            break;
        case 1:
            model.multiLevel = random() % 4 != 0;
            manager.setMultiLevel(model.multiLevel);
            break;
        case 2:
            actions[which].reset();
            std::erase(model.stack, which);
            break;
        case 3:
        case 4:
        case 5:
        case 6:
        case 7:
        case 8:
        case 9:
        case 10:
            undone = 0;
            manager.undo();
            ASSERT_EQ(undone, model.undo()) << "step " << step;
            break;
        case 11:
        case 12:
        case 13:
        case 14:
        case 15:
            manager.add("stub", remember, lm::asPointer(100 + step));
            model.add(100 + step);
            break;
        default:
            if (!actions[which])
                actions[which] = std::make_unique<LmMenuAction>("action", nullptr, remember, lm::asPointer(which));
            manager.add(actions[which].get());
            model.add(which);
        }
        ASSERT_EQ(manager.size(), static_cast<int>(model.stack.size())) << "step " << step;
    }
}

TEST(UndoModel, CommandObjectsRegisterOnceAndLeaveTheStackWhenTheyDie)
{
    done.clear();
    LmMenuUndoManager* manager = getTheUndoManager();
    {
        Rename rename;
        rename.execute();
        EXPECT_EQ(manager->size(), 1);
        manager->undo();
        EXPECT_EQ(done, (std::vector<std::string>{"do Rename", "undo Rename"}));
        rename.execute();
    }
    EXPECT_EQ(manager->size(), 0);
    manager->undo();
    EXPECT_EQ(done.size(), 3u);
}

TEST_F(OnScreen, TheUndoEntryNamesWhatItWouldUndo)
{
    setResource("*Pasted: Einf\374gen");
    LmMenuUndoManager* undo = getTheUndoManager();
    undo->add("early", undoIt, a);
    Widget parent = XtVaCreatePopupShell("parent", transientShellWidgetClass, app().baseWidget(), nullptr);
    LmMenu::useWorkProcs(false);
    auto* menu = new LmSubMenu(XmCreateMenuBar(parent, a, nullptr, 0), "Edit", nullptr, nullptr);
    menu->add(undo);
    LmMenuItem* items[] = {menu->addAction("A", doIt, undoIt, a, -1), menu->addAction("B", doIt, undoIt, b, -1),
                           new Move("C", c)};
    menu->add(items[2]);
    const auto choose = [](LmMenuItem* item) { XtCallCallbacks(item->baseWidget(), XmNactivateCallback, nullptr); };
    const auto label = [&] { return textOf(undo->baseWidget()); };
    EXPECT_EQ(label(), "Undo: early");
    EXPECT_TRUE(XtIsSensitive(undo->baseWidget()));
    choose(undo);
    EXPECT_EQ(label(), "Undo");
    EXPECT_FALSE(XtIsSensitive(undo->baseWidget()));

    done.clear();
    for (LmMenuItem* item : items)
        choose(item);
    EXPECT_EQ(label(), "Undo: C");
    choose(undo);
    choose(undo);
    EXPECT_EQ(label(), "Undo: A");
    EXPECT_EQ(done, (std::vector<std::string>{"do A", "do B", "do C", "undo C", "undo B"}));
    undo->add("Pasted", undoIt, a);   // discards A
    EXPECT_EQ(undo->size(), 1);
    EXPECT_EQ(label(), "Undo: Einf\374gen");

    menu->addActionWidget("never", doIt, undoIt, a, -1);
    choose(menu->findNamedItem("never", false, false));
    EXPECT_EQ(undo->size(), 1);
    choose(items[0]);
    delete items[0];   // leaves the stack
    EXPECT_EQ(label(), "Undo: Einf\374gen");
    delete menu;
    EXPECT_TRUE(LmComponent::isComponent(undo));
    EXPECT_EQ(undo->size(), 1);
    EXPECT_EQ(undo->baseWidget(), nullptr);
    LmSubMenu again(XmCreateMenuBar(parent, b, nullptr, 0), "Edit", nullptr, nullptr);
    again.add(undo);
    EXPECT_EQ(label(), "Undo: Einf\374gen");
    XtDestroyWidget(parent);
}
