#include "LmMenuLabel.h"

#include <Xm/LabelG.h>
#include <Xm/SeparatoG.h>

void LmMenuLabel::build(Widget parent) { makeWidget(xmLabelGadgetClass, parent); }

void LmMenuSeparator::build(Widget parent) { makeWidget(xmSeparatorGadgetClass, parent, Takes::OnlyItsPlace); }
