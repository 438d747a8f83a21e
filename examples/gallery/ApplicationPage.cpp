#include "ApplicationPage.h"

#include <Lm/LmApp.h>
#include <Lm/LmWindow.h>
#include <Lm/support/xt.h>

#include <Xm/Form.h>
#include <Xm/Label.h>
#include <Xm/Scale.h>
#include <Xm/TextF.h>
#include <Xm/ToggleB.h>

/// A second window, with nothing but help in its menu bar.
class SmallWindow : public LmWindow {
public:
    SmallWindow() : LmWindow("small") { setMenuBar(static_cast<LmMenuDesc*>(nullptr)); }
    Widget setUpInterface(Widget parent) override { return row::label("smallText", parent); }
};

ApplicationPage::ApplicationPage(Widget parent, LmSimpleWindow* window) : Page("applicationPage", parent), _window(window)
{
    Widget column = row::down("column", body());

    Widget titleRow = row::across("titleRow", column);
    row::label("titleLabel", titleRow);
    _title = XtVaCreateManagedWidget("titleField", xmTextFieldWidgetClass, titleRow, XmNcolumns, 24, XmNvalue, window->getTitle(),
                                     nullptr);
    lm::on<&ApplicationPage::setTitle>(_title, XmNactivateCallback, this);
    lm::on<&ApplicationPage::setTitle>(row::button("setTitle", titleRow), XmNactivateCallback, this);

    Widget windowRow = row::across("windowRow", column);
    lm::on<&ApplicationPage::openAnother>(row::button("openAnother", windowRow), XmNactivateCallback, this);
    lm::on<&ApplicationPage::iconify>(row::button("iconify", windowRow), XmNactivateCallback, this);
    lm::on<&ApplicationPage::close>(row::button("close", windowRow), XmNactivateCallback, this);
    lm::on<&ApplicationPage::quit>(row::button("quit", windowRow), XmNactivateCallback, this);
    _refuse = XtVaCreateManagedWidget("refuse", xmToggleButtonWidgetClass, column, nullptr);

    Widget workRow = row::across("workRow", column);
    lm::on<&ApplicationPage::beginWork>(row::button("work", workRow), XmNactivateCallback, this);
    _progress = XtVaCreateManagedWidget("progress", xmScaleWidgetClass, workRow, XmNorientation, XmHORIZONTAL, XmNsliderVisual,
                                        XmFOREGROUND_COLOR, XmNslidingMode, XmTHERMOMETER, XmNeditable, False, XmNscaleWidth, 240,
                                        nullptr);
}

bool ApplicationPage::mayClose() const { return !XmToggleButtonGetState(_refuse); }

void ApplicationPage::setTitle()
{
    const lm::XtString text(XmTextFieldGetString(_title));
    _window->setTitle(text.get());
}

void ApplicationPage::openAnother() { (new SmallWindow)->show(); }

void ApplicationPage::iconify() { _window->iconify(); }

void ApplicationPage::close() { _window->handleWmDeleteMessage(); }

void ApplicationPage::quit() { theApplication->quitYourself(); }

void ApplicationPage::beginWork()
{
    _done = 0;
    theApplication->busy();
    workOn();
}

/// One of thirty steps of a tenth of a second: the cursor turns, the bar grows, and nothing takes input.
void ApplicationPage::workOn()
{
    _step.fired();
    theApplication->progressing();
    XmScaleSetValue(_progress, _done);
    if (_done >= 100) {
        theApplication->notBusy();
        return;
    }
    _done = std::min(100, _done + 4);
    _step = lm::TimerHandle(lm::after<&ApplicationPage::workOn>(theApplication->appContext(), 100, this));
}
