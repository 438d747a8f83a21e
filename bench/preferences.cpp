// What a preference sheet of 200 items costs to build and show (texts, toggles, options and labels in ten groups), beside the
// same widgets made by hand with plain Motif. Needs a display.
#include <Lm/LmApp.h>
#include <Lm/LmPrefGroup.h>
#include <Lm/LmPrefLabel.h>
#include <Lm/LmPrefOption.h>
#include <Lm/LmPrefText.h>
#include <Lm/LmPrefToggle.h>
#include <Lm/support/resources.h>

#include <X11/Shell.h>
#include <Xm/LabelG.h>
#include <Xm/PushB.h>
#include <Xm/RowColumn.h>
#include <Xm/TextF.h>
#include <Xm/ToggleBG.h>

#include <benchmark/benchmark.h>

#include <memory>
#include <string>

namespace {

constexpr int groups = 10, itemsEach = 20;

Widget newColumn()
{
    Widget shell = XtVaCreatePopupShell("sheet", topLevelShellWidgetClass, theApplication->baseWidget(), nullptr);
    return XtVaCreateManagedWidget("column", xmRowColumnWidgetClass, shell, nullptr);
}

void showAndDestroy(Widget column)
{
    Widget shell = XtParent(column);
    XtPopup(shell, XtGrabNone);
    XmUpdateDisplay(shell);
    XtDestroyWidget(shell);
}

LmPrefItem* newItem(int i)
{
    const std::string name = "item" + std::to_string(i);
    switch (i % 4) {
    case 0:
        return new LmPrefText(name.c_str(), 20);
    case 1:
        return new LmPrefToggle(name.c_str(), true);
    case 2:
        return new LmPrefOption(name.c_str(), 3);
    default:
        return new LmPrefLabel(name.c_str());
    }
}

void lumora(benchmark::State& state)
{
    for (auto _ : state) {
        LmPrefGroup sheet("sheet", false, true);
        for (int g = 0; g < groups; ++g) {
            auto* group = new LmPrefGroup("group", false, true);
            for (int i = 0; i < itemsEach; ++i)
                group->addItem(newItem(i));
            sheet.addItem(group);
        }
        Widget column = newColumn();
        sheet.build(column);
        sheet.show();
        showAndDestroy(column);
        sheet.deleteChildren();
    }
}

void plainItem(Widget labels, Widget fields, int i)
{
    if (i % 4 != 3)
        XtVaCreateManagedWidget("label", xmLabelGadgetClass, labels, nullptr);
    if (i % 4 == 0)
        XtVaCreateManagedWidget("text", xmTextFieldWidgetClass, fields, XmNcolumns, 20, nullptr);
    else if (i % 4 == 1)
        XtVaCreateManagedWidget("toggle", xmToggleButtonGadgetClass, fields, nullptr);
    else if (i % 4 == 3)
        XtVaCreateManagedWidget("label", xmLabelGadgetClass, fields, nullptr);
    else {
        Widget pane = XmCreatePulldownMenu(fields, lm::xtText("pane"), nullptr, 0);
        for (int entry = 0; entry < 3; ++entry)
            XtVaCreateManagedWidget("entry", xmPushButtonWidgetClass, pane, nullptr);
        Arg arg = {lm::xtText(XmNsubMenuId), reinterpret_cast<XtArgVal>(pane)};
        XtManageChild(XmCreateOptionMenu(fields, lm::xtText("option"), &arg, 1));
    }
}

void plainMotif(benchmark::State& state)
{
    for (auto _ : state) {
        Widget column = newColumn();
        for (int g = 0; g < groups; ++g) {
            Widget row = XtVaCreateManagedWidget("row", xmRowColumnWidgetClass, column, XmNorientation, XmHORIZONTAL, nullptr);
            Widget labels = XtVaCreateWidget("labels", xmRowColumnWidgetClass, row, XmNpacking, XmPACK_COLUMN, nullptr);
            Widget fields = XtVaCreateWidget("fields", xmRowColumnWidgetClass, row, XmNpacking, XmPACK_COLUMN, nullptr);
            for (int i = 0; i < itemsEach; ++i)
                plainItem(labels, fields, i);
            XtManageChild(labels);
            XtManageChild(fields);
        }
        showAndDestroy(column);
    }
}

}   // namespace

BENCHMARK(plainMotif)->Unit(benchmark::kMillisecond);
BENCHMARK(lumora)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    LmApp app("Bench", &argc, argv, nullptr, 0);
    benchmark::RunSpecifiedBenchmarks();
}
