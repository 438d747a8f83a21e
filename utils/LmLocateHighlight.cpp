#include "LmLocateHighlight.h"

#include "LmApp.h"
#include "LmResource.h"
#include "base/core/Colors.h"
#include "support/resources.h"

#include <Xm/ArrowB.h>
#include <Xm/PushB.h>

#include <cstring>

namespace {

/// The client data of the action hook.
struct ButtonColors {
    Pixel normal;
    Pixel highlight;
};
ButtonColors buttonColors;

}   // namespace

static Pixel pixelResource(const char* name)
{
    Pixel pixel = 0;
    LmGetResource(theApplication->baseWidget(), name, name, XtRPixel, "white", &pixel, sizeof pixel);
    return pixel;
}

/// 60 percent of the way from one channel to the other, in whole steps.
static unsigned short towards(int from, int to) { return static_cast<unsigned short>(from + (to - from) * 6 / 10); }

static Pixel lighterThan(Pixel normal)
{
    Screen* screen = XtScreen(theApplication->baseWidget());
    const Colormap colormap = DefaultColormapOfScreen(screen);
    Pixel foreground = 0, topShadow = 0, bottomShadow = 0, select = 0;
    XmGetColors(screen, colormap, normal, &foreground, &topShadow, &bottomShadow, &select);

    XColor colors[2] = {};
    colors[0].pixel = normal;
    colors[1].pixel = topShadow;
    lm::queryColors(theApplication->display(), colors, 2);
    XColor light = {};
    light.red = towards(colors[0].red, colors[1].red);
    light.green = towards(colors[0].green, colors[1].green);
    light.blue = towards(colors[0].blue, colors[1].blue);
    return lm::allocColor(theApplication->display(), colormap, &light) ? light.pixel : topShadow;
}

/// Runs before every action of the application, so what is cheapest to ask is asked first.
static void lightUp(Widget w, XtPointer clientData, String action, XEvent*, String*, Cardinal*) noexcept
{
    const bool entered = std::strcmp(action, "Enter") == 0;
    if (!entered && std::strcmp(action, "Leave") != 0)
        return;
    if (!XmIsPushButton(w) && !XmIsArrowButton(w))
        return;
    const auto* colors = static_cast<ButtonColors*>(clientData);
    if (XtIsSensitive(w))
        XtVaSetValues(w, XmNbackground, entered ? colors->highlight : colors->normal, nullptr);
}

void LmSetupLocateHighlight()
{
    static bool isSetUp = false;
    if (isSetUp || !theApplication || !theApplication->baseWidget())
        return;
    isSetUp = true;
    buttonColors.normal = pixelResource("buttonBackground");
    buttonColors.highlight = LmGetResource(theApplication->baseWidget(), "buttonHighlight", "buttonHighlight")
                                 ? pixelResource("buttonHighlight")
                                 : lighterThan(buttonColors.normal);
    XtAppAddActionHook(theApplication->appContext(), lightUp, &buttonColors);
}
