// Every input of fuzz/corpus, also those that once broke something, through the targets that the fuzzer runs.
#include <gtest/gtest.h>

#include "fuzz/Targets.h"

#include <filesystem>
#include <fstream>
#include <iterator>

TEST(FuzzCorpusModel, EveryKeptInputIsSurvived)
{
    for (const lmfuzz::Target& target : lmfuzz::targets) {
        int inputs = 0;
        for (const auto& entry :
             std::filesystem::directory_iterator(LUMORA_SOURCE_DIR "/fuzz/corpus/" + std::string(target.name))) {
            SCOPED_TRACE(entry.path());
            std::ifstream file(entry.path(), std::ios::binary);
            target.run(std::string(std::istreambuf_iterator<char>(file), {}));
            ++inputs;
        }
        EXPECT_GE(inputs, 5) << target.name;
    }
}
