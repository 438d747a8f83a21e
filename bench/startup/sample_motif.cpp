// The sample window as a plain Motif program: what Lumora's start-up is measured against.
#include "SampleWindow.h"

#include <Xm/MainW.h>
#include <Xm/Xm.h>

int main(int argc, char** argv)
{
    XtSetLanguageProc(nullptr, nullptr, nullptr);
    XtAppContext context = nullptr;
    Widget shell = XtVaAppInitialize(&context, "Sample", nullptr, 0, &argc, argv, nullptr, nullptr);
    Widget mainWindow = XtVaCreateManagedWidget("mainWindow", xmMainWindowWidgetClass, shell, nullptr);
    Widget view = makeSampleView(mainWindow);
    XtManageChild(view);
    XtRealizeWidget(shell);
    obeyArguments(argc, argv, view);
    XtAppMainLoop(context);
}
