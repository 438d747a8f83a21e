#include "DiskWindow.h"

#include <Lm/LmApp.h>
#include <Lm/LmContextHelp.h>
#include <Lm/LmFileSet.h>
#include <Lm/LmHelpPane.h>
#include <Lm/LmMenuBar.h>
#include <Lm/LmMenuUndoManager.h>
#include <Lm/LmSubMenu.h>
#include <Lm/support/calldata.h>
#include <Lm/support/handles.h>
#include <Lm/support/resources.h>
#include <Lm/support/xmtext.h>
#include <Lm/support/xt.h>

#include <Xm/Form.h>
#include <Xm/Label.h>
#include <Xm/List.h>
#include <Xm/PushB.h>
#include <Xm/TextF.h>

#include <cstdlib>

#include <sys/wait.h>

static constexpr int margin = 10;
static constexpr auto slice = std::chrono::milliseconds(4);

/// An exclusion as a command, so that Undo takes it back.
class Exclusion : public LmAction {
public:
    Exclusion(DiskWindow& window, Entry& entry)
        : LmAction(("Exclude " + shownName(entry.name)).c_str()),
          _window(window),
          _entry(entry)
    {}
    void doit() override { _window.exclude(_entry, true); }
    void undoit() override { _window.exclude(_entry, false); }

private:
    DiskWindow& _window;
    Entry& _entry;
};

DiskWindow::DiskWindow()
    : LmWindow("diskview"),
      _preferences(std::make_unique<Preferences>()),
      _look(_preferences->look()),
      _tree(std::make_unique<Tree>()),
      _reading([this] { return readSlice(); })
{
    // clang-format off
    LmMenuDesc fileTable[] = {
        {MENU_ACTION, "chooseFiles", chooseFiles},
        {MENU_ACTION, "scanAgain", scanAgain},
        {MENU_ACTION, "stopScan", stopScan},
        {MENU_SEPARATOR},
        {MENU_ACTION, "quit", quit},
        {MENU_END}};
    LmMenuDesc editTable[] = {
        {MENU_ACTION, "exclude", excludeChosen},
        {MENU_SEPARATOR},
        {MENU_ACTION, "showPreferences", showPreferences},
        {MENU_END}};
    LmMenuDesc barTable[] = {
        {MENU_SUBMENU, "fileMenu", nullptr, fileTable},
        {MENU_SUBMENU, "editMenu", nullptr, editTable},
        {MENU_END}};
    // clang-format on
    setMenuBar(barTable);
    static_cast<LmSubMenu*>(menu()->findNamedItem("editMenu", false, false))->add(getTheUndoManager(), 0);
    menu()->addHelpPane();
    menu()->helpPane()->addAction("helpOnContextMenuItem", LmHelpPane::contextCallback, menu()->helpPane());
    _preferences->addCallback(LmPrefDialog::prefCallback, this, &DiskWindow::preferencesChosen, nullptr);
    _clock.addCallback(LmPeriodic::timerCallback, this, &DiskWindow::progress, nullptr);
}

DiskWindow::~DiskWindow() = default;

// --- the view ----------------------------------------------------------------------------------------------------------

Widget DiskWindow::setUpInterface(Widget parent)
{
    XtAddCallback(parent, XmNhelpCallback, _LmSmartHelpCallback, nullptr);
    Widget form = XtVaCreateWidget("form", xmFormWidgetClass, parent, XmNmarginWidth, margin, XmNmarginHeight, margin,
                                   XmNfractionBase, 100, nullptr);
    makeCharts(form);
    makeConsole(form);
    return form;
}

void DiskWindow::makeCharts(Widget form)
{
    _roomLabel = XtVaCreateManagedWidget("roomLabel", xmLabelWidgetClass, form, XmNtopAttachment, XmATTACH_FORM,
                                         XmNleftAttachment, XmATTACH_FORM, nullptr);
    _meter = std::make_unique<RoomMeter>("roomMeter", form);
    XtVaSetValues(_meter->baseWidget(), XmNtopAttachment, XmATTACH_OPPOSITE_WIDGET, XmNtopWidget, _roomLabel, XmNbottomAttachment,
                  XmATTACH_OPPOSITE_WIDGET, XmNbottomWidget, _roomLabel, XmNleftAttachment, XmATTACH_WIDGET, XmNleftWidget,
                  _roomLabel, XmNleftOffset, margin, XmNrightAttachment, XmATTACH_FORM, nullptr);
    _outline = std::make_unique<SizeOutline>("entries", form);
    _pie = std::make_unique<SharePie>("pie", form);
    for (Widget w : {_outline->baseWidget(), _pie->baseWidget()})
        XtVaSetValues(w, XmNtopAttachment, XmATTACH_WIDGET, XmNtopWidget, _roomLabel, XmNtopOffset, margin, XmNbottomAttachment,
                      XmATTACH_POSITION, XmNbottomPosition, 68, nullptr);
    XtVaSetValues(_outline->baseWidget(), XmNleftAttachment, XmATTACH_FORM, XmNrightAttachment, XmATTACH_POSITION,
                  XmNrightPosition, 60, nullptr);
    XtVaSetValues(_pie->baseWidget(), XmNleftAttachment, XmATTACH_POSITION, XmNleftPosition, 60, XmNleftOffset, margin,
                  XmNrightAttachment, XmATTACH_FORM, nullptr);
    _outline->addCallback(SizeOutline::shownCallback, this, &DiskWindow::rowsShown, nullptr);
    _outline->addCallback(SizeOutline::chosenCallback, this, &DiskWindow::rowChosen, nullptr);
    _meter->show();
    _pie->show();
}

