// LmIconButton: a push button with an icon above its label.
#pragma once

#include "LmComponent.h"
#include "support/handles.h"

/// A push button that shows an XPM icon and, below it, its label. While it is pressed and, in the highlighting look, while the
/// pointer is over it, icon and label lie on another colour; while it is insensitive another icon is shown. The colours are
/// those the button has when it is made. The icon's symbols are those of CreateXPMPixmap.
///
///   Widgets    XmPushButton of the component's name (base widget)
///   Resources  of the parent: tevMode  tevMode  Boolean  False  the highlighting look
///   Errors     none: an icon that cannot be made, or is null, takes no room
class LM_API LmIconButton : public LmComponent {
public:
    /// Both icons are XPM data, which is not kept. Without a label the button is as large as the normal icon and 10 pixels
    /// higher, besides its own margins and borders.
    LmIconButton(const char* name, Widget parent, const char** normalXpm, const char** insensitiveXpm, char showLabel);
    ~LmIconButton() override;

    const char* className() override { return "LmIconButton"; }

    /// The pointer comes, in the highlighting look: shows the highlighted picture.
    void enter();
    /// The pointer goes: shows the normal picture.
    void leave();

private:
    struct Look;
    lm::PixmapHandle compose(const Look& look, const char** xpm, Pixel background, Pixel labelColor);
    void install();
    void crossed(XEvent* event);
    void showPixmap(const lm::PixmapHandle& pixmap);

    lm::PixmapHandle _normalPixmap, _highlightPixmap, _insensitivePixmap, _armedPixmap;
    Pixel _highlightColor = 0, _background = 0;
};
