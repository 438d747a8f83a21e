// LmHelpIndex: the dialog that lists the topics of help.
#pragma once

#include "LmGenericDialog.h"
#include "support/handles.h"

class LmOutline;

namespace lm {
struct HelpSection;
}   // namespace lm

/// A dialog with an outline of help topics; a double click asks the program's help function for one.
///
/// The topics come from a map file, the one that LmHelpPane::EClassMapfile names, else that of LmHelpPane::Mapfile. It has
/// two sections, "FieldHelp" and "TransHelp", each
///
///     FieldHelp          the section's name
///     Pages              the topic that stands above the others
///     Choosing/a/page    a topic, '/' for spaces: it is shown as "Choosing a page" and asked for as "Choosing/a/page"
///     FieldHelp          the end
///
/// Only the first word of a line counts. A section that the file does not end is not shown.
///
///   Widgets    as LmGenericDialog, with an outline named "outline"; getTheHelpIndex() names the dialog "helpIndex".
///              The Cancel button says "Dismiss"
///   Resources  "<name>*outline.visibleItemCount" Int 16
///   Others     as LmDialogManager
///   Errors     when neither map file can be opened the warning dialog says so; the outline is empty
class LM_API LmHelpIndex : public LmGenericDialog {
public:
    explicit LmHelpIndex(const char* name);   ///< No widget is made before the first posting.
    ~LmHelpIndex() override;

    Widget createDialog(Widget parent) override;

    /// The outline of the dialog; null until the dialog is made and after it was destroyed.
    LmOutline* outline() const;
    /// Reads the map files into the outline. False when none can be opened, or has neither section.
    bool OpenReadMapFile();
    /// Whether the map file had no section FieldHelp.
    bool isFieldHelpMissing() const { return _fieldHelpMissing; }

protected:
    LmOutline* _outline = nullptr;    ///< the outline of the dialog; owned; null until it is made
    lm::CString _mapfile;             ///< the path that LmHelpPane::Mapfile answered; null: none
    lm::CString _eclassMapfile;       ///< the path that LmHelpPane::EClassMapfile answered; null: none
    bool _fieldHelpMissing = false;   ///< what isFieldHelpMissing() answers

private:
    void warnOfMapFiles() const;
    bool addSection(const std::string& text, const char* name);
};

/// The program's help index; made at the first call, never deleted.
LM_API LmHelpIndex* getTheHelpIndex();

/// Shows the help index. The key, and what follows, is not used.
LM_API void myHelpIndexMsg(const char* key, ...);

/// An Xt callback for a list: asks the help function, if the program installed one, for the first selected item.
LM_API void LmHelpSelectCallback(Widget list, XtPointer clientData, XtPointer callData) noexcept;

/// A copy of the text up to its first space or tab, which the caller releases with `free`. Null gives null.
LM_API char* gettoken(const char* text);
/// Turns a topic of a map file into what is shown: every '/' becomes a space, in place.
LM_API void MapfileToText(char* text);
/// Turns what is shown into a topic of a map file: every space becomes '/', in place.
LM_API void TextToMapfile(char* text);
