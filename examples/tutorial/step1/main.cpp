// Step 1: a window with a label.
#include <Lm/LmApp.h>
#include <Lm/LmSimpleWindow.h>

#include <Xm/Label.h>

class NotesWindow : public LmSimpleWindow {
public:
    NotesWindow() : LmSimpleWindow("notes") {}
    Widget setUpInterface(Widget parent) override { return XmCreateLabel(parent, const_cast<char*>("greeting"), nullptr, 0); }
};

int main(int argc, char** argv)
{
    LmApp app("Notes", &argc, argv, nullptr, 0);
    auto* window = new NotesWindow;   // deletes itself when it is closed
    window->show();
    app.run();
}
