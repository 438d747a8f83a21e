#include "tests/support/OnScreen.h"   // first: gtest must come before X.h defines None

#include "LmBusyDialog.h"
#include "LmErrorDialog.h"
#include "LmFileSelectionDialog.h"
#include "LmInfoDialog.h"
#include "LmInterruptDialog.h"
#include "LmPromptDialog.h"
#include "LmQuestionDialog.h"
#include "LmWarningDialog.h"
#include "support/resources.h"

#include <Xm/DrawingA.h>

#include <malloc.h>

using namespace lmtest;

using DialogLongRun = OnScreen;

namespace {

struct Plain : LmSimpleWindow {
    Plain() : LmSimpleWindow("plain") { show(); }
    Widget setUpInterface(Widget parent) override { return XmCreateDrawingArea(parent, lm::xtText("view"), nullptr, 0); }
};

/// How many bytes more are in use after `times` calls, once the first twenty have filled what is kept.
long growthOf(int times, const std::function<void(int)>& call)
{
    for (int i = 0; i < 20; ++i)
        call(i);
    const auto before = mallinfo2().uordblks;   // 0 under AddressSanitizer, which looks for itself
    for (int i = 0; i < times; ++i)
        call(i);
    settle();
    return static_cast<long>(mallinfo2().uordblks - before);
}

}   // namespace

TEST_F(DialogLongRun, PostingAgainAndAgainTakesNoMemory)
{
    auto* window = new Plain;
    settle();
    const int times = reducedInSanitizer(500);
    for (LmDialogManager* dialog : std::initializer_list<LmDialogManager*>{
             getTheErrorDialog(), getTheFatalErrorDialog(), getTheWarningDialog(), getTheInfoDialog(), getTheQuestionDialog(),
             getThePromptDialog(), getTheFileSelectionDialog(), getTheBusyDialog(), getTheInterruptDialog()}) {
        const long growth = growthOf(times, [&](int i) {
            dialog->setTitle(i % 2 ? "One" : "Another");
            dialog->post(i % 2 ? "first text" : "a second, longer text", nullptr, nullptr, nullptr, nullptr, "help", window);
            dialog->unpost();
        });
        EXPECT_LT(growth, 16 * times) << dialog->name();
    }
}

TEST_F(DialogLongRun, WindowsThatComeAndGoLeaveNothingInTheCaches)
{
    new Plain;   // keeps the program
    const int times = reducedInSanitizer(200);
    const long growth = growthOf(times, [](int) {
        auto* window = new Plain;
        getTheInfoDialog()->post("just so", nullptr, nullptr, nullptr, nullptr, nullptr, window);
        delete window;
    });
    EXPECT_LT(growth, 256 * times);
}
