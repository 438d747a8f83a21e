// Step 3: a menu bar.
#include <Lm/LmApp.h>
#include <Lm/LmFormat.h>
#include <Lm/LmMenu.h>
#include <Lm/LmWindow.h>
#include <Lm/support/calldata.h>
#include <Lm/support/xt.h>

#include <Xm/Text.h>

#include <memory>

/// A text to write in.
///
///   Widgets    XmText of the component's name
///   Callbacks  changedCallback, when the text changed; call data: how many characters it has now
class NoteView : public LmComponent {
public:
    static const char* const changedCallback;

    NoteView(const char* name, Widget parent) : LmComponent(name)
    {
        _w = XtVaCreateWidget(name, xmTextWidgetClass, parent, XmNeditMode, XmMULTI_LINE_EDIT, nullptr);
        installDestroyHandler();
        lm::on<&NoteView::changed>(_w, XmNvalueChangedCallback, this);
    }
    const char* className() override { return "NoteView"; }

    void clear()
    {
        if (_w)
            XmTextSetString(_w, const_cast<char*>(""));
    }
    /// Tells how long the text is.
    void changed() { callCallbacks(changedCallback, lm::asPointer(XmTextGetLastPosition(_w))); }
};

const char* const NoteView::changedCallback = "changedCallback";

class NotesWindow : public LmWindow {
public:
    NotesWindow() : LmWindow("notes")
    {
        // clang-format off
        LmMenuDesc editTable[] = {
            {MENU_ACTION, "clear", clear},
            {MENU_END}};
        LmMenuDesc barTable[] = {
            {MENU_SUBMENU, "editMenu", nullptr, editTable},
            {MENU_END}};
        // clang-format on
        setMenuBar(barTable);
    }
    Widget setUpInterface(Widget parent) override
    {
        _notes = std::make_unique<NoteView>("text", parent);
        _notes->addCallback(NoteView::changedCallback, this, &NotesWindow::showLength, nullptr);
        return _notes->baseWidget();
    }

private:
    void showLength(LmCallbackObject*, void*, void* length) { setTitle(LmFormat("Notes: %d characters", lm::asInt(length))); }

    static void clear(Widget, XtPointer window, XtPointer) noexcept
    {
        static_cast<NotesWindow*>(static_cast<LmWindow*>(window))->_notes->clear();
    }

    std::unique_ptr<NoteView> _notes;
};

int main(int argc, char** argv)
{
    LmApp app("Notes", &argc, argv, nullptr, 0);
    auto* window = new NotesWindow;   // deletes itself when it is closed
    window->show();
    app.run();
}
