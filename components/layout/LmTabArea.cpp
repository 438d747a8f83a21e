#include "LmTabArea.h"

#include "LmMenuAction.h"
#include "LmPopupMenu.h"
#include "LmResource.h"
#include "geometry/TabLayout.h"
#include "support/XErrorTrap.h"
#include "support/resources.h"

#include <Xm/DrawingA.h>
#include <Xm/Label.h>
#include <Xm/RowColumn.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <utility>

const char* const LmTabArea::tabSelectCallback = "tabSelectCallback";
const char* const LmTabArea::tabPopupCallback = "tabPopupCallback";

/// The text with its own direction: strips are laid out from right to left, which turns strings without one round.
static lm::XmText xmText(const char* text)
{
    return lm::XmText(
        XmStringConcatAndFree(XmStringDirectionCreate(XmSTRING_DIRECTION_L_TO_R), XmStringCreateSimple(lm::xtText(text))));
}

// --- making and ending -------------------------------------------------------------------------------------------------

LmTabArea::LmTabArea(const char* name, Widget parent, char horizontal, int tabHeight)
    : LmDoubleBuffer(name, parent),
      _horizontal(horizontal ? 1 : 0),
      _layout(std::make_unique<lm::TabLayout>())
{
    loadResources();
    XtAddCallback(_baseWidget, XmNinputCallback, input_stub, this);
    takeLooks(tabHeight);
    createContexts();
    growToMinimum();
}

LmTabArea::~LmTabArea()
{
    if (_fixedFont && _baseWidget)
        XFreeFont(XtDisplay(_baseWidget), _fixedFont);
}

void LmTabArea::widgetDestroyed()
{
    _updateId = {};
    invalidateMenu();
    _lineGC = {};   // XtReleaseGC still needs the widget
    _tabGC = {};
    _selectedGC = {};
    if (_fixedFont)
        XFreeFont(XtDisplay(_baseWidget), std::exchange(_fixedFont, nullptr));
    _fontList = nullptr;
    _tabLabel = nullptr;
    LmDoubleBuffer::widgetDestroyed();
}

static int length(Widget w, const char* name, const char* cls, const char* fallback)
{
    int value = 0;
    LmGetResource(w, name, cls, XtRInt, fallback, &value, sizeof value);
    return std::clamp(value, 0, 32767);   // what the protocol can draw
}

void LmTabArea::loadResources()
{
    struct Row {
        int* field;
        const char *name, *cls, *fallback;
    };
    const Row rows[] = {{&_lineThickness, "lineThickness", "LineThickness", "1"},
                        {&_sideOffset, "sideOffset", "SideOffset", "17"},
                        {&_endSpacing, "endSpacing", "EndSpacing", "9"},
                        {&_endMultiplier, "endMultiplier", "EndMultiplier", "3"},
                        {&_pixmapSpacing, "pixmapSpacing", "PixmapSpacing", "3"},
                        {&_curvature, "curvature", "Curvature", "3"},
                        {&_curveMultiplier, "curveMultiplier", "CurveMultiplier", "2"}};
    for (const Row& row : rows)
        *row.field = length(_baseWidget, row.name, row.cls, row.fallback);
    LmGetResource(_baseWidget, "uniformTabs", "UniformTabs", XtRBoolean, "false", &_uniformTabs, sizeof _uniformTabs);
    const char *name = "selectedTabBackground", *cls = "SelectedTabBackground";
    Widget parent = XtParent(_baseWidget);
    if (LmGetResource(_baseWidget, name, cls))
        LmGetResource(parent, name, cls, XtRPixel, "black", &_selectedTabBackground, sizeof _selectedTabBackground);
    else
        XtVaGetValues(parent, XmNbackground, &_selectedTabBackground, nullptr);
}

