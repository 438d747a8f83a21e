// RequireApplication.h: what happens when the application object is forgotten.
#pragma once

namespace lm {

/// Called first by constructors that need the application object. Without one, says so on standard error in the name of
/// the class ("LmSimpleWindow: construct the application object first") and ends the program with status 1.
void requireApplication(const char* className);

}   // namespace lm
