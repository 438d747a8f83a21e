// Step 6: a child process.
#include <Lm/LmApp.h>
#include <Lm/LmFormat.h>
#include <Lm/LmInput.h>
#include <Lm/LmMenu.h>
#include <Lm/LmPrefDialog.h>
#include <Lm/LmPrefGroup.h>
#include <Lm/LmPrefText.h>
#include <Lm/LmPrefToggle.h>
#include <Lm/LmProgram.h>
#include <Lm/LmQuestionDialog.h>
#include <Lm/LmWarningDialog.h>
#include <Lm/LmWindow.h>
#include <Lm/support/calldata.h>
#include <Lm/support/xt.h>

#include <Xm/Text.h>

#include <cstdlib>
#include <memory>
#include <string>

#include <sys/wait.h>
#include <unistd.h>

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
    void append(const char* text)
    {
        if (_w)
            XmTextInsert(_w, XmTextGetLastPosition(_w), const_cast<char*>(text));
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
            {MENU_ACTION, "insertDate", insertDate},
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

        _date.addCallback(LmProgram::stdoutCallback, this, &NotesWindow::takeOutput, nullptr);
        _date.addCallback(LmProgram::exitCallback, this, &NotesWindow::dateEnded, nullptr);
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

    static void insertDate(Widget, XtPointer client, XtPointer) noexcept
    {
        static_cast<NotesWindow*>(static_cast<LmWindow*>(client))->_date.run();
    }
    void takeOutput(LmCallbackObject*, void*, void* pipe)
    {
        auto* input = static_cast<LmInput*>(pipe);
        char bytes[512];
        ssize_t count = 0;
        while ((count = read(input->fd(), bytes, sizeof bytes)) > 0)
            _notes->append(std::string(bytes, static_cast<size_t>(count)).c_str());
        if (count == 0)
            input->remove();   // the end of the pipe
    }
    void dateEnded(LmCallbackObject*, void*, void* status)
    {
        if (!WIFEXITED(lm::asInt(status)) || WEXITSTATUS(lm::asInt(status)) != 0)
            getTheWarningDialog()->post("The command date failed.");
    }

    LmPrefText _heading{"heading", 20};
    LmPrefToggle _ask{"ask", false};
    LmPrefGroup _sheet{"sheet", false, true};
    LmPrefDialog _preferences{"preferences", &_sheet};
    LmProgram _date{"date", 0};
    std::unique_ptr<NoteView> _notes;
};

int main(int argc, char** argv)
{
    LmApp app("Notes", &argc, argv, nullptr, 0);
    auto* window = new NotesWindow;   // deletes itself when it is closed
    window->show();
    app.run();
}
