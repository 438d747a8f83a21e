#include "Help.h"

#include <Lm/LmApp.h>
#include <Lm/LmHelpPane.h>
#include <Lm/support/resources.h>

#include <Xm/Text.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

std::string dataFolder()
{
    const char* folder = std::getenv("LUMORA_DATA");
    return folder && *folder ? folder : LUMORA_DATA_DIR;
}

static std::string trimmed(const std::string& text)
{
    const auto start = text.find_first_not_of(" \n");
    return start == text.npos ? "" : text.substr(start, text.find_last_not_of(" \n") + 1 - start);
}

/// A file of the program's help, which bears the name of its class.
static std::string helpFile(const char* kind) { return dataFolder() + "/help/" + theApplication->applicationClass() + kind; }

// --- texts -------------------------------------------------------------------------------------------------------------

HelpTexts::HelpTexts(const std::string& path)
{
    std::ifstream file(path);
    std::shared_ptr<Topic> topic;
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with('#'))
            continue;
        if (!line.starts_with('@')) {
            if (topic)
                topic->text += line + '\n';
            continue;
        }
        std::istringstream head(line.substr(1));
        topic = std::make_shared<Topic>();
        std::getline(head, topic->title, '|');
        topic->title = trimmed(topic->title);
        for (std::string key; std::getline(head, key, '|');)
            _topics[trimmed(key)] = topic;
    }
    for (const auto& [key, each] : _topics)
        each->text = trimmed(each->text);
}

const HelpTexts::Topic* HelpTexts::find(const std::string& key) const
{
    if (const auto found = _topics.find(key); found != _topics.end())
        return found->second.get();
    for (size_t end = key.size(); end != key.npos;) {
        const size_t period = end == 0 ? key.npos : key.rfind('.', end - 1);
        const size_t start = period == key.npos ? 0 : period + 1;
        if (const auto found = _topics.find(key.substr(start, end - start)); found != _topics.end())
            return found->second.get();
        end = period;
    }
    return nullptr;
}

// --- the dialog --------------------------------------------------------------------------------------------------------

HelpDialog::HelpDialog() : TextDialog("programHelp", "helpText", true), _texts(helpFile(".texts")) {}

void HelpDialog::showHelp(const std::string& key)
{
    const HelpTexts::Topic* topic = _texts.find(key);
    const std::string text = topic ? topic->title + "\n\n" + topic->text : "There is no help on " + key + ".";
    showText(topic ? topic->title : "Help", text);
}

// --- what Lumora asks --------------------------------------------------------------------------------------------------

static void showHelp(char* key, unsigned long, Widget)
{
    static auto* dialog = new HelpDialog;   // kept as long as the program
    dialog->showHelp(key);
}

static char* programIndex()
{
    static std::string path;
    path = helpFile(".index");
    return path.data();
}

static char* generalIndex()
{
    static std::string path;
    path = dataFolder() + "/help/Lumora.index";
    return path.data();
}

void installHelp()
{
    setenv("DEFHELPPATH", (dataFolder() + "/help/").c_str(), 0);
    LmHelpPane::setHelpFunctions(showHelp, programIndex, generalIndex);
}
