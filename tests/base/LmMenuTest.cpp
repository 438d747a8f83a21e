#include "tests/support/OnScreen.h"   // first: gtest must come before X.h defines None

#include "LmMenuAction.h"
#include "LmSubMenu.h"

using namespace lmtest;

namespace {

void note(Widget, XtPointer, XtPointer) {}

char given[] = "given", byDefault[] = "default";

// clang-format off
LmMenuDesc more[] = {
    {MENU_ACTION, "Deep", note},
    {MENU_ACTION_STUB, "skipped"},
    {MENU_END}};
LmMenuDesc table[] = {
    {MENU_ACTION, "Open", note, nullptr, given},
    {MENU_ACTION_WIDGET, "Print", note},
    {MENU_SEPARATOR},
    {MENU_LABEL, "Colours"},
    {MENU_TOGGLE, "Bold", note, nullptr, nullptr, note},
    {MENU_RADIO_SUBMENU, "More", nullptr, more, given},
    {MENU_POPUP, "skipped"},
    {MENU_CONFIRM_FIRST_ACTION, "Erase", note},
    {MENU_END}};
// clang-format on

struct Menu : LmSubMenu {
    explicit Menu(const LmMenuDesc* desc = nullptr) : LmSubMenu("menu", desc, byDefault) {}
    std::string names()
    {
        std::string all;
        for (int i = 0; i < numItems(); ++i)
            all += std::string(i ? " " : "") + (*this)[i]->name();
        return all;
    }
};

}   // namespace

TEST(MenuModel, ATableMakesItsTreeWithoutWidgets)
{
    Menu menu(table);
    EXPECT_EQ(menu.names(), "Open Print separator Colours Bold More Erase");
    EXPECT_EQ(menu[7], nullptr);

    LmMenuItem* deep = menu.findNamedItem("dEEP", true, true);
    ASSERT_TRUE(deep);
    EXPECT_EQ(menu.findParent(deep), menu[5]);
    EXPECT_EQ(menu.findNamedItem("Deep", true, false), nullptr);
}

TEST(MenuModel, ItemsAreInsertedReplacedAndTakenOut)
{
    Menu menu;
    for (int i = 0; i < 7; ++i)
        menu.addLabel(std::string(1, static_cast<char>('a' + i)).c_str(), i == 6 ? 99 : 0);
    EXPECT_EQ(menu.names(), "f e d c b a g");
    EXPECT_EQ(menu.getItemPosition("d"), 2);
    EXPECT_EQ(menu.getItemPosition("nobody"), -1);

    auto* unnamed = new LmMenuActionStub(nullptr, nullptr, nullptr);
    const std::unique_ptr<LmMenuItem> old(menu.replace("d", unnamed)), removed(menu.removeItem("f"));
    EXPECT_STREQ(old->name(), "d");
    EXPECT_EQ(menu[1], unnamed);
    delete unnamed;
    delete menu[0];
    EXPECT_EQ(menu.names(), "c b a g");
}

TEST(MenuModel, ATableNestedInItselfEndsWithAMessage)
{
    LmMenuDesc endless[] = {{MENU_SUBMENU, "one"}, {MENU_SUBMENU, "two"}, {MENU_END}};
    endless[0].submenu = endless[1].submenu = endless;
    const auto nest = [&] {
        Menu menu(endless);
        int depth = 0;
        for (LmMenu* level = &menu; level->numItems() > 0; level = static_cast<LmMenu*>((*level)[0]))
            ++depth;
        EXPECT_EQ(depth, 64);
    };
    EXPECT_EQ(stderrOf(nest), "LmMenu: menu tables are nested more than 64 deep\n");
}
