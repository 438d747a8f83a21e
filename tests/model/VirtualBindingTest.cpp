#include <gtest/gtest.h>

#include "base/core/VirtualBinding.h"

#include <X11/keysym.h>

using Keys = std::vector<lm::KeyBinding>;

TEST(VirtualBindingModel, ReadsKeysWithTheirModifiers)
{
    EXPECT_EQ(lm::parseVirtualBinding("<Key>F1"), (Keys{{XK_F1, 0}}));
    EXPECT_EQ(lm::parseVirtualBinding(" Shift Ctrl <Key>Insert"), (Keys{{XK_Insert, ShiftMask | ControlMask}}));
    EXPECT_EQ(lm::parseVirtualBinding("Meta<Key>Help , Alt\tMod4<Key>F10 "),
              (Keys{{XK_Help, Mod1Mask}, {XK_F10, Mod1Mask | Mod4Mask}}));
}

TEST(VirtualBindingModel, LeavesAllElseToMotif)
{
    for (const char* text : {"", "F1", "<Key>", "<Key>F1,", "<Key>F1 F2", "<Key> F1", "<KeyUp>F1", "<Btn1Down>", "None<Key>F1",
                             "~Shift<Key>F1", "Shift~Ctrl<Key>F1", "shift<Key>F1", "<Key>NoSuchKey", "<Key>F1:", "Shift"})
        EXPECT_EQ(lm::parseVirtualBinding(text), std::nullopt) << text;
}
