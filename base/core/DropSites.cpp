#include "DropSites.h"

#include <Xm/DisplayP.h>
#include <Xm/DropSMgrP.h>
#include <Xm/ScrollBar.h>
#include <Xm/ScrolledW.h>

#include <algorithm>
#include <string_view>
#include <vector>

namespace lm {

static bool namesTargets(const Arg& argument)
{
    const std::string_view name = argument.name;
    return name == XmNimportTargets || name == XmNnumImportTargets;
}

static void createInfo(XmDropSiteManagerObject manager, Widget site, ArgList given, Cardinal count) noexcept
{
    const auto original = xmDropSiteManagerClassRec.dropManager_class.createInfo;
    if (!XmIsScrollBar(site) || !XmIsScrolledWindow(XtParent(site))) {
        original(manager, site, given, count);
        return;
    }
    std::vector<Arg> arguments(given, given + count);
    std::erase_if(arguments, namesTargets);
    original(manager, site, arguments.data(), static_cast<Cardinal>(arguments.size()));
}

/// Motif's manager with another createInfo. A copy has every other method of it; what Xt would call for both the class
/// and its superclass is left to the superclass.
static XmDropSiteManagerClassRec quietManager()
{
    XmDropSiteManagerClassRec quiet = xmDropSiteManagerClassRec;
    ObjectClassPart& object = quiet.object_class;
    object.superclass = reinterpret_cast<WidgetClass>(&xmDropSiteManagerClassRec);
    object.class_inited = False;
    object.xrm_class = NULLQUARK;
    object.resources = nullptr;
    object.num_resources = 0;
    object.class_initialize = nullptr;
    object.class_part_initialize = nullptr;
    object.initialize = nullptr;
    object.destroy = nullptr;
    object.set_values = nullptr;
    quiet.dropManager_class.createInfo = createInfo;
    return quiet;
}

void useQuietDropSites(Widget xmDisplay)
{
    static XmDropSiteManagerClassRec quiet = quietManager();
    const XmDisplayPart& part = reinterpret_cast<XmDisplayRec*>(xmDisplay)->display;
    if (part.dsm || part.dropSiteManagerClass != reinterpret_cast<WidgetClass>(&xmDropSiteManagerClassRec))
        return;
    XtVaSetValues(xmDisplay, XmNdropSiteManagerClass, &quiet, nullptr);
}

}   // namespace lm
