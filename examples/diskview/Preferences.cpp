#include "Preferences.h"

#include <Lm/LmResource.h>

#include <cstdlib>
#include <memory>
#include <string>

static std::string resource(const char* name, const char* className, const char* fallback)
{
    const char* value = LmGetResource(name, className);
    return value ? value : fallback;
}

Preferences::Preferences() : LmPrefDialog("preferences", &_sheet)
{
    _measure.setLabel(0, "The bytes in files");
    _measure.setLabel(1, "The room on the disk");
    _units.setLabel(0, "kB, MB, GB");
    _units.setLabel(1, "KiB, MiB, GiB");
    _units.setLabel(2, "Bytes");
    _measure.setValue(resource("measure", "Measure", "apparent") == "allocated");
    const std::string units = resource("units", "Units", "decimal");
    _units.setValue(units == "bytes" ? 2 : units == "binary");
    _threshold.setValue(resource("markAbove", "MarkAbove", "100 MB").c_str());
    for (LmPrefItem* item : std::initializer_list<LmPrefItem*>{&_measure, &_units, &_threshold})
        _sheet.addItem(item);
}

Look Preferences::look()
{
    const Units units = static_cast<Units>(_units.getValue());
    const std::unique_ptr<char, decltype(&std::free)> text(_threshold.getValue(), &std::free);
    if (const auto size = readSize(text.get()))
        _markAbove = *size;
    else
        _threshold.setValue(sizeText(_markAbove, units).c_str());
    return {_measure.getValue() == 0 ? Measure::Apparent : Measure::Allocated, units, _markAbove};
}