/// Colours, font and margins are those of a label, so that users choose them as for any label.
void LmTabArea::takeLooks(int tabHeight)
{
    const lm::XmText sample = xmText("AaZzYy");
    _tabLabel = XtVaCreateWidget("tabLabel", xmLabelWidgetClass, _baseWidget, XmNlabelString, sample.get(), nullptr);
    Dimension marginWidth = 0, marginHeight = 0;
    XtVaGetValues(_tabLabel, XmNbackground, &_tabBackground, XmNforeground, &_labelForeground, XmNmarginWidth, &marginWidth,
                  XmNmarginHeight, &marginHeight, XmNfontList, &_fontList, nullptr);
    _marginWidth = marginWidth + length(_baseWidget, "additionalMarginWidth", "AdditionalMarginWidth", "4");
    _marginHeight = marginHeight + length(_baseWidget, "additionalMarginHeight", "AdditionalMarginHeight", "2");
    _textHeight = XmStringHeight(_fontList, sample.get());
    _tabHeight = tabHeight ? std::clamp(tabHeight, 0, 32767) : length(_baseWidget, "tabHeight", "TabHeight", "0");
    if (_tabHeight == 0)
        _tabHeight = _textHeight;
}

void LmTabArea::createContexts()
{
    XtGCMask mask = GCForeground | GCBackground | GCLineWidth;
    XGCValues values = {.foreground = _selectedTabBackground, .background = _selectedTabBackground, .line_width = _lineThickness};
    _selectedGC = lm::SharedGC(_baseWidget, mask, values);
    _fixedFont = XLoadQueryFont(XtDisplay(_baseWidget), "fixed");
    if (_fixedFont) {
        values.font = _fixedFont->fid;
        mask |= GCFont;
    }
    values.foreground = values.background = _tabBackground;
    _tabGC = lm::SharedGC(_baseWidget, mask, values);
    values.foreground = _labelForeground;
    _lineGC = lm::SharedGC(_baseWidget, mask, values);
}

void LmTabArea::growToMinimum()
{
    const int across = std::min(_tabHeight + 2 * _marginHeight + _lineThickness, 32767);
    if ((_horizontal ? _height : _width) < across)
        XtVaSetValues(_baseWidget, _horizontal ? XmNheight : XmNwidth, static_cast<Dimension>(across), nullptr);
}

// --- the tabs ----------------------------------------------------------------------------------------------------------

/// The text that a label stands for, as a copy: what the look-up returns belongs to the database.
lm::CString LmTabArea::resolved(const char* label)
{
    const char* text = label ? label : "";
    const char* replaced = _baseWidget && *text ? LmGetResource(_baseWidget, text, text) : nullptr;
    return lm::CString(strdup(replaced ? replaced : text));
}

LmTabArea::Tab LmTabArea::newTab(const char* label, void* clientData)
{
    lm::CString text = resolved(label);
    lm::XmText xmLabel = xmText(text.get());
    const int width = _fontList ? XmStringWidth(_fontList, xmLabel.get()) : 0;
    return {std::move(text), clientData, std::move(xmLabel), width};
}

int LmTabArea::addTab(const char* label, void* clientData, char sorted)
{
    Tab added = newTab(label, clientData);
    auto place = _tabs.end();
    if (sorted)
        place = std::ranges::find_if(_tabs, [&](const Tab& t) { return std::strcmp(t.label.get(), added.label.get()) > 0; });
    const int index = static_cast<int>(place - _tabs.begin());
    _tabs.insert(place, std::move(added));
    tabsChanged();
    if (_selected < 0) {
        update();
        selectTab(0, nullptr);   // its callback may delete us
        return index;
    }
    if (_selected >= index)
        ++_selected;
    scheduleUpdate();
    return index;
}

void LmTabArea::addTabs(const char* const* labels, void** clientData, int n, char sorted)
{
    const lm::Watch here(liveness());
    for (int i = 0; i < n && here; ++i)
        addTab(labels[i], clientData ? clientData[i] : nullptr, sorted);
}

