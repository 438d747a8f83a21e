// Help.h: the help of an example: texts from a file, shown in a dialog when Lumora's help system asks for them.
#pragma once

#include "TextDialog.h"

#include <map>
#include <memory>
#include <string>

/// The folder of Lumora's data, LUMORA_DATA in the environment or the one of the build; no slash at its end.
std::string dataFolder();

/// The texts of a file, by topic.
class HelpTexts {
public:
    struct Topic {
        std::string title;
        std::string text;
    };

    /// Reads "@ title | key | key ..." and the text below, up to the next such line. '#' begins a comment line.
    explicit HelpTexts(const std::string& path);

    /// The topic of a key. Of a widget's key, names joined by periods, the last name with a topic counts. Null: none.
    const Topic* find(const std::string& key) const;

private:
    std::map<std::string, std::shared_ptr<Topic>> _topics;   // several keys may share one
};

/// Shows help texts, one at a time.
class HelpDialog : public TextDialog {
public:
    HelpDialog();

    /// Shows what there is about the key.
    void showHelp(const std::string& key);

private:
    HelpTexts _texts;
};

/// Has Lumora ask for help here: of a program of the class X, the files X.texts, X.index and X.helpmap. Before the first window
/// is made.
void installHelp();
