#include "tests/support/OnScreen.h"   // first: gtest must come before X.h defines None

#include "LmResource.h"
#include "support/handles.h"

#include <Xm/Form.h>
#include <Xm/PushB.h>
#include <Xm/PushBG.h>

#include <algorithm>
#include <cstring>

using namespace lmtest;   // app, OnScreen, setResource, stdoutOf

struct ResourceOnScreen : OnScreen {
    Widget form = XtVaCreateWidget("form", xmFormWidgetClass, shell(), nullptr);
    Widget button = XtVaCreateWidget("button", xmPushButtonWidgetClass, form, nullptr);

    int asInt(const char* name, const char* type, const char* fallback)
    {
        return lm::asInt(LmGetResource(button, name, "Thing", type, fallback));
    }
    static std::string text(const void* string) { return string ? static_cast<const char*>(string) : "(null)"; }
};

TEST_F(ResourceOnScreen, TheGeneralLookUpConvertsAndExtendsTheSign)
{
    setResource("lmtest.shell.form.button.depth: -5");
    setResource("*XmForm.XmPushButton.Wide: -7");
    setResource("*form*flag: TRUE");
    setResource("*button.label: by name");

    EXPECT_EQ(reinterpret_cast<std::intptr_t>(LmGetResource(button, "depth", "Depth", XtRInt, "1")), -5);
    EXPECT_EQ(reinterpret_cast<std::intptr_t>(LmGetResource(button, "wide", "Wide", XtRPosition, "1")), -7);
    EXPECT_EQ(asInt("flag", XtRBoolean, "FALSE"), 1);
    EXPECT_EQ(asInt("absent", XtRBoolean, "FALSE"), 0);
    EXPECT_EQ(LmGetResource(button, "absent", "Thing", XtRInt, nullptr), nullptr);
    EXPECT_EQ(LmGetResource(form, "depth", "Depth", XtRInt, nullptr), nullptr);   // the button's alone

    const char* fallback = "the default";
    EXPECT_EQ(text(LmGetResource(button, "label", "Label", XtRString, fallback)), "by name");
    EXPECT_EQ(LmGetResource(button, "absent", "Label", XtRString, fallback), fallback);
    EXPECT_EQ(LmGetResource(button, "absent", "Label", XtRString, nullptr), nullptr);

    const auto pixel = reinterpret_cast<Pixel>(LmGetResource(button, "ink", "Foreground", XtRPixel, "#0102fe"));
    EXPECT_EQ(pixel, 0x0102feUL);
    Widget gadget = XtVaCreateWidget("gadget", xmPushButtonGadgetClass, form, nullptr);
    EXPECT_EQ(lm::asInt(LmGetResource(gadget, "flag", "Flag", XtRBoolean, "FALSE")), 1);
}

TEST_F(ResourceOnScreen, CompoundStringsAreFreshCopies)
{
    const lm::XmText first(static_cast<XmString>(LmGetResource(button, "title", "Title", XmRXmString, "Hello")));
    const lm::XmText second(static_cast<XmString>(LmGetResource(button, "title", "Title", XmRXmString, "Hello")));

    EXPECT_NE(first, second);
    EXPECT_TRUE(XmStringCompare(first.get(), second.get()));
}

TEST_F(ResourceOnScreen, WhatCannotBeConvertedWarnsAndAnswersNothing)
{
    EXPECT_EQ(LmGetResource(button, "n", "N", XtRInt, "twelve"), nullptr);
    EXPECT_EQ(LmGetResource(button, "n", "N", "NoSuchType", "1"), nullptr);
    EXPECT_EQ(LmGetResource(app().baseWidget(), "n", "N", XtRWidget, "form"), nullptr);
    char buffer[8] = "same";
    EXPECT_EQ(LmGetResource(button, "n", "N", XtRString, "x", buffer, sizeof buffer), 1);

    const auto errors = takeErrors();
    for (const char* said : {"Can't convert a String to a Int", "Can't convert a String to a NoSuchType",
                             "Can't convert a String to a Widget", "Can't use this routine to retrieve \"String\" type"})
        EXPECT_EQ(std::ranges::count(errors, std::string("Xt warning: ") + said), 1) << said;
    EXPECT_STREQ(buffer, "same");
}

