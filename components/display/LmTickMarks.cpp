#include "LmTickMarks.h"

#include "LmResource.h"
#include "geometry/TickScale.h"
#include "support/resources.h"
#include "support/xmtext.h"
#include "support/xt.h"

#include <Xm/DrawingA.h>
#include <Xm/Label.h>

#include <algorithm>
#include <iterator>

LmTickMarks::LmTickMarks(const char* name, Widget parent, Boolean ticksOnRight, Boolean noLabels, Boolean centerLabels)
    : LmComponent(name),
      _ticksOnRight(ticksOnRight),
      _noLabels(noLabels),
      _centerLabels(centerLabels)
{
    _baseWidget = XtCreateWidget(LmComponent::name(), xmDrawingAreaWidgetClass, parent, nullptr, 0);
    lm::on<&LmTickMarks::draw>(_baseWidget, XmNexposeCallback, this);
    lm::on<&LmTickMarks::redraw>(_baseWidget, XmNresizeCallback, this);
    takeLooks();
    loadResources();
    _gc = lm::SharedGC(_baseWidget, GCForeground | GCBackground | GCLineWidth,
                       {.foreground = _foreground, .background = _background, .line_width = _lineThickness});
    adjustWidth();
    installDestroyHandler();
}

LmTickMarks::~LmTickMarks() = default;

void LmTickMarks::widgetDestroyed()
{
    _gc = {};   // XtReleaseGC still needs the widget
    _label = nullptr;
    _fontList = nullptr;
    LmComponent::widgetDestroyed();
}

/// Colours and font are those of a label, so that users choose them as for any label.
void LmTickMarks::takeLooks()
{
    _label = XtVaCreateWidget("label", xmLabelWidgetClass, _baseWidget, nullptr);
    XtVaGetValues(_label, XmNforeground, &_foreground, XmNbackground, &_background, XmNfontList, &_fontList, nullptr);
    XtVaSetValues(_baseWidget, XmNbackground, _background, nullptr);
}

void LmTickMarks::loadResources()
{
    struct Row {
        int* field;
        const char *name, *cls, *fallback;
    };
    const Row rows[] = {{&_minimum, "minimum", "Minumum", "0"},
                        {&_maximum, "maximum", "Maximum", "10"},
                        {&_majorInterval, "majorInterval", "MajorInterval", "5"},
                        {&_minorInterval, "minorInterval", "MinorInterval", "1"},
                        {&_majorSize, "majorSize", "MajorSize", "10"},
                        {&_minorSize, "minorSize", "MinorSize", "6"},
                        {&_labelSpacing, "labelSpacing", "LabelSpacing", "3"},
                        {&_marginTop, "marginTop", "MarginTop", "19"},
                        {&_marginBottom, "marginBottom", "MarginBottom", "19"},
                        {&_lineThickness, "lineThickness", "LineThickness", "1"}};
    for (const Row& row : rows)
        LmGetResource(_baseWidget, row.name, row.cls, XtRInt, row.fallback, row.field, sizeof *row.field);
    LmGetResource(_baseWidget, "connectTicks", "ConnectTicks", XtRBoolean, "false", &_connectTicks, sizeof _connectTicks);
    LmGetResource(_baseWidget, "signedLabels", "SignedLabels", XtRBoolean, "false", &_signedLabels, sizeof _signedLabels);
}

void LmTickMarks::setScale(int minimum, int maximum, int majorInterval, int minorInterval)
{
    _minimum = minimum;
    _maximum = maximum;
    _majorInterval = majorInterval;
    _minorInterval = minorInterval;
    if (_baseWidget && XtIsRealized(_baseWidget))
        draw();
    else
        adjustWidth();
}

void LmTickMarks::setMargin(int top, int bottom)
{
    _marginTop = top;
    _marginBottom = bottom;
    redraw();
}

void LmTickMarks::addLabel(int value) { _labels.push_back(value); }

void LmTickMarks::redraw()
{
    if (_baseWidget && XtIsRealized(_baseWidget))
        draw();
}

std::string LmTickMarks::textOf(int value) const
{
    std::string text = std::to_string(value);
    if (_signedLabels && value > 0)
        text.insert(text.begin(), '+');
    return text;
}

