// Step 5: preferences.
#include <Lm/LmApp.h>
#include <Lm/LmFormat.h>
#include <Lm/LmMenu.h>
#include <Lm/LmPrefDialog.h>
#include <Lm/LmPrefGroup.h>
#include <Lm/LmPrefText.h>
#include <Lm/LmPrefToggle.h>
#include <Lm/LmQuestionDialog.h>
#include <Lm/LmWindow.h>
#include <Lm/support/calldata.h>
#include <Lm/support/xt.h>

#include <Xm/Text.h>

#include <cstdlib>
#include <memory>
#include <string>

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

    bool isEmpty() const { return !_w || XmTextGetLastPosition(_w) == 0; }
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
            {MENU_SEPARATOR},
            {MENU_ACTION, "preferences", askPreferences},
            {MENU_END}};
        LmMenuDesc barTable[] = {
            {MENU_SUBMENU, "editMenu", nullptr, editTable},
            {MENU_END}};
        // clang-format on
        setMenuBar(barTable);

        _heading.setValue("Notes");
        _ask.setValue(true);
        _sheet.addItem(&_heading);
        _sheet.addItem(&_ask);
        _preferences.addCallback(LmPrefDialog::prefCallback, this, &NotesWindow::preferencesChosen, nullptr);
    }
    Widget setUpInterface(Widget parent) override
    {
        _notes = std::make_unique<NoteView>("text", parent);
        _notes->addCallback(NoteView::changedCallback, this, &NotesWindow::showLength, nullptr);
        return _notes->baseWidget();
    }
    Boolean okToQuit() override { return mayForget(); }

private:
    void showLength(LmCallbackObject*, void*, void* length)
    {
        setTitle(LmFormat("%s: %d characters", textOf(_heading).c_str(), lm::asInt(length)));
    }

    /// Whether the text may go: asks, unless there is none.
    bool mayForget()
    {
        if (!_notes || _notes->isEmpty() || !_ask.getValue())
            return true;
        return getTheQuestionDialog()->postAndWait("Forget the text?", nullptr, this) == LmDialogManager::REASON_OK;
    }
    static void clear(Widget, XtPointer client, XtPointer) noexcept
    {
        auto* window = static_cast<NotesWindow*>(static_cast<LmWindow*>(client));
        const lm::Watch here(window->liveness());   // while the dialog waits, anything may happen to the window
        if (window->mayForget() && here)
            window->_notes->clear();
    }

    static std::string textOf(LmPrefText& item)
    {
        const std::unique_ptr<char, decltype(&std::free)> text(item.getValue(), &std::free);
        return text.get();
    }
    static void askPreferences(Widget, XtPointer client, XtPointer) noexcept
    {
        auto* window = static_cast<NotesWindow*>(static_cast<LmWindow*>(client));
        window->_preferences.post(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, window);
    }
    void preferencesChosen(LmCallbackObject*, void*, void* reason)
    {
        if (lm::asInt(reason) == LmDialogManager::REASON_APPLY)
            _notes->changed();   // the title has the heading in it
    }

    LmPrefText _heading{"heading", 20};
    LmPrefToggle _ask{"ask", false};
    LmPrefGroup _sheet{"sheet", false, true};
    LmPrefDialog _preferences{"preferences", &_sheet};
    std::unique_ptr<NoteView> _notes;
};

int main(int argc, char** argv)
{
    LmApp app("Notes", &argc, argv, nullptr, 0);
    auto* window = new NotesWindow;   // deletes itself when it is closed
    window->show();
    app.run();
}