TEST_F(ResourceOnScreen, BuffersGetWholeValuesOrNone)
{
    struct Case {
        const char* type;
        int size;   // 0: the form without
        const char* fallback;
        unsigned room;
        int status;
        std::int64_t value;   // of the buffer's first bytes, read with the room's size
    };
    const std::int64_t untouched = 0x5555555555555555;
    const Case cases[] = {
        {XtRInt, 0, "-3", 4, 0, -3},
        {XtRInt, 0, "-3", 8, 0, 0x55555555fffffffd},
        {XtRInt, 0, "-3", 1, 3, untouched},
        {XtRInt, 0, "-3", 0, 3, untouched},
        {XtRInt, 0, nullptr, 8, 1, untouched},
        {XtRPixel, 0, "#010203", 8, 0, 0x010203},
        {XtRPixel, 0, "#010203", 4, 3, untouched},
        {XtRBoolean, 0, "TRUE", 1, 0, 1},
        {XtRInt, 4, "-3", 4, 0, -3},
        {XtRInt, 8, "-3", 8, 0, -3},   // the sign goes through all eight bytes
        {XtRInt, 4, "-3", 1, 3, untouched},
        {XtRInt, 2, "-3", 8, 1, untouched},
        {XtRInt, 3, "-3", 8, 1, untouched},
        {XtRInt, -1, "-3", 8, 1, untouched},
        {XtRPixel, 8, "#010203", 8, 0, 0x010203},
        {XtRPixel, 4, "#010203", 8, 1, untouched},   // cut, it would be another colour
        {XtRDimension, 2, "9", 2, 0, 9},
        {XtRWidget, 8, "form", 8, 1, untouched},
    };
    for (const Case& c : cases) {
        std::int64_t buffer = untouched;
        const int status = c.size ? LmGetResource(button, "v", "V", c.type, c.size, c.fallback, &buffer, c.room)
                                  : LmGetResource(button, "v", "V", c.type, c.fallback, &buffer, c.room);
        EXPECT_EQ(status, c.status) << c.type << ' ' << c.size << ' ' << c.room;
        std::int64_t expected = untouched;
        std::memcpy(&expected, &c.value, status == 0 ? c.room : sizeof expected);
        EXPECT_EQ(buffer, expected) << c.type << ' ' << c.size << ' ' << c.room;
    }
}

TEST_F(ResourceOnScreen, TheWidgetsOwnLookUpsAnswerWordsOfEverySize)
{
    setResource("*button.count: -12");
    setResource("*button.title: from the database");
    const auto own = [&](const char* name, const char* type, int size, const char* fallback) {
        return reinterpret_cast<std::intptr_t>(LmGetResource(button, name, "C", type, size, fallback));
    };

    EXPECT_EQ(text(LmGetResource(button, "title", "Title")), "from the database");
    EXPECT_EQ(LmGetResource(button, "absent", "Title"), nullptr);
    EXPECT_EQ(text(LmGetResource(button, "absent", "Title", "default")), "default");
    EXPECT_EQ(own("count", XtRInt, 4, "1"), -12);
    EXPECT_EQ(own("count", XtRInt, 8, "1"), -12);
    EXPECT_EQ(own("count", XtRShort, 2, "1"), -12);
    EXPECT_EQ(own("absent", XtRPixel, 4, "#0a0b0c"), 0x0a0b0c);
    EXPECT_EQ(own("absent", XtRBoolean, 1, "TRUE"), 1);
    EXPECT_EQ(LmGetResource(button, "absent", "C", XtRInt, 4, lm::asPointer(-9)), lm::asPointer(-9));
    EXPECT_EQ(LmGetResource(button, "absent", "C", XtRString, 4, static_cast<void*>(this)), this);
}

TEST_F(ResourceOnScreen, NamesOfAnyLengthAndDepthAreLookedUp)
{
    const std::string longName(3000, 'n');
    std::string dotted;
    Widget deep = form;
    for (int i = 0; i < 150; ++i) {
        deep = XtVaCreateWidget("d", xmFormWidgetClass, deep, nullptr);
        dotted += "x.";
    }
    setResource("*" + longName + ": long");
    setResource("lmtest*d.deep: found");
    setResource("*dotted.name.of.things: yes");

    EXPECT_EQ(text(LmGetResource(button, longName.c_str(), "C", XtRString, nullptr)), "long");
    EXPECT_EQ(text(LmGetResource(button, longName.c_str(), longName.c_str())), "long");
    EXPECT_EQ(text(LmGetResource(deep, "deep", "Deep", XtRString, nullptr)), "found");
    EXPECT_EQ(text(LmGetResource(deep, dotted.c_str(), "C", XtRString, "none")), "none");
    EXPECT_EQ(text(LmGetResource(button, "dotted.name.of.things", "C", XtRString, nullptr)), "yes");
    EXPECT_EQ(text(LmGetResource(dotted.c_str(), longName.c_str())), "(null)");

    std::vector<char*> names(200), classes(200);
    ASSERT_EQ(GetNamesAndClasses(deep, names.data(), classes.data()), 153);
    EXPECT_STREQ(names[0], "lmtest");
    EXPECT_STREQ(names[2], "form");
    EXPECT_STREQ(classes[152], "XmForm");
    EXPECT_EQ(GetNamesAndClasses(nullptr, names.data(), classes.data()), 0);
    EXPECT_STREQ(lm::CString(widgetPathName(button)).get(), "lmtest.shell.form.button");
}

TEST_F(ResourceOnScreen, TheProgramsOwnResources)
{
    setResource("lmtest.editor: vi");
    setResource("LmTest.Pager: less");
    setResource("other.editor: ed");

    EXPECT_EQ(text(LmGetResource("editor", "Editor")), "vi");
    EXPECT_EQ(text(LmGetResource("pager", "Pager")), "less");
    EXPECT_EQ(text(LmGetResource("absent", "Absent")), "(null)");
    EXPECT_EQ(text(LmGetDefault(app().display(), "other", "Other", "editor", "Editor")), "ed");
    EXPECT_EQ(text(LmGetDefault(app().display(), "other", "Other", std::string(5000, 'n').c_str(), "E")), "(null)");
}
