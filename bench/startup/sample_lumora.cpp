// The sample window as a Lumora program.
#include "SampleWindow.h"

#include <Lm/LmApp.h>
#include <Lm/LmSimpleWindow.h>

class SampleWindow : public LmSimpleWindow {
public:
    SampleWindow() : LmSimpleWindow("mainWindow", nullptr, 0) {}
    Widget setUpInterface(Widget parent) override { return view = makeSampleView(parent); }

    Widget view = nullptr;
};

int main(int argc, char** argv)
{
    LmApp app("Sample", &argc, argv, nullptr, 0);
    auto* window = new SampleWindow;
    window->show();
    obeyArguments(argc, argv, window->view);
    app.run();
}