char LmTabArea::removeTab(int index)
{
    if (!isTab(index))
        return False;
    if (_announcing)
        _oldLabels.push_back(std::move(tab(index).label));
    _tabs.erase(_tabs.begin() + index);
    lm::TabRun& run = _layout->run;
    for (int* end : {&run.first, &run.last})
        *end = std::clamp(*end, 0, std::max(0, size() - 1));
    tabsChanged();
    const lm::Watch here(liveness());
    if (_selected == index)
        selectTab(std::max(0, index - 1), nullptr);
    else if (_selected > index)
        --_selected;
    if (here)
        scheduleUpdate();
    return True;
}

char LmTabArea::removeTab(const char* label) { return removeTab(findLabel(label)); }

char LmTabArea::selectTab(int index, XEvent* event)
{
    if (size() > 0 && !isTab(index))
        return False;
    _selected = size() > 0 ? index : -1;
    _selectionOnly = true;
    update();
    _selectionOnly = false;
    announce(tabSelectCallback, _selected, event);
    return True;
}

char LmTabArea::selectTab(const char* label, XEvent* event)
{
    const int index = findLabel(label);
    return index < 0 ? static_cast<char>(False) : selectTab(index, event);
}

/// The object may be gone afterwards.
void LmTabArea::announce(const char* callback, int index, XEvent* event)
{
    LmTabCallbackStruct data = {nullptr, nullptr, index, event};
    getTab(index, &data.label, &data.clientData);
    const lm::Watch here(liveness());
    ++_announcing;
    callCallbacks(callback, &data);
    if (here && --_announcing == 0)
        _oldLabels.clear();
}

char LmTabArea::getTab(int index, char** label, void** clientData)
{
    const bool found = isTab(index);
    if (label)
        *label = found ? tab(index).label.get() : nullptr;
    if (clientData)
        *clientData = found ? tab(index).clientData : nullptr;
    return found;
}

char LmTabArea::tabPixmap(int index, Pixmap* out)
{
    if (!isTab(index))
        return False;
    if (out)
        *out = tab(index).pixmap;
    return True;
}

char LmTabArea::tabPixmap(const char* label, Pixmap* out) { return tabPixmap(findLabel(label), out); }

char LmTabArea::setTabPixmap(int index, Pixmap pixmap)
{
    if (!isTab(index))
        return False;
    Tab& t = tab(index);
    t.pixmap = None;
    if (pixmap && _baseWidget) {
        Display* display = XtDisplay(_baseWidget);
        lm::XErrorTrap trap(display);   // what is no pixmap is not drawn
        Window root = None;
        int x = 0, y = 0;
        unsigned border = 0;
        if (XGetGeometry(display, pixmap, &root, &x, &y, &t.pixmapWidth, &t.pixmapHeight, &border, &t.pixmapDepth))
            t.pixmap = pixmap;
    }
    tabsChanged();
    scheduleUpdate();
    return True;
}

char LmTabArea::setTabPixmap(const char* label, Pixmap pixmap) { return setTabPixmap(findLabel(label), pixmap); }

char LmTabArea::setTabLabel(int index, const char* label)
{
    if (!isTab(index))
        return False;
    Tab& t = tab(index);
    Tab relabelled = newTab(label, nullptr);
    t.label.swap(relabelled.label);
    t.xmLabel.swap(relabelled.xmLabel);
    t.labelWidth = relabelled.labelWidth;
    if (_announcing)
        _oldLabels.push_back(std::move(relabelled.label));
    tabsChanged();
    scheduleUpdate();
    return True;
}

char LmTabArea::setTabClientData(int index, void* clientData)
{
    if (!isTab(index))
        return False;
    tab(index).clientData = clientData;
    return True;
}

int LmTabArea::findLabel(const char* label)
{
    if (!label)
        return -1;
    const lm::CString text = resolved(label);
    const auto found = std::ranges::find_if(_tabs, [&](const Tab& t) { return std::strcmp(t.label.get(), text.get()) == 0; });
    return found == _tabs.end() ? -1 : static_cast<int>(found - _tabs.begin());
}

