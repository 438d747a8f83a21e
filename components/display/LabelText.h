// LabelText.h: the label and the key of an outline's node in one block.
#pragma once

#include <Xm/Xm.h>

namespace lm {

/// A node's label and key. A tree of a hundred thousand nodes is mostly these, so they are made without Motif's parser:
/// an XmString of a short line is a header, the same for all, and the text. We append a NUL, and the key if it
/// differs, so that label, text and key are one allocation. XmStringFree and XmStringCopy treat it as any other; its bytes
/// are those of XmStringCreateLocalized. Where that does not hold, or the text is longer, the ordinary way is taken.
struct LabelText {
    XmString label = nullptr;   ///< the caller's, to be freed with XmStringFree
    bool inOneBlock = false;    ///< the text and the key are behind the header; else the key is to be kept elsewhere
    bool keyFollows = false;    ///< the key stands behind the text, else it is the text
};

/// Null texts count as empty.
LabelText makeLabel(const char* text, const char* key);

/// The text, respectively the key, of a label made in one block.
const char* textOf(XmString label);
const char* keyOf(XmString label, bool keyFollows);

}   // namespace lm
