#include "support/xmtext.h"

#include "support/resources.h"

lm::XmText lm::compound(const char* text) { return XmText(XmStringCreateLocalized(xtText(text ? text : ""))); }

std::string lm::plainText(XmString text)
{
    if (!text)
        return {};
    static const XmText newline(XmStringSeparatorCreate());   // once: Motif loses one of every 63 that it makes
    Arg rule[] = {{xtText(XmNpattern), reinterpret_cast<XtArgVal>("\n")},
                  {xtText(XmNsubstitute), reinterpret_cast<XtArgVal>(newline.get())},
                  {xtText(XmNincludeStatus), XmINSERT}};
    XmParseMapping mapping = XmParseMappingCreate(rule, 3);
    const XtString result(
        static_cast<char*>(XmStringUnparse(text, nullptr, XmCHARSET_TEXT, XmCHARSET_TEXT, &mapping, 1, XmOUTPUT_ALL)));
    XmParseMappingFree(mapping);
    return result ? result.get() : "";
}
