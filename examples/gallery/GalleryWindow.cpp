#include "GalleryWindow.h"

#include "DialogPage.h"

#include <Lm/support/handles.h>
#include <Lm/support/resources.h>
#include <Lm/support/xt.h>

#include <Xm/Form.h>

static constexpr int margin = 10;

GalleryWindow::GalleryWindow() : LmWindow("gallery") {}

Widget GalleryWindow::setUpInterface(Widget parent)
{
    Widget form = XtVaCreateWidget("form", xmFormWidgetClass, parent, XmNmarginWidth, margin, XmNmarginHeight, margin, nullptr);
    Arg place[] = {{lm::xtText(XmNtopAttachment), XmATTACH_FORM},
                   {lm::xtText(XmNbottomAttachment), XmATTACH_FORM},
                   {lm::xtText(XmNleftAttachment), XmATTACH_FORM}};
    _list = XmCreateScrolledList(form, lm::xtText("pages"), nullptr, 0);
    XtSetValues(XtParent(_list), place, 3);
    _deck = XtVaCreateManagedWidget("deck", xmFormWidgetClass, form, XmNtopAttachment, XmATTACH_FORM, XmNbottomAttachment,
                                    XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM, XmNleftAttachment, XmATTACH_WIDGET,
                                    XmNleftWidget, XtParent(_list), XmNleftOffset, margin, nullptr);
    addPages();
    lm::on<&GalleryWindow::chosen>(_list, XmNbrowseSelectionCallback, this);
    XtManageChild(_list);
    choose(0);
    return form;
}

void GalleryWindow::addPages()
{
    _pages.push_back(std::make_unique<ApplicationPage>(_deck, this));
    _applicationPage = static_cast<ApplicationPage*>(_pages.back().get());
    _pages.push_back(std::make_unique<DialogPage>(_deck, this));
    for (const auto& page : _pages) {
        const lm::XmText title(XmStringCreateLocalized(lm::xtText(page->title())));
        XmListAddItemUnselected(_list, title.get(), 0);
        XtVaSetValues(page->baseWidget(), XmNtopAttachment, XmATTACH_FORM, XmNbottomAttachment, XmATTACH_FORM, XmNleftAttachment,
                      XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM, nullptr);
    }
}

void GalleryWindow::choose(int index)
{
    if (index < 0 || index >= pageCount())
        return;
    for (int i = 0; i < pageCount(); ++i) {
        if (i != index)
            _pages[static_cast<size_t>(i)]->hide();
    }
    _pages[static_cast<size_t>(index)]->show();
    XmListSelectPos(_list, index + 1, False);
}
