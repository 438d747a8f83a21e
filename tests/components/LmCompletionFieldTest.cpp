#include "tests/support/Bells.h"

#include "LmCompletionField.h"
#include "LmNameList.h"
#include "support/handles.h"
#include "support/resources.h"

#include <Xm/TextF.h>

#include <memory>

using namespace lmtest;

/// Read by AddressSanitizer: a refused modification leaks in libXm, which tests/lsan.supp names.
extern "C" LM_API const char* __asan_default_options() { return "fast_unwind_on_malloc=0"; }

namespace {

struct CompletionFieldOnScreen : OnScreen {
    /// A field of these names that is ready to be typed into.
    std::unique_ptr<LmCompletionField> fieldOf(std::initializer_list<const char*> names)
    {
        std::unique_ptr<LmCompletionField> made(LmCreateCompletionField("field", shell()));
        for (const char* name : names)
            made->add(name);
        show(*made);
        click(made->baseWidget());
        return made;
    }
    /// What stands in the field after typing, with a bar at the cursor and a star for each time that the bell rang.
    std::string typed(const std::string& text)
    {
        XmTextFieldSetString(field->baseWidget(), lm::xtText(""));
        type(text);
        std::string shown = lm::XtString(field->getText()).get();
        shown.insert(static_cast<std::size_t>(XmTextFieldGetInsertionPosition(field->baseWidget())), "|");
        return shown + std::string(static_cast<std::size_t>(bells.rung()), '*');
    }
    std::unique_ptr<LmCompletionField> field = fieldOf({"alpha", "alphabet", "beta", "k\xC3\xA4se", "k\xC3\xBCmmel"});
    Bells bells;
};

}   // namespace

TEST_F(CompletionFieldOnScreen, ATypedSpaceCompletesTheText)
{
    EXPECT_EQ(typed("b "), "beta|");
    EXPECT_EQ(typed("al "), "alpha|*");
    EXPECT_EQ(field->matches()->size(), 2);
    EXPECT_EQ(typed("x "), "x|");
    EXPECT_EQ(typed("k "), "k|*") << "no half character";

    typed("b");
    XmTextFieldSetInsertionPosition(field->baseWidget(), 0);
    type(" ");
    XmTextFieldInsert(field->baseWidget(), 0, lm::xtText("a "));
    EXPECT_STREQ(lm::XtString(field->getText()).get(), "a beta") << "the whole text is completed; pasted text is not";

    field->clear(nullptr);
    EXPECT_EQ(typed("b "), "b|");
    field->clear(new LmNameList(" "));
    EXPECT_EQ(typed(" "), " |") << "setting it is no completion again";
}

TEST_F(CompletionFieldOnScreen, CallbacksMayDestroyIt)
{
    const auto destroy = [](LmCallbackObject*, void* owner, void*) { static_cast<decltype(field)*>(owner)->reset(); };
    field->addCallback(LmCompletionField::enterCallback, destroy, &field);
    type("\n");
    EXPECT_EQ(field, nullptr);

    field = fieldOf({"beta"});
    const auto destroyAtChange = [](Widget, XtPointer owner, XtPointer) { static_cast<decltype(field)*>(owner)->reset(); };
    type("b");
    XtAddCallback(field->baseWidget(), XmNvalueChangedCallback, destroyAtChange, &field);
    type(" ");
    EXPECT_EQ(field, nullptr);

    field = fieldOf({"delta"});
    EXPECT_EQ(typed("d "), "delta|") << "no completion seems to be in progress";
}
