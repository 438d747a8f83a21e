#include "tests/support/Bells.h"

#include "LmCompletionField.h"
#include "LmNameList.h"
#include "support/LmExport.h"
#include "support/handles.h"
#include "support/resources.h"

#include <Xm/TextF.h>

#include <memory>

using namespace lmtest;

/// Read by AddressSanitizer: a refused modification leaks in libXm, which tests/lsan.supp names.
extern "C" LM_API const char* __asan_default_options() { return "fast_unwind_on_malloc=0"; }

namespace {

std::string textOf(LmCompletionField& field) { return lm::XtString(field.getText()).get(); }

int cursorOf(LmCompletionField& field) { return static_cast<int>(XmTextFieldGetInsertionPosition(field.baseWidget())); }

struct CompletionFieldOnScreen : OnScreen {
    CompletionFieldOnScreen()
    {
        for (const char* name : {"alpha", "alphabet", "beta"})
            field->add(name);
        show(*field);
        click(field->baseWidget());
    }
    /// What stands in the field after typing into the empty one.
    std::string typed(const std::string& text)
    {
        XmTextFieldSetString(field->baseWidget(), lm::xtText(""));
        type(text);
        return textOf(*field);
    }
    std::unique_ptr<LmCompletionField> field{LmCreateCompletionField("field", shell())};
    Bells bells;
};

/// Names that destroy the widget of their field when they are asked.
struct DestroyWidget : LmNameList {
    LmNameList* completeName(char* text, char*& completed, int& numMatches) const override
    {
        auto* found = LmNameList::completeName(text, completed, numMatches);
        if (field)
            XtDestroyWidget(field->baseWidget());
        return found;
    }
    LmCompletionField* field = nullptr;
};

}   // namespace

TEST_F(CompletionFieldOnScreen, ATypedSpaceCompletesTheText)
{
    EXPECT_EQ(typed("b "), "beta");
    EXPECT_EQ(cursorOf(*field), 4);
    EXPECT_EQ(field->matches(), nullptr);
    EXPECT_EQ(bells.rung(), 0);

    EXPECT_EQ(typed("al "), "alpha");
    EXPECT_EQ(cursorOf(*field), 5);
    ASSERT_NE(field->matches(), nullptr);
    EXPECT_EQ(field->matches()->size(), 2);
    EXPECT_EQ(bells.rung(), 1);

    EXPECT_EQ(typed("x "), "x");
    EXPECT_EQ(field->matches(), nullptr);
    EXPECT_EQ(bells.rung(), 0);

    XmTextFieldSetString(field->baseWidget(), lm::xtText("b"));
    XmTextFieldSetInsertionPosition(field->baseWidget(), 0);
    type(" ");
    EXPECT_EQ(textOf(*field), "beta") << "wherever the cursor stands";
    XmTextFieldInsert(field->baseWidget(), 4, lm::xtText(" c"));
    EXPECT_EQ(textOf(*field), "beta c");
    field->expand(nullptr);

    field->add("k\xC3\xA4se");
    field->add("k\xC3\xBCmmel");
    EXPECT_EQ(typed("k "), "k") << "no half character";
    field->clear(nullptr);
    EXPECT_EQ(typed("b "), "b");
    field->clear(new LmNameList("only one"));
    EXPECT_EQ(typed(" "), "only one");
    field->clear(new LmNameList(" "));
    EXPECT_EQ(typed(" "), " ") << "setting it is no completion again";
}

TEST_F(CompletionFieldOnScreen, ReturnIsAnnouncedAndMayDeleteTheField)
{
    Heard entered(*field, LmCompletionField::enterCallback);
    type("\n");
    EXPECT_EQ(entered.values, std::vector{0});

    field->addCallback(
        LmCompletionField::enterCallback,
        [](LmCallbackObject*, void* owner, void*) { static_cast<std::unique_ptr<LmCompletionField>*>(owner)->reset(); }, &field);
    type("\n");
    EXPECT_EQ(field, nullptr);
}

TEST_F(CompletionFieldOnScreen, TheMarkIsClearedWhenACallbackDestroysTheField)
{
    type("b");
    XtAddCallback(
        field->baseWidget(), XmNvalueChangedCallback,
        [](Widget, XtPointer owner, XtPointer) { static_cast<std::unique_ptr<LmCompletionField>*>(owner)->reset(); }, &field);
    type(" ");
    EXPECT_EQ(field, nullptr);

    auto* names = new DestroyWidget;
    names->add("gamma");
    LmCompletionField second("second", shell());
    second.clear(names);
    show(second);
    names->field = &second;
    click(second.baseWidget());
    type("g ");
    EXPECT_EQ(second.baseWidget(), nullptr);
    EXPECT_STREQ(lm::XtString(second.getText()).get(), "");

    LmCompletionField third("third", shell());
    third.add("delta");
    show(third);
    click(third.baseWidget());
    type("d ");
    EXPECT_EQ(textOf(third), "delta");
}
