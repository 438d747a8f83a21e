#include "ResourceDefaults.h"

#include <X11/StringDefs.h>

namespace lm {

static XrmDatabase databaseOf(Display* display) { return XtScreenDatabase(DefaultScreenOfDisplay(display)); }

Program programOf(Display* display)
{
    String name = nullptr, className = nullptr;
    XtGetApplicationNameAndClass(display, &name, &className);
    return {name, className};
}

bool isSet(Display* display, const Program& program, const char* resource, const char* resourceClass)
{
    XrmQuark names[] = {XrmStringToQuark(program.name), XrmStringToQuark(resource), NULLQUARK};
    XrmQuark classes[] = {XrmStringToQuark(program.className), XrmStringToQuark(resourceClass), NULLQUARK};
    XrmRepresentation type = NULLQUARK;
    XrmValue value = {};
    return XrmQGetResource(databaseOf(display), names, classes, &type, &value);
}

void putDefault(Display* display, const Program& program, const char* resource, const std::string& value)
{
    XrmBinding bindings[] = {XrmBindTightly, XrmBindTightly};
    XrmQuark names[] = {XrmStringToQuark(program.name), XrmStringToQuark(resource), NULLQUARK};
    XrmDatabase database = databaseOf(display);
    XrmQPutStringResource(&database, bindings, names, value.c_str());
}

}   // namespace lm
