#include "LmContextHelp.h"
#include "LmFileSet.h"
#include "base/core/WindowProperties.h"
#include "components/FileSetLists.h"
#include "platform/XmGrid.h"
#include "support/resources.h"
#include "support/xt.h"
#include "utils/CompoundResource.h"

#include <Xm/ArrowB.h>
#include <Xm/Label.h>
#include <Xm/List.h>
#include <Xm/Protocols.h>
#include <Xm/PushB.h>
#include <Xm/Separator.h>
#include <Xm/TextF.h>
#include <Xm/ToggleB.h>

#include <algorithm>
#include <iterator>

static constexpr int margin = 10;   // pixels, around and between the halves

static const String _resources[] = {
    lm::xtText("currentDirectoryLabel*labelString:  Browsed Directory"),
    lm::xtText("left*visibleItemCount:              12"),
    lm::xtText("subdirectoryLabel*labelString:      Subdirectories"),
    lm::xtText("listSizePolicy:                     constant"),
    lm::xtText("workingDirectoryLabel*labelString:  Working Directory"),
    lm::xtText("filesLabel*labelString:             Files"),
    lm::xtText("dirCountLabel*labelString:          Include Directories"),
    lm::xtText("moveFilesLabel*labelString:         Include Files"),
    lm::xtText("recursiveButton*labelString:        Include Subdirectories"),
    lm::xtText("removeButton*labelString:           Remove Selected Files"),
    lm::xtText("literalButton*labelString:          Literal Input"),
    lm::xtText("cancelButton*labelString:           Cancel"),
    lm::xtText("helpButton*labelString:             Help"),
    lm::xtText("okButton*labelString:               OK"),
    lm::xtText("label1*labelString:                 Name or Pattern"),
    lm::xtText("currentDirectoryWidget.columns:     38"),
    lm::xtText("moveDirsButton.width:               24"),
    lm::xtText("moveDirsButton.height:              24"),
    lm::xtText("moveFilesButton.width:              24"),
    lm::xtText("moveFilesButton.height:             24"),
    nullptr,
};

// --- parts -------------------------------------------------------------------------------------------------------------

static Widget gridOf(Widget parent, const char* name, int columns)
{
    return XtVaCreateManagedWidget(name, xmGridWidgetClass, parent, "numColumns", columns, nullptr);
}

static void label(Widget parent, const char* name)
{
    XtVaCreateManagedWidget(name, xmLabelWidgetClass, parent, XmNalignment, XmALIGNMENT_BEGINNING, nullptr);
}

static Widget field(Widget parent, const char* name)
{
    return XtVaCreateManagedWidget(name, xmTextFieldWidgetClass, parent, nullptr);
}

static Widget list(Widget parent, const char* name)
{
    Arg args[] = {{lm::xtText(XmNlistSizePolicy), XmCONSTANT},
                  {lm::xtText(XmNscrollBarDisplayPolicy), XmSTATIC},
                  {lm::xtText(XmNselectionPolicy), XmEXTENDED_SELECT}};
    Widget made = XmCreateScrolledList(parent, lm::xtText(name), args, static_cast<Cardinal>(std::size(args)));
    XtManageChild(made);
    return made;
}

static Widget toggle(Widget parent, const char* name)
{
    return XtVaCreateManagedWidget(name, xmToggleButtonWidgetClass, parent, XmNalignment, XmALIGNMENT_BEGINNING,
                                   XmNnavigationType, XmTAB_GROUP, nullptr);   // so that Tab comes to it where it stands
}

/// A box with an arrow that moves names to the right, and its label.
static Widget arrow(Widget parent, const char* name, const char* labelName)
{
    Widget box = XtVaCreateManagedWidget("buttonBox", xmSpringBoxWidgetClass, parent, nullptr);
    Widget made = XtVaCreateManagedWidget(name, xmArrowButtonWidgetClass, box, XmNarrowDirection, XmARROW_RIGHT, "leftSpring", 0,
                                          "rightSpring", 0, nullptr);
    XtVaCreateManagedWidget(labelName, xmLabelWidgetClass, box, "leftSpring", 0, nullptr);
    return made;
}

/// Only these rows take the room to spare.
static void growRows(Widget grid, int count, std::initializer_list<int> growing)
{
    for (int row = 0; row < count; ++row)
        XmGridSetRowResizability(grid, row, std::ranges::find(growing, row) != growing.end() ? 1 : 0);
}

// --- the dialog --------------------------------------------------------------------------------------------------------

void LmFileSet::createDialog(Widget parent)
{
    setDefaultResources(parent, _resources);
    Arg args[] = {{lm::xtText("numColumns"), 1},
                  {lm::xtText("defaultSpacing"), margin},
                  {lm::xtText(XmNautoUnmanage), False},
                  {lm::xtText(XmNmarginWidth), 0},
                  {lm::xtText(XmNmarginHeight), margin}};
    _w = XmCreateGridDialog(parent, lm::xtText(name()), args, static_cast<Cardinal>(std::size(args)));
    LmComponent* self = this;
    XtResource table[] = {
        lm::resource(self, _readOnlyBackground, "readOnlyBackground", "ReadOnlyBackground", XtRPixel, "black"),
    };
    getResources(table, static_cast<int>(std::size(table)));
    Widget rows = XmGridOfDialog(_w);
    Widget halves = gridOf(rows, "grid", 2);
    createLeft(halves);
    createRight(halves);
    const int shares[] = {60, 40};
    for (int column = 0; column < 2; ++column) {
        XmGridSetColumnResizability(halves, column, shares[column]);
        XmGridSetColumnMargin(halves, column, margin);
    }
    XtVaCreateManagedWidget("separator1", xmSeparatorWidgetClass, rows, nullptr);
    createButtons(rows);
    growRows(rows, 3, {0});
    const lm::XmText title = lm::compoundResource(_w, XmNdialogTitle, XmCDialogTitle, "File Set");
    XtVaSetValues(_w, XmNdialogTitle, title.get(), XmNcancelButton, _cancelButton, XmNinitialFocus, _currentDirectory, nullptr);
}

