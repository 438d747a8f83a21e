#include "tests/support/OnScreen.h"   // first: gtest must come before X.h defines None

#include "LmMenuUndoManager.h"
#include "LmSubMenu.h"

#include <Xm/RowColumn.h>

#include <memory>
#include <random>

using namespace lmtest;

namespace {

char bar[] = "bar";

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
        multiLevel ? stack.pop_back() : reset();
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
        const auto kind = random() % 32;
        if (kind == 0) {
            manager.reset();
            model.reset();
        } else if (kind == 1) {
            manager.setMultiLevel(model.multiLevel = random() % 4 != 0);
        } else if (kind == 2) {
            actions[which].reset();
            std::erase(model.stack, which);
        } else if (kind < 11) {
            undone = 0;
            manager.undo();
            ASSERT_EQ(undone, model.undo()) << "step " << step;
        } else if (kind < 16) {
            manager.add("stub", remember, lm::asPointer(100 + step));
            model.add(100 + step);
        } else {
            if (!actions[which])
                actions[which] = std::make_unique<LmMenuAction>("action", nullptr, remember, lm::asPointer(which));
            manager.add(actions[which].get());
            model.add(which);
        }
        ASSERT_EQ(manager.size(), static_cast<int>(model.stack.size())) << "step " << step;
    }
}

TEST_F(OnScreen, TheUndoEntryNamesWhatItWouldUndo)
{
    setResource("*Pasted: Einf\374gen");
    LmMenuUndoManager* undo = getTheUndoManager();
    LmMenu::useWorkProcs(false);
    Widget parent = XtVaCreatePopupShell("parent", transientShellWidgetClass, app().baseWidget(), nullptr);
    const auto newMenu = [&] { return new LmSubMenu(XmCreateMenuBar(parent, bar, nullptr, 0), "Edit", nullptr, nullptr); };
    LmSubMenu* menu = newMenu();
    menu->add(undo);
    LmMenuItem* first = menu->addAction("A", remember, remember, lm::asPointer(1), -1);
    LmMenuItem* second = menu->addAction("B", remember, remember, lm::asPointer(2), -1);
    const auto choose = [](LmMenuItem* item) { XtCallCallbacks(item->baseWidget(), XmNactivateCallback, nullptr); };
    const auto label = [&] { return textOf(undo->baseWidget()); };
    EXPECT_FALSE(XtIsSensitive(undo->baseWidget()));

    choose(first), choose(second), choose(undo);
    EXPECT_EQ(undone, 2);
    EXPECT_EQ(label(), "Undo: A");
    undo->add("Pasted", remember, nullptr);   // discards A
    choose(first);
    delete first;   // leaves the stack
    EXPECT_EQ(undo->size(), 1);
    EXPECT_EQ(label(), "Undo: Einf\374gen");
    delete menu;
    EXPECT_EQ(undo->baseWidget(), nullptr);
    newMenu()->add(undo);
    EXPECT_EQ(label(), "Undo: Einf\374gen");
    XtDestroyWidget(parent);
}