void DiskWindow::makeConsole(Widget form)
{
    Widget label = XtVaCreateManagedWidget("commandLabel", xmLabelWidgetClass, form, XmNleftAttachment, XmATTACH_FORM, nullptr);
    Widget run = XtVaCreateManagedWidget("runCommand", xmPushButtonWidgetClass, form, XmNrightAttachment, XmATTACH_FORM, nullptr);
    _command = XtVaCreateManagedWidget("command", xmTextFieldWidgetClass, form, XmNtopAttachment, XmATTACH_POSITION,
                                       XmNtopPosition, 68, XmNtopOffset, margin, XmNleftAttachment, XmATTACH_WIDGET,
                                       XmNleftWidget, label, XmNleftOffset, margin, XmNrightAttachment, XmATTACH_WIDGET,
                                       XmNrightWidget, run, XmNrightOffset, margin, nullptr);
    for (Widget w : {label, run})
        XtVaSetValues(w, XmNtopAttachment, XmATTACH_OPPOSITE_WIDGET, XmNtopWidget, _command, XmNbottomAttachment,
                      XmATTACH_OPPOSITE_WIDGET, XmNbottomWidget, _command, nullptr);
    _stop = XtVaCreateManagedWidget("stop", xmPushButtonWidgetClass, form, XmNrightAttachment, XmATTACH_FORM, XmNbottomAttachment,
                                    XmATTACH_FORM, nullptr);
    _status = XtVaCreateManagedWidget("status", xmLabelWidgetClass, form, XmNalignment, XmALIGNMENT_BEGINNING, XmNrecomputeSize,
                                      False, XmNleftAttachment, XmATTACH_FORM, XmNrightAttachment, XmATTACH_WIDGET,
                                      XmNrightWidget, _stop, XmNrightOffset, margin, XmNtopAttachment, XmATTACH_OPPOSITE_WIDGET,
                                      XmNtopWidget, _stop, XmNbottomAttachment, XmATTACH_FORM, nullptr);
    _console = std::make_unique<LmForkIO>("console", form, nullptr);
    XtVaSetValues(_console->baseWidget(), XmNtopAttachment, XmATTACH_WIDGET, XmNtopWidget, _command, XmNtopOffset, margin,
                  XmNbottomAttachment, XmATTACH_WIDGET, XmNbottomWidget, _stop, XmNbottomOffset, margin, XmNleftAttachment,
                  XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM, nullptr);
    _console->addCallback(LmForkIO::exitCallback, this, &DiskWindow::commandEnded, nullptr);
    _console->show();
    lm::on<&DiskWindow::runCommand>(run, XmNactivateCallback, this);
    lm::on<&DiskWindow::runCommand>(_command, XmNactivateCallback, this);
    lm::on<&DiskWindow::stop>(_stop, XmNactivateCallback, this);
}

void DiskWindow::say(const std::string& text)
{
    XtVaSetValues(_status, XmNlabelString, lm::compound(text.c_str()).get(), nullptr);
}

// --- scanning ----------------------------------------------------------------------------------------------------------

void DiskWindow::scan(std::vector<std::string> paths)
{
    if (!_outline)
        build();
    _times.begin();
    _exclusions.clear();   // they leave the undo manager
    _outline->clear();
    _paths = std::move(paths);
    _tree = std::make_unique<Tree>();
    _scanner = std::make_unique<Scanner>(*_tree, _paths);
    _wasStopped = false;
    _isReading = true;
    XtSetSensitive(_stop, True);
    menu()->activateItem("stopScan");
    _reading.start();
    _clock.start();
}

bool DiskWindow::readSlice()
{
    if (!_scanner->read(slice))
        return false;
    stopReading();
    return true;
}

void DiskWindow::stopReading()
{
    _reading.stop();
    _clock.stop();
    _isReading = false;
    XtSetSensitive(_stop, False);
    menu()->deactivateItem("stopScan");
    _times.say("read");
    showTree();
    showCharts();
}

void DiskWindow::stop()
{
    if (!_isReading)
        return;
    _wasStopped = true;
    stopReading();
}

/// "12345 entries, 1.2 GB", and what could not be read.
std::string DiskWindow::counted() const
{
    std::string text = std::to_string(_tree->size()) + " entries, " + sizeText(_tree->total().by(_look.measure), _look.units);
    if (_scanner && _scanner->unread() > 0)
        text += ", " + std::to_string(_scanner->unread()) + " not readable";
    return text;
}

void DiskWindow::progress(LmCallbackObject*, void*, void*)
{
    say("Reading: " + counted());
    showCharts();
}

