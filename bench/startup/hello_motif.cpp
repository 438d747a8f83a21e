// examples/hello without Lumora: a main window with a label.
#include <Xm/Label.h>
#include <Xm/MainW.h>
#include <Xm/Xm.h>

int main(int argc, char** argv)
{
    XtSetLanguageProc(nullptr, nullptr, nullptr);
    XtAppContext context = nullptr;
    Widget shell = XtVaAppInitialize(&context, "Hello", nullptr, 0, &argc, argv, nullptr, nullptr);
    Widget mainWindow = XtVaCreateManagedWidget("mainWindow", xmMainWindowWidgetClass, shell, nullptr);
    XtVaCreateManagedWidget("greeting", xmLabelWidgetClass, mainWindow, nullptr);
    XtRealizeWidget(shell);
    XtAppMainLoop(context);
}
