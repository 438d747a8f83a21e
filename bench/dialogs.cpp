// What it costs to post a cached dialog and take it down, beside the same in plain Motif: set the message, manage, wait
// until it is drawn, unmanage. CPU is the client's own. Needs a display.
#include <Lm/LmApp.h>
#include <Lm/LmQuestionDialog.h>
#include <Lm/LmSimpleWindow.h>

#include <Xm/DrawingA.h>
#include <Xm/MessageB.h>

#include <benchmark/benchmark.h>

namespace {

struct MainWindow : LmSimpleWindow {
    MainWindow() : LmSimpleWindow("main") {}
    Widget setUpInterface(Widget parent) override
    {
        return XtVaCreateWidget("view", xmDrawingAreaWidgetClass, parent, XmNwidth, 600, XmNheight, 400, nullptr);
    }
};

MainWindow* window;

const char* messageOf(benchmark::State& state) { return state.iterations() % 2 ? "Is this enough?" : "Is that too much?"; }

void plainMotif(benchmark::State& state)
{
    static Widget dialog = XmCreateQuestionDialog(window->baseWidget(), const_cast<char*>("plain"), nullptr, 0);
    for (auto _ : state) {
        XmString text = XmStringCreateLocalized(const_cast<char*>(messageOf(state)));
        XtVaSetValues(dialog, XmNmessageString, text, nullptr);
        XmStringFree(text);
        XtManageChild(dialog);
        XSync(XtDisplay(dialog), False);
        XEvent event;
        do {
            XtAppNextEvent(theApplication->appContext(), &event);
            XtDispatchEvent(&event);
        } while (event.type != Expose || event.xexpose.window != XtWindow(dialog));
        XmUpdateDisplay(dialog);
        XtUnmanageChild(dialog);
    }
}

void lumora(benchmark::State& state)
{
    for (auto _ : state) {
        getTheQuestionDialog()->post(messageOf(state));
        getTheQuestionDialog()->unpost();
    }
}

}   // namespace

BENCHMARK(plainMotif)->Unit(benchmark::kMillisecond);
BENCHMARK(lumora)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    LmApp app("Bench", &argc, argv, nullptr, 0);
    window = new MainWindow;
    window->show();
    app.handlePendingEvents();
    benchmark::RunSpecifiedBenchmarks();
}
