// Page.h: one page of the gallery: a head that says what is shown, and a body with the live thing.
#pragma once

#include <Lm/LmComponent.h>

/// A page: a form with the widgets "pageTitle", "showCode", "pageText" and "body". Title and text are resources of the page's
/// name.
class Page : public LmComponent {
public:
    Page(const char* name, Widget parent);

    const char* className() override { return "Page"; }
    /// The title as the list of pages shows it, UTF-8.
    const char* title() const { return _title; }

protected:
    /// The form below the head that derived classes fill.
    Widget body() const { return _body; }

private:
    void showCode();

    const char* _title = nullptr;   // resource
    const char* _text = nullptr;    // resource
    Widget _body = nullptr;
};

/// What pages are put together from; all unmanaged children of their parent are managed by the call.
namespace row {

/// A row (horizontal) or a column (vertical) of widgets, 10 pixels apart.
Widget across(const char* name, Widget parent);
Widget down(const char* name, Widget parent);
/// A push button whose action is a member function of an object: row::button<&SomePage::go>(...).
Widget button(const char* name, Widget parent);
Widget label(const char* name, Widget parent);

}   // namespace row