// --- the layout --------------------------------------------------------------------------------------------------------

void LmTabArea::tabsChanged()
{
    invalidateMenu();
    _isLaidOut = false;
}

int LmTabArea::pixmapExtra(const Tab& t) const
{
    return t.pixmap ? _pixmapSpacing + static_cast<int>(_horizontal ? t.pixmapWidth : t.pixmapHeight) : 0;
}

int LmTabArea::computeWidth(int index)
{
    if (!isTab(index))
        return 0;
    const Tab& t = tab(index);
    return (_horizontal ? t.labelWidth : _textHeight) + pixmapExtra(t);
}

/// The layout of the tabs and the area as they are now; its run changes with computeTabLayout() only.
lm::TabLayout& LmTabArea::layout()
{
    if (!_isLaidOut) {
        std::vector<int> widths;
        widths.reserve(_tabs.size());
        for (int i = 0; i < size(); ++i)
            widths.push_back(computeWidth(i));
        if (_uniformTabs && !widths.empty())
            std::ranges::fill(widths, std::ranges::max(widths));
        for (int& width : widths)
            width += 2 * _marginWidth;
        const lm::TabStyle style = {_horizontal != 0, _sideOffset,  _endSpacing,   _endMultiplier, _curvature, _curveMultiplier,
                                    _lineThickness,   _marginWidth, _marginHeight, _tabHeight,     _textHeight};
        const lm::TabRun run = _layout->run;
        *_layout = lm::TabLayout(style, widths);
        _layout->run = run;
        _isLaidOut = true;
    }
    _layout->width = _width;
    _layout->height = _height;
    return *_layout;
}

int LmTabArea::tabWidth(int index) { return layout().tabWidth(index); }

int LmTabArea::tabOffset(int index) { return layout().tabOffset(index); }

int LmTabArea::computeEndTab(int start) { return isTab(start) ? layout().endTab(start) : start; }

void LmTabArea::computeTabLayout()
{
    lm::TabLayout& strip = layout();
    const lm::TabRun before = strip.run;
    strip.arrange(_selected);
    if (strip.run != before)
        invalidateMenu();
}

int LmTabArea::findTab(int x, int y) { return layout().tabAt(x, y, _selected); }

char LmTabArea::matchTab(int index, int x, int y) { return layout().matches(index, x, y); }

void LmTabArea::curveCorner(int x, int y, int dx, int dy, XPoint* out)
{
    const lm::TabCorner points = _horizontal ? layout().corner(x, y, dx, dy) : layout().corner(y, _width - x, dy, -dx);
    std::ranges::copy(points, out);
}

// --- painting ----------------------------------------------------------------------------------------------------------

void LmTabArea::resize() { update(); }

void LmTabArea::afterRealizeHook() { update(); }

void LmTabArea::scheduleUpdate()
{
    if (!_updateId && _baseWidget)
        _updateId = lm::WorkProcHandle(XtAppAddWorkProc(XtWidgetToApplicationContext(_baseWidget), update_stub, this));
}

Boolean LmTabArea::update_stub(XtPointer clientData) noexcept
{
    auto* self = static_cast<LmTabArea*>(clientData);
    self->_updateId.fired();
    self->update();
    return True;
}

/// Tabs nearer to the selected one lie over those farther away.
void LmTabArea::draw()
{
    if (_tabs.empty()) {
        drawBaseLine();
        return;
    }
    const lm::TabRun& run = layout().run;
    if (!_selectionOnly || _selected < run.first || _selected > run.last)
        computeTabLayout();
    if (run.first > 0)
        drawLeftEnd();
    for (int i = run.first; i < _selected; ++i)
        drawTab(i, False);
    if (run.last < size() - 1)
        drawRightEnd();
    for (int i = run.last; i > std::max(_selected, run.first - 1); --i)
        drawTab(i, False);
    drawBaseLine();
    if (_selected >= 0)
        drawTab(_selected, True);
}

