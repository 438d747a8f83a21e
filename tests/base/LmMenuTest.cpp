#include "tests/support/OnScreen.h"   // first: gtest must come before X.h defines None

#include "LmMenuBar.h"
#include "LmMenuConfirmFirstAction.h"
#include "LmMenuLabel.h"
#include "LmMenuToggle.h"
#include "LmSubMenu.h"

using namespace lmtest;

namespace {

std::vector<std::string> ran;   // what the callbacks heard: their client data

void note(Widget, XtPointer text, XtPointer) { ran.emplace_back(text ? static_cast<const char*>(text) : "(null)"); }

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

struct Menu : LmSubMenu {   // shows what derived menus see
    explicit Menu(const LmMenuDesc* desc = nullptr) : LmSubMenu("menu", desc, byDefault) {}
    using LmMenu::_maxItems;
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
    const LmMenuItemType types[] = {MENU_ACTION, MENU_ACTION_WIDGET, MENU_SEPARATOR,           MENU_LABEL,
                                    MENU_TOGGLE, MENU_RADIO_SUBMENU, MENU_CONFIRM_FIRST_ACTION};
    for (int i = 0; i < menu.numItems(); ++i)
        EXPECT_EQ(menu[i]->menuType(), types[i]) << i;
    EXPECT_EQ(menu[7], nullptr);
    EXPECT_EQ(menu[-1], nullptr);
    EXPECT_EQ(static_cast<LmMenuToggle*>(menu[4])->getState(), 0);

    LmMenuItem* deep = menu.findNamedItem("dEEP", true, true);
    ASSERT_TRUE(deep);
    EXPECT_EQ(menu.findParent(deep), menu[5]);
    EXPECT_EQ(static_cast<LmMenu*>(menu[5])->numItems(), 1);
    EXPECT_EQ(menu.findNamedItem("dEEP", false, true), nullptr);
    EXPECT_EQ(menu.findNamedItem("Deep", true, false), nullptr);

    const LmMenuDesc none[] = {{MENU_END}};
    EXPECT_EQ(Menu(none).numItems(), 0);
    EXPECT_EQ(Menu(nullptr).numItems(), 0);
}

TEST(MenuModel, ItemsAreInsertedReplacedAndTakenOut)
{
    Menu menu;
    const int room[] = {3, 3, 3, 4, 6, 6, 9};
    for (int i = 0; i < 7; ++i) {
        menu.addLabel(std::string(1, static_cast<char>('a' + i)).c_str(), i == 6 ? 99 : 0);
        EXPECT_EQ(menu._maxItems, room[i]) << i;
    }
    EXPECT_EQ(menu.names(), "f e d c b a g");
    EXPECT_EQ(menu.getItemPosition("d"), 2);
    EXPECT_EQ(menu.getItemPosition("nobody"), -1);

    auto* unnamed = new LmMenuActionStub(nullptr, nullptr, nullptr);
    EXPECT_EQ(menu.replace("nobody", unnamed), nullptr);
    const std::unique_ptr<LmMenuItem> old(menu.replace("d", unnamed)), removed(menu.removeItem("f"));
    EXPECT_STREQ(old->name(), "d");
    EXPECT_EQ(menu[1], unnamed);
    EXPECT_EQ(menu.findNamedItem("component", true, true), nullptr);
    EXPECT_EQ(menu.removeItem("f"), nullptr);
    EXPECT_EQ(removed->remove(), 0);
    EXPECT_EQ(unnamed->remove(), 1);
    delete unnamed;
    delete menu[0];
    EXPECT_EQ(menu.names(), "c b a g");
    EXPECT_EQ(menu.deactivateItem("x"), nullptr);
    EXPECT_EQ(menu.activateItem("c"), menu[0]);
}

TEST(MenuModel, ATableNestedInItselfEndsWithAMessage)
{
    LmMenuDesc endless[] = {{MENU_SUBMENU, "one"}, {MENU_SUBMENU, "two"}, {MENU_END}};
    endless[0].submenu = endless[1].submenu = endless;
    const std::string message = stderrOf([&] {
        Menu menu(endless);
        int depth = 0;
        for (LmMenu* level = &menu; level->numItems() > 0; level = static_cast<LmMenu*>((*level)[0]))
            ++depth;
        EXPECT_EQ(depth, 64);
    });
    EXPECT_EQ(message, "LmMenu: menu tables are nested more than 64 deep\n");
    EXPECT_EQ(stderrOf([] { Menu menu(table); }), "");
}
