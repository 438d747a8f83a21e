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

    static std::string text(const void* string) { return string ? static_cast<const char*>(string) : "(null)"; }
};

TEST_F(ResourceOnScreen, TheGeneralLookUpConvertsAndExtendsTheSign)
{
    setResource("lmtest.shell.form.button.depth: -5");
    setResource("*XmForm.XmPushButton.Wide: -7");
    setResource("*form*flag: TRUE");
    EXPECT_EQ(LmGetResource(button, "depth", "Depth", XtRInt, "1"), lm::asPointer(-5));
    EXPECT_EQ(LmGetResource(button, "wide", "Wide", XtRPosition, "1"), lm::asPointer(-7));
    EXPECT_EQ(LmGetResource(form, "depth", "Depth", XtRInt, nullptr), nullptr);   // the button's alone
    EXPECT_EQ(LmGetResource(button, "ink", "Foreground", XtRPixel, "#0102fe"), lm::asPointer(0x0102fe));
    const char* fallback = "the default";
    EXPECT_EQ(LmGetResource(button, "absent", "Label", XtRString, fallback), fallback);
    Widget gadget = XtVaCreateWidget("gadget", xmPushButtonGadgetClass, form, nullptr);
    EXPECT_EQ(LmGetResource(gadget, "flag", "Flag", XtRBoolean, "FALSE"), lm::asPointer(1));
    const lm::XmText first(static_cast<XmString>(LmGetResource(button, "title", "Title", XmRXmString, "Hello")));
    const lm::XmText second(static_cast<XmString>(LmGetResource(button, "title", "Title", XmRXmString, "Hello")));
    EXPECT_NE(first, second) << "a fresh copy each time";
}

TEST_F(ResourceOnScreen, WhatCannotBeConvertedWarnsAndAnswersNothing)
{
    EXPECT_EQ(LmGetResource(button, "n", "N", XtRInt, "twelve"), nullptr);
    EXPECT_EQ(LmGetResource(button, "n", "N", "NoSuchType", "1"), nullptr);
    const auto errors = takeErrors();
    for (const char* said : {"Can't convert a String to a Int", "Can't convert a String to a NoSuchType"})
        EXPECT_EQ(std::ranges::count(errors, std::string("Xt warning: ") + said), 1) << said;
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
        {XtRInt, 0, nullptr, 8, 1, untouched},
        {XtRPixel, 0, "#010203", 4, 3, untouched},
        {XtRInt, 8, "-3", 8, 0, -3},   // the sign goes through all eight bytes
        {XtRInt, -1, "-3", 8, 1, untouched},
        {XtRPixel, 4, "#010203", 8, 1, untouched},   // cut, it would be another colour
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
    for (const auto& [type, size] : {std::pair{XtRInt, 4}, {XtRInt, 8}, {XtRShort, 2}})
        EXPECT_EQ(LmGetResource(button, "count", "C", type, size, "1"), lm::asPointer(-12)) << type << size;
    EXPECT_EQ(LmGetResource(button, "absent", "C", XtRInt, 4, lm::asPointer(-9)), lm::asPointer(-9));
    EXPECT_EQ(text(LmGetResource(button, "absent", "Title", "default")), "default");
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

    EXPECT_EQ(text(LmGetResource(button, longName.c_str(), "C", XtRString, nullptr)), "long");
    EXPECT_EQ(text(LmGetResource(deep, "deep", "Deep", XtRString, nullptr)), "found");
    EXPECT_EQ(text(LmGetResource(deep, dotted.c_str(), "C", XtRString, "none")), "none");
    EXPECT_EQ(text(LmGetResource(dotted.c_str(), longName.c_str())), "(null)");

    std::vector<char*> names(200), classes(200);
    ASSERT_EQ(GetNamesAndClasses(deep, names.data(), classes.data()), 153);
    EXPECT_EQ(text(names[2]) + " " + text(classes[152]), "form XmForm");
    setResource("lmtest.editor: vi");
    EXPECT_EQ(text(LmGetResource("editor", "Editor")), "vi");
    EXPECT_STREQ(lm::CString(widgetPathName(button)).get(), "lmtest.shell.form.button");
}