void LmTabArea::drawBaseLine()
{
    const int x = _horizontal ? 0 : _width - _lineThickness;
    XDrawLine(XtDisplay(_baseWidget), _drawable, _lineGC.get(), x, 0, _horizontal ? _width : x, _horizontal ? 0 : _height);
}

void LmTabArea::drawTab(int index, char selected)
{
    if (!isTab(index) || !_drawable)
        return;
    Display* display = XtDisplay(_baseWidget);
    auto points = layout().outline(index);
    const auto count = static_cast<int>(points.size());
    XFillPolygon(display, _drawable, (selected ? _selectedGC : _tabGC).get(), points.data(), count, Convex, CoordModeOrigin);
    drawLabel(index);
    drawPixmap(index, selected);
    XDrawLines(display, _drawable, _lineGC.get(), points.data(), count, CoordModeOrigin);
}

void LmTabArea::drawLabel(int index)
{
    const Tab& t = tab(index);
    const lm::Rect box = layout().labelBox(index, pixmapExtra(t));
    XRectangle clip = {static_cast<short>(box.x), static_cast<short>(box.y), static_cast<unsigned short>(box.width),
                       static_cast<unsigned short>(box.height)};
    if (box.width == 0 || box.height == 0)
        return;
    const bool fits = _horizontal || t.labelWidth <= _tabHeight;
    XmStringDraw(XtDisplay(_baseWidget), _drawable, _fontList, t.xmLabel.get(), _lineGC.get(), clip.x, clip.y, clip.width,
                 fits ? XmALIGNMENT_CENTER : XmALIGNMENT_END, XmSTRING_DIRECTION_R_TO_L, &clip);
    XSetClipMask(XtDisplay(_baseWidget), _lineGC.get(), None);   // Motif leaves its clip in the GC
}

void LmTabArea::drawPixmap(int index, bool selected)
{
    const Tab& t = tab(index);
    if (!t.pixmap)
        return;
    Display* display = XtDisplay(_baseWidget);
    const GC gc = _lineGC.get();
    const lm::Rect box = layout().pixmapBox(index, static_cast<int>(t.pixmapWidth), static_cast<int>(t.pixmapHeight));
    const auto width = static_cast<unsigned>(box.width), height = static_cast<unsigned>(box.height);
    if (t.pixmapDepth != 1) {
        XCopyArea(display, t.pixmap, _drawable, gc, 0, 0, width, height, box.x, box.y);
        return;
    }
    if (selected)
        XSetBackground(display, gc, _selectedTabBackground);
    XCopyPlane(display, t.pixmap, _drawable, gc, 0, 0, width, height, box.x, box.y, 1);
    if (selected)
        XSetBackground(display, gc, _tabBackground);
}

void LmTabArea::drawLeftEnd() { drawEnd(lm::TabEnd::Left); }

void LmTabArea::drawRightEnd() { drawEnd(lm::TabEnd::Right); }

void LmTabArea::drawEnd(lm::TabEnd end)
{
    if (!_drawable)
        return;
    Display* display = XtDisplay(_baseWidget);
    lm::TabEndMarker marker = layout().marker(end);
    const auto count = static_cast<int>(marker.outline.size());
    XFillPolygon(display, _drawable, _tabGC.get(), marker.outline.data(), count, Convex, CoordModeOrigin);
    XDrawLines(display, _drawable, _lineGC.get(), marker.outline.data(), count, CoordModeOrigin);
    for (auto& edge : marker.edges)
        XDrawLines(display, _drawable, _lineGC.get(), edge.data(), static_cast<int>(edge.size()), CoordModeOrigin);
}

// --- the user ----------------------------------------------------------------------------------------------------------

void LmTabArea::input_stub(Widget, XtPointer clientData, XtPointer callData) noexcept
{
    static_cast<LmTabArea*>(clientData)->input(static_cast<XmDrawingAreaCallbackStruct*>(callData)->event);
}