void DiskWindow::showTree()
{
    _isMaking = true;
    _outline->build(*_tree, _look);
}

void DiskWindow::rowsShown(LmCallbackObject*, void*, void*)
{
    _isMaking = false;
    say((_wasStopped ? "Stopped: " : "") + counted());
    showTitle();
    _times.say("shown");
    _times.stop();
}

void DiskWindow::showTitle()
{
    const std::string what = _paths.size() == 1 ? shownName(_paths.front()) : std::to_string(_paths.size()) + " places";
    setTitle((what + ": " + sizeText(_tree->total().by(_look.measure), _look.units)).c_str());
}

/// The pie shows the chosen directory, or the one of the chosen file, or the first of all.
void DiskWindow::showCharts()
{
    const Entry* shown = _outline->chosen();
    if (!shown && !_tree->tops().empty())
        shown = _tree->tops().front();
    if (shown && !shown->isDirectory && shown->parent)
        shown = shown->parent;
    _pie->showShares(shown, _look.measure);
    const std::string path = shown ? shown->path() : "/";
    XtVaSetValues(_roomLabel, XmNlabelString, lm::compound(_meter->showRoom(path, _tree->total(), _look.units).c_str()).get(),
                  nullptr);
}

// --- what the user does ------------------------------------------------------------------------------------------------

void DiskWindow::exclude(Entry& entry, bool out)
{
    _tree->exclude(entry, out);
    _times.begin();
    showTree();
    showCharts();
}

void DiskWindow::rowChosen(LmCallbackObject*, void*, void*)
{
    showCharts();
    if (const Entry* chosen = _outline->chosen())
        say(shownName(chosen->path()) + ": " + sizeText(chosen->total.by(_look.measure), _look.units));
}

void DiskWindow::chooseRow(int row) { XmListSelectPos(_outline->listWidget(), row, True); }

/// The command sees to the rest itself: it is sh that takes it apart, out of the environment.
void DiskWindow::runCommand()
{
    const lm::XtString typed(XmTextFieldGetString(_command));
    const Entry* chosen = _outline->chosen();
    if (!chosen && !_tree->tops().empty())
        chosen = _tree->tops().front();
    if (!chosen || !*typed)
        return;
    const std::string line = commandOn(typed.get(), chosen->path());
    _console->clearHistory();
    _console->outputString(("$ " + shownName(line) + "\n").data(), False);
    setenv("DISKVIEW_COMMAND", line.c_str(), 1);
    _console->execCommand("sh -c 'eval \"$DISKVIEW_COMMAND\"'");
}

void DiskWindow::commandEnded(LmCallbackObject*, void*, void* status)
{
    const int how = lm::asInt(status);
    if (how != 0)
        say(WIFSIGNALED(how) ? "The command was ended by signal " + std::to_string(WTERMSIG(how))
                             : "The command ended with status " + std::to_string(WEXITSTATUS(how)));
}

/// Apply comes before the values are committed; look() commits each.
void DiskWindow::preferencesChosen(LmCallbackObject*, void*, void* reason)
{
    if (lm::asInt(reason) != LmDialogManager::REASON_APPLY)
        return;
    _look = _preferences->look();
    if (!_isReading)
        showTree();
    showCharts();
}

void DiskWindow::chooseFiles(Widget, XtPointer window, XtPointer) noexcept
{
    auto* self = static_cast<DiskWindow*>(window);
    if (!self->_files) {
        self->_files = std::make_unique<LmFileSet>(self->mainWindowWidget(), "files");
        self->_files->setRecursive(True);   // whole paths, and no names alone
        self->_files->addCallback(LmFileSet::dismissCallback, self, &DiskWindow::filesChosen, nullptr);
    }
    self->_files->show();
}

void DiskWindow::filesChosen(LmCallbackObject*, void*, void* isOk)
{
    const LmNameList* names = lm::asInt(isOk) == 1 ? _files->fileset() : nullptr;
    if (!names)
        return;
    std::vector<std::string> paths;
    for (int i = 0; i < names->size(); ++i)
        paths.push_back(resolved(names->at(i)));
    scan(std::move(paths));
}

void DiskWindow::scanAgain(Widget, XtPointer window, XtPointer) noexcept
{
    auto* self = static_cast<DiskWindow*>(window);
    self->scan(self->_paths);
}

void DiskWindow::stopScan(Widget, XtPointer window, XtPointer) noexcept { static_cast<DiskWindow*>(window)->stop(); }

void DiskWindow::showPreferences(Widget, XtPointer window, XtPointer) noexcept
{
    auto* self = static_cast<DiskWindow*>(window);
    self->_preferences->post(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, self);
}

void DiskWindow::quit(Widget, XtPointer, XtPointer) noexcept { theApplication->quitYourself(); }

void DiskWindow::excludeChosen(Widget, XtPointer window, XtPointer) noexcept
{
    auto* self = static_cast<DiskWindow*>(window);
    Entry* entry = self->_outline->chosen();
    if (!entry || entry->isExcluded || self->_isReading)
        return;
    self->_exclusions.push_back(std::make_unique<Exclusion>(*self, *entry));
    self->_exclusions.back()->execute();
}
