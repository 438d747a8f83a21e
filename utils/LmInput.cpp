#include "LmInput.h"

#include "LmApp.h"
#include "RequireApplication.h"

const char* const LmInput::inputCallback = "inputCallback";

void LmInput::attach(int fd, XtInputMask condition)
{
    lm::requireApplication("LmInput");
    remove();
    constexpr XtInputMask known = XtInputReadMask | XtInputWriteMask | XtInputExceptMask;
    if (fd < 0 || condition == XtInputNoneMask || (condition & ~known) != 0)   // Xt would end the program
        return;
    _fd = fd;
    auto* mask = reinterpret_cast<XtPointer>(condition);
    _input = lm::InputHandle(XtAppAddInput(theApplication->appContext(), fd, mask, inputXtCallback, this));
}

void LmInput::remove() { _input = {}; }

void LmInput::inputXtCallback(XtPointer self, int*, XtInputId*) noexcept
{
    auto* input = static_cast<LmInput*>(self);
    input->callCallbacks(inputCallback, input);
}
