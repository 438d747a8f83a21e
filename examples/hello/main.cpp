// hello: a window with a label. It closes when the window manager asks it to, and the program ends with its last window.
#include <Lm/LmApp.h>
#include <Lm/LmSimpleWindow.h>

#include <Xm/Label.h>

class HelloWindow : public LmSimpleWindow {
public:
    HelloWindow() : LmSimpleWindow("hello", nullptr, 0) {}
    Widget setUpInterface(Widget parent) override { return XmCreateLabel(parent, const_cast<char*>("greeting"), nullptr, 0); }
};

int main(int argc, char** argv)
{
    LmApp app("Hello", &argc, argv, nullptr, 0);
    auto* window = new HelloWindow;   // deletes itself when it is closed
    window->show();
    app.run();
}