int LmTickMarks::widestLabel() const
{
    int widest = 0;
    const auto measure = [&](int value) {
        widest = std::max<int>(widest, XmStringWidth(_fontList, lm::compound(textOf(value).c_str()).get()));
    };
    measure(_minimum);
    measure(_maximum);
    std::ranges::for_each(_labels, measure);
    return widest;
}

void LmTickMarks::adjustWidth()
{
    if (!_baseWidget)
        return;
    const int needed = _noLabels ? _majorSize : widestLabel() + _labelSpacing + _majorSize;
    Dimension width = 0;
    XtVaGetValues(_baseWidget, XmNwidth, &width, nullptr);
    if (width < needed)
        XtVaSetValues(_baseWidget, XmNwidth, static_cast<Dimension>(std::min(needed, 32767)), nullptr);
}

// --- painting ----------------------------------------------------------------------------------------------------------

void LmTickMarks::draw()
{
    if (!_baseWidget || !XtIsRealized(_baseWidget))
        return;
    Dimension width = 0, height = 0;
    XtVaGetValues(_baseWidget, XmNwidth, &width, XmNheight, &height, nullptr);
    XClearWindow(XtDisplay(_baseWidget), XtWindow(_baseWidget));
    const lm::TickScale scale = {height, _marginTop, _marginBottom, _minimum, _maximum, _lineThickness};
    if (scale.span() <= 0)
        return;
    drawMarks(scale.marks(_minorInterval), _minorSize);
    drawMarks(scale.marks(_majorInterval), _majorSize);
    if (_connectTicks) {
        const int x = _ticksOnRight ? width - _lineThickness : 0;
        XDrawLine(XtDisplay(_baseWidget), XtWindow(_baseWidget), _gc.get(), x, _marginTop, x, height - _marginBottom);
    }
    if (_noLabels)
        return;
    const int textHeight = XmStringHeight(_fontList, lm::compound("0").get());
    drawLabel(_minimum, scale.labelOfMinimum(textHeight));
    drawLabel(_maximum, scale.labelOfMaximum(textHeight));
    for (const int value : _labels)
        drawLabel(value, scale.labelOf(value, textHeight));
}

void LmTickMarks::drawMarks(const std::vector<int>& ys, int length)
{
    Dimension width = 0;
    XtVaGetValues(_baseWidget, XmNwidth, &width, nullptr);
    const int from = _ticksOnRight ? width : 0, to = _ticksOnRight ? width - length + 1 : length - 1;
    std::vector<XSegment> segments;
    for (const int y : ys)
        segments.push_back({static_cast<short>(from), static_cast<short>(y), static_cast<short>(to), static_cast<short>(y)});
    XDrawSegments(XtDisplay(_baseWidget), XtWindow(_baseWidget), _gc.get(), segments.data(), static_cast<int>(segments.size()));
}

void LmTickMarks::drawLabel(int value, int y)
{
    Dimension width = 0;
    XtVaGetValues(_baseWidget, XmNwidth, &width, nullptr);
    const lm::XmText text = lm::compound(textOf(value).c_str());
    const int x = _ticksOnRight ? 0 : _majorSize + _labelSpacing;
    const int room = std::max(0, width - _majorSize - _labelSpacing);
    const unsigned char side = _ticksOnRight ? XmALIGNMENT_BEGINNING : XmALIGNMENT_END;
    const unsigned char alignment = _centerLabels ? static_cast<unsigned char>(XmALIGNMENT_CENTER) : side;
    XRectangle clip = {static_cast<short>(x), static_cast<short>(y), static_cast<unsigned short>(room),
                       XmStringHeight(_fontList, text.get())};
    XmStringDraw(XtDisplay(_baseWidget), XtWindow(_baseWidget), _fontList, text.get(), _gc.get(), clip.x, clip.y, clip.width,
                 alignment, XmSTRING_DIRECTION_L_TO_R, &clip);
    XSetClipMask(XtDisplay(_baseWidget), _gc.get(), None);   // with Xft fonts Motif leaves its clip behind
}

LmTickMarks* LmCreateTickMarks(const char* name, Widget parent)
{
    auto* marks = new LmTickMarks(name, parent, True, False, False);
    marks->show();
    return marks;
}
