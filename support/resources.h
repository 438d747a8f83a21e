// resources.h: rows for Xt resource tables, typed by the field they fill.
#pragma once

#include "calldata.h"

#include <X11/Intrinsic.h>
#include <X11/StringDefs.h>

#include <type_traits>

namespace lm {

/// Xt wants writable strings where it never writes; this is one of the two casts that say so.
inline String xtText(const char* text) { return const_cast<String>(text); }

/// The representation type that fills a field of the given C++ type.
template <class Field> constexpr const char* representation()
{
    if constexpr (std::is_same_v<Field, int>)
        return XtRInt;
    else if constexpr (std::is_same_v<Field, Boolean>)
        return XtRBoolean;
    else if constexpr (std::is_same_v<Field, Dimension>)
        return XtRDimension;
    else if constexpr (std::is_same_v<Field, Position>)
        return XtRPosition;
    else if constexpr (std::is_same_v<Field, Pixel>)
        return XtRPixel;
    else if constexpr (std::is_same_v<Field, char*> || std::is_same_v<Field, const char*>)
        return XtRString;
    else
        static_assert(!sizeof(Field), "name the representation type");
}

/// One row with a representation type of its own: the resource `name` of class `cls` fills `field` of `object`.
/// Size and offset follow from the field, so a table cannot disagree with its class.
/// Xt compiles a table in place at its first use, so tables are never const.
template <class T, class Field> XtResource resource(const T* object, const Field& field, const char* name, const char* cls,
                                                    const char* type, const char* fallback)
{
    const auto offset = reinterpret_cast<const char*>(&field) - reinterpret_cast<const char*>(object);
    return {xtText(name), xtText(cls),     xtText(type), static_cast<Cardinal>(sizeof(Field)), static_cast<Cardinal>(offset),
            XtRString,    xtText(fallback)};
}

/// The same, with the representation type that follows from the field.
template <class T, class Field>
XtResource resource(const T* object, const Field& field, const char* name, const char* cls, const char* fallback)
{
    return resource(object, field, name, cls, representation<Field>(), fallback);
}

}   // namespace lm