void LmFileSet::createLeft(Widget parent)
{
    Widget left = gridOf(parent, "left", 1);
    label(left, "currentDirectoryLabel");
    _currentDirectory = field(left, "currentDirectoryWidget");
    label(left, "subdirectoryLabel");
    _lists->directories.setWidget(list(left, "directoryList"));
    _moveDirsButton = arrow(left, "moveDirsButton", "dirCountLabel");
    _recursiveButton = toggle(left, "recursiveButton");
    label(left, "filesLabel");
    _lists->files.setWidget(list(left, "filesList"));
    _moveFilesButton = arrow(left, "moveFilesButton", "moveFilesLabel");
    growRows(left, 9, {3, 7});
}

void LmFileSet::createRight(Widget parent)
{
    Widget right = gridOf(parent, "right", 1);
    Widget box = XtVaCreateManagedWidget("buttonBox1", xmSpringBoxWidgetClass, right, nullptr);
    _removeButton = XtVaCreateManagedWidget("removeButton", xmPushButtonWidgetClass, box, "leftSpring", 0, nullptr);
    _literalButton = toggle(box, "literalButton");
    XtVaSetValues(_literalButton, "rightSpring", 0, nullptr);
    label(right, "workingDirectoryLabel");
    _workingDirectory = field(right, "workingDirectory");
    showReadOnly(_workingDirectory);
    label(right, "label1");
    _fileText = field(right, "fileTextWidget");
    _lists->set.setWidget(list(right, "fileSetList"));
    growRows(right, 6, {5});
}

void LmFileSet::createButtons(Widget parent)
{
    Widget box = XtVaCreateManagedWidget("buttonBox", xmSpringBoxWidgetClass, parent, nullptr);
    const auto button = [box](const char* name) { return XtVaCreateManagedWidget(name, xmPushButtonWidgetClass, box, nullptr); };
    _okButton = button("okButton");
    _cancelButton = button("cancelButton");
    _helpButton = button("helpButton");
}

/// Shows the working directory in a field that cannot be edited, in a colour that can be read on its background.
void LmFileSet::showReadOnly(Widget field) const
{
    Colormap colormap = None;
    Pixel foreground = 0, unused[3];
    XtVaGetValues(field, XmNcolormap, &colormap, nullptr);
    XmGetColors(XtScreen(field), colormap, _readOnlyBackground, &foreground, &unused[0], &unused[1], &unused[2]);
    XtVaSetValues(field, XmNeditable, False, XmNcursorPositionVisible, False, XmNbackground, _readOnlyBackground, XmNforeground,
                  foreground, XmNvalue, lm::shownName(_workingDir).c_str(), nullptr);
}

// --- what the widgets do -----------------------------------------------------------------------------------------------

template <auto M> static XtCallbackProc procedure() { return lm::Method<decltype(M)>::template call<M>; }

void LmFileSet::connectWidgets(bool connect)
{
    const struct {
        Widget widget;
        const char* list;
        XtCallbackProc procedure;
    } actions[] = {
        {_currentDirectory, XmNactivateCallback, procedure<&LmFileSet::directoryEntered>()},
        {_lists->directories.widget(), XmNdefaultActionCallback, procedure<&LmFileSet::directoryOpened>()},
        {_moveDirsButton, XmNactivateCallback, procedure<&LmFileSet::addDirs>()},
        {_recursiveButton, XmNvalueChangedCallback, procedure<&LmFileSet::recursiveToggled>()},
        {_moveFilesButton, XmNactivateCallback, procedure<&LmFileSet::addFiles>()},
        {_fileText, XmNactivateCallback, procedure<&LmFileSet::addFileDirect>()},
        {_removeButton, XmNactivateCallback, procedure<&LmFileSet::removeSelected>()},
        {_literalButton, XmNvalueChangedCallback, procedure<&LmFileSet::literalToggled>()},
        {_okButton, XmNactivateCallback, procedure<&LmFileSet::okPressed>()},
        {_cancelButton, XmNactivateCallback, procedure<&LmFileSet::cancelPressed>()},
    };
    for (const auto& action : actions)
        (connect ? XtAddCallback : XtRemoveCallback)(action.widget, action.list, action.procedure, this);

    Widget shell = XtParent(_w);
    const lm::WindowAtoms& atoms = lm::windowAtoms(XtDisplay(shell));
    const auto close = procedure<&LmFileSet::cancelPressed>();
    (connect ? XmAddProtocolCallback : XmRemoveProtocolCallback)(shell, atoms.wmProtocols, atoms.wmDeleteWindow, close, this);
    XtVaSetValues(shell, XmNdeleteResponse, connect ? XmDO_NOTHING : XmUNMAP, nullptr);
    if (connect)
        XtAddCallback(_helpButton, XmNactivateCallback, LmHelpCallback, lm::xtText("filesetManager"));
}
