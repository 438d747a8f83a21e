#include "ResizerPage.h"

#include <Lm/LmFormat.h>
#include <Lm/support/xmtext.h>
#include <Lm/support/xt.h>

#include <Xm/BulletinB.h>
#include <Xm/Form.h>
#include <Xm/Frame.h>
#include <Xm/Label.h>
#include <Xm/ToggleB.h>

ResizerPage::ResizerPage(Widget parent) : Page("resizerPage", parent)
{
    Widget controls = row::across("resizerControls", body());
    _live = XtVaCreateManagedWidget("live", xmToggleButtonWidgetClass, controls, nullptr);
    lm::on<&ResizerPage::makeResizer>(_live, XmNvalueChangedCallback, this);
    _steps = XtVaCreateManagedWidget("steps", xmToggleButtonWidgetClass, controls, nullptr);
    lm::on<&ResizerPage::setSteps>(_steps, XmNvalueChangedCallback, this);
    _place = row::label("place", controls);

    Widget frame =
        XtVaCreateManagedWidget("boardFrame", xmFrameWidgetClass, body(), XmNshadowType, XmSHADOW_IN, XmNtopAttachment,
                                XmATTACH_WIDGET, XmNtopWidget, controls, XmNtopOffset, 10, XmNbottomAttachment, XmATTACH_FORM,
                                XmNleftAttachment, XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM, nullptr);
    _board = XtVaCreateManagedWidget("cardBoard", xmBulletinBoardWidgetClass, frame, XmNmarginWidth, 0, XmNmarginHeight, 0,
                                     XmNresizePolicy, XmRESIZE_NONE, nullptr);
    for (const char* name : {"firstCard", "secondCard", "thirdCard"}) {
        Widget card = XtVaCreateManagedWidget(name, xmLabelWidgetClass, _board, XmNrecomputeSize, False, nullptr);
        XtAddEventHandler(card, ButtonPressMask, False, cardPressed, this);
        _card = _card ? _card : card;
    }
    makeResizer();
}

/// The cards belong to the page: a resizer that goes must not take one along.
ResizerPage::~ResizerPage()
{
    if (_resizer)
        _resizer->detach();
}

void ResizerPage::makeResizer()
{
    if (_resizer)
        _resizer->detach();
    _resizer = std::make_unique<LmResizer>(True, XmToggleButtonGetState(_live));
    _resizer->addCallback(LmResizer::stateChangedCallback, this, &ResizerPage::moved, nullptr);
    setSteps();
    hold(_card);
}

void ResizerPage::setSteps()
{
    const int step = XmToggleButtonGetState(_steps) ? 20 : 1;
    _resizer->setIncrements(step, step, step, step);
}

void ResizerPage::hold(Widget card)
{
    _card = card;
    _resizer->attach(card);
    _resizer->show();
    moved(nullptr, nullptr, nullptr);
}

void ResizerPage::cardPressed(Widget card, XtPointer page, XEvent*, Boolean*) noexcept
{
    static_cast<ResizerPage*>(page)->hold(card);
}

void ResizerPage::moved(LmCallbackObject*, void*, void*)
{
    Position x = 0, y = 0;
    Dimension width = 0, height = 0;
    _resizer->lastLocation(&x, &y, &width, &height);
    XtVaSetValues(_place, XmNlabelString, lm::compound(LmFormat("%d x %d at %d, %d", width, height, x, y)).get(), nullptr);
}