/// A callback may delete us, so what announces comes last.
void LmTabArea::input(XEvent* event)
{
    if (!event || event->type != ButtonPress || (event->xbutton.button != Button1 && event->xbutton.button != Button3))
        return;
    const int x = event->xbutton.x, y = event->xbutton.y, hit = findTab(x, y);
    const lm::TabEnd end = hit < 0 ? layout().endAt(x, y) : lm::TabEnd::Neither;
    if (end != lm::TabEnd::Neither)
        postMenu(&event->xbutton, end == lm::TabEnd::Right);
    else if (event->xbutton.button == Button3)
        announce(tabPopupCallback, hit, event);
    else if (hit >= 0)
        selectTab(hit, event);
}

// --- the menu of all tabs ----------------------------------------------------------------------------------------------

void LmTabArea::invalidateMenu() { _menu.reset(); }

/// The height of a tab's menu item, pixels; that of the separator for the item before it.
static int heightOf(LmMenuItem* item)
{
    Dimension height = 0;
    if (item && item->baseWidget())
        XtVaGetValues(item->baseWidget(), XmNheight, &height, nullptr);
    return height;
}

/// The height of the menu's items from one index to before another.
int LmTabArea::heightOfItems(int from, int to)
{
    int height = 0;
    for (int i = from; i < to; ++i)
        height += heightOf((*_menu)[i]);
    return height;
}

void LmTabArea::createTabMenu()
{
    if (_menu || !_baseWidget)
        return;
    const lm::TabRun run = layout().run;
    _menu = std::make_unique<LmPopupMenu>("popupMenu", nullptr, nullptr);
    std::vector<LmMenuItem*> items;
    for (int i = 0; i < size(); ++i) {
        if ((i == run.first && i >= 1) || i == run.last + 1)
            _menu->addSeparator();
        items.push_back(_menu->addAction("tabMenuItem", menu_stub, this));
    }
    _menu->build(_baseWidget);

    const int separators = run.first > 0 ? 2 : 1;   // above the first tab hidden at the right
    _menuOffsetLeft = run.first > 0 ? heightOfItems(0, run.first - 1) + heightOf((*_menu)[run.first - 1]) / 2 : 0;
    const int behind = run.last + 1 + separators;
    _menuOffsetRight = run.last < size() - 1 ? heightOfItems(0, behind) + heightOf((*_menu)[behind]) / 2 : 0;

    std::vector<Widget> widgets;
    for (LmMenuItem* item : items)
        widgets.push_back(item->baseWidget());
    XtUnmanageChildren(widgets.data(), static_cast<Cardinal>(widgets.size()));   // or each label lays the whole menu out
    for (int i = 0; i < size(); ++i)
        XtVaSetValues(widgets[static_cast<size_t>(i)], XmNlabelString, tab(i).xmLabel.get(), XmNuserData, lm::asPointer(i),
                      nullptr);
    XtManageChildren(widgets.data(), static_cast<Cardinal>(widgets.size()));
    XtVaSetValues(_menu->menuParent(), XmNpopupEnabled, False, nullptr);
}

void LmTabArea::postMenu(XButtonEvent* event, char right)
{
    createTabMenu();
    if (!_menu || !event)
        return;
    const int offset = right ? _menuOffsetRight : _menuOffsetLeft;
    event->y -= offset;
    event->y_root -= offset;
    XmMenuPosition(_menu->menuParent(), event);
    XtManageChild(_menu->menuParent());
}

void LmTabArea::menu_stub(Widget w, XtPointer clientData, XtPointer) noexcept
{
    static_cast<LmTabArea*>(clientData)->menuSelect(w);
}

/// The selection may move the run, which throws the menu away: nothing touches the item after it was read.
void LmTabArea::menuSelect(Widget item)
{
    XtPointer index = nullptr;
    XtVaGetValues(item, XmNuserData, &index, nullptr);
    selectTab(lm::asInt(index), nullptr);
}
