#include "TabPage.h"

#include <Lm/XmGrid.h>
#include <Lm/support/xmtext.h>

#include <Xm/Form.h>
#include <Xm/Label.h>

#include <chrono>
#include <string>

using namespace std::chrono;

static constexpr int firstYear = 2024, yearCount = 6;
static const char* const monthNames[] = {"January", "February", "March",     "April",   "May",      "June",
                                         "July",    "August",   "September", "October", "November", "December"};

/// The days of a month, a week a line, from Monday to Sunday.
static std::string calendar(year y, unsigned month)
{
    const sys_days first = y / static_cast<int>(month) / 1, next = sys_days{y / static_cast<int>(month) / last} + days{1};
    std::string text =
        std::string(monthNames[month - 1]) + ' ' + std::to_string(static_cast<int>(y)) + "\n\n Mo Tu We Th Fr Sa Su\n";
    unsigned column = weekday{first}.iso_encoding() - 1;
    text.append(column * 3, ' ');
    for (sys_days day = first; day != next; day += days{1}) {
        const auto number = std::to_string(static_cast<unsigned>(year_month_day{day}.day()));
        text += std::string(3 - number.size(), ' ') + number;
        if (++column % 7 == 0)
            text += '\n';
    }
    text.append((42 - column) % 7 * 3, ' ');
    return text + std::string((42 - column) / 7, '\n');   // months are six lines high
}

TabPage::TabPage(Widget parent)
    : Page("tabPage", parent),
      _grid(XtVaCreateManagedWidget("tabGrid", xmGridWidgetClass, body(), "defaultSpacing", 0, XmNtopAttachment, XmATTACH_FORM,
                                    XmNbottomAttachment, XmATTACH_FORM, XmNleftAttachment, XmATTACH_FORM, XmNrightAttachment,
                                    XmATTACH_FORM, nullptr)),
      _years("years", _grid, False, 0),
      _months("months", _grid, True, 0),
      _deck("monthDeck", _grid)
{
    for (int i = 0; i < 12; ++i)
        _deck.addView(XtVaCreateManagedWidget("month", xmLabelWidgetClass, _deck.baseWidget(), nullptr));
    place();
    _years.addCallback(LmTabPanel::tabSelectCallback, this, &TabPage::yearChosen, nullptr);
    _months.addCallback(LmTabPanel::tabSelectCallback, this, &TabPage::monthChosen, nullptr);
    _months.addTabs(monthNames, nullptr, 12, False);
    for (int i = 0; i < yearCount; ++i)
        _years.addTab(std::to_string(firstYear + i).c_str(), nullptr, False);
    for (LmComponent* part : std::initializer_list<LmComponent*>{&_years, &_months, &_deck})
        part->show();
    _years.selectTab("2026", nullptr);
    _months.selectTab("September", nullptr);
}

/// The deck takes the room to spare, with the years at its left and the months below it.
void TabPage::place()
{
    XtVaSetValues(_years.baseWidget(), "row", 0, "column", 0, nullptr);
    XtVaSetValues(_deck.baseWidget(), "row", 0, "column", 1, nullptr);
    XtVaSetValues(_months.baseWidget(), "row", 1, "column", 1, nullptr);
    XmGridSetColumnResizability(_grid, 0, 0);
    XmGridSetRowResizability(_grid, 1, 0);
}

void TabPage::yearChosen(LmCallbackObject*, void*, void* choice)
{
    const year chosen{firstYear + static_cast<LmTabCallbackStruct*>(choice)->tabIndex};
    WidgetList views = nullptr;
    XtVaGetValues(_deck.baseWidget(), XmNchildren, &views, nullptr);
    for (unsigned month = 1; month <= 12; ++month)
        XtVaSetValues(views[month - 1], XmNlabelString, lm::compound(calendar(chosen, month).c_str()).get(), nullptr);
}

void TabPage::monthChosen(LmCallbackObject*, void*, void* choice)
{
    WidgetList views = nullptr;
    XtVaGetValues(_deck.baseWidget(), XmNchildren, &views, nullptr);
    _deck.pop(views[static_cast<LmTabCallbackStruct*>(choice)->tabIndex]);
}
