// What diskview adds up, beside du.
#include <gtest/gtest.h>

#include "Scanner.h"
#include "Words.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>

#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;
using namespace std::chrono_literals;

namespace {

std::string outputOf(const std::string& command)
{
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
    std::string text;
    for (int c = 0; (c = std::fgetc(pipe.get())) != EOF;)
        text += static_cast<char>(c);
    return text;
}

/// A directory of its own, with what is hard to count.
class DiskModel : public testing::Test {
protected:
    DiskModel()
    {
        char name[] = "/tmp/diskviewXXXXXX";
        top = mkdtemp(name);
        for (const char* directory : {"large/deep/deeper", "small", "closed", "it's \"one\"\n\xff\xfe"})
            fs::create_directories(top / directory);
        write("large/deep/deeper/file", 300000);
        write("large/deep/one", 7000);
        write("small/\xc3\x28 not UTF-8", 900);
        write("closed/hidden", 5000);
        write("it's \"one\"\n\xff\xfe/inside", 40);
        write("sparse", 1);
        fs::resize_file(top / "sparse", 50'000'000);
        fs::create_hard_link(top / "large/deep/one", top / "large/deep/two");
        fs::create_directory_symlink(top / "large", top / "link");
        fs::create_symlink("nowhere", top / "small/dangling");
        std::string deep = top / "small";   // longer than a path may be
        fs::path before = fs::current_path();
        fs::current_path(deep);
        for (int i = 0; i < 20; ++i) {
            const std::string step(240, 'd');
            EXPECT_EQ(mkdir(step.c_str(), 0700), 0);
            EXPECT_EQ(chdir(step.c_str()), 0);
        }
        std::ofstream("at the end") << "12345";
        EXPECT_EQ(chdir(before.c_str()), 0);
        EXPECT_EQ(chmod((top / "closed").c_str(), 0), 0);
    }
    ~DiskModel() override
    {
        chmod((top / "closed").c_str(), 0700);
        EXPECT_EQ(std::system(("rm -rf " + top.string()).c_str()), 0);
    }
    void write(const std::string& name, size_t size) { std::ofstream(top / name) << std::string(size, 'x'); }
    /// Sizes by path, as du prints them.
    std::map<std::string, std::int64_t> du(const std::string& options) const
    {
        std::map<std::string, std::int64_t> sizes;
        const std::string text = outputOf("du " + options + " -a0 " + top.string() + " 2>/dev/null");
        for (size_t at = 0; at < text.size(); at = text.find('\0', at) + 1)
            sizes[text.c_str() + text.find('\t', at) + 1] = std::stoll(text.substr(at));
        return sizes;
    }

    fs::path top;
};

/// Reads in the shortest slices.
void readAll(Tree& tree, const std::vector<std::string>& paths)
{
    Scanner scanner(tree, paths);
    while (!scanner.read(0ms)) {}
}

Entry* entryAt(Tree& tree, const std::string& path)
{
    for (size_t i = 0; i < tree.size(); ++i)
        if (tree.at(i).path() == path)
            return &tree.at(i);
    return nullptr;
}

}   // namespace

TEST_F(DiskModel, SumsAreThoseOfDu)
{
    Tree tree;
    readAll(tree, {top, top / "large"});
    const auto apparent = du("-b"), allocated = du("-B1");
    size_t counted = 0;
    for (size_t i = 0; i < tree.size(); ++i) {
        const Entry& entry = tree.at(i);
        const auto found = apparent.find(entry.path());
        if (found == apparent.end()) {
            EXPECT_EQ(entry.total.apparent, 0) << entry.path() << ": du leaves out the second link alone";
            continue;
        }
        ++counted;
        EXPECT_EQ(entry.total.apparent, found->second) << entry.path();
        EXPECT_EQ(entry.total.allocated, allocated.at(entry.path())) << entry.path();
    }
    EXPECT_EQ(counted, apparent.size());
    EXPECT_EQ(tree.size(), counted + 1);

    fs::create_hard_link(top / "large/deep/deeper/file", top / "small/far");   // counts in one of the two directories
    Tree again;
    readAll(again, {top});
    EXPECT_EQ(again.total().apparent, du("-b").at(top));
}

TEST_F(DiskModel, WhatIsExcludedCountsNowhereAboveAndComesBack)
{
    Tree tree;
    readAll(tree, {top});
    const auto before = du("-b");
    Entry &large = *entryAt(tree, top / "large"), &deep = *entryAt(tree, top / "large/deep");
    tree.exclude(deep, true);
    tree.exclude(deep, true);
    EXPECT_EQ(large.total.apparent, before.at(large.path()) - before.at(deep.path()));
    tree.exclude(large, true);
    EXPECT_EQ(tree.total().apparent, before.at(top) - before.at(large.path()));
    EXPECT_EQ(bySize(tree.tops()[0]->children, Measure::Apparent).back(), &large);
    tree.exclude(deep, false);   // inside what is out
    EXPECT_EQ(tree.total().apparent, before.at(top) - before.at(large.path()));
    tree.exclude(large, false);
    EXPECT_EQ(tree.total().apparent, before.at(top));

    const std::vector<Share> shares = sharesOf(*tree.tops()[0], Measure::Apparent, 3);
    ASSERT_GE(shares.size(), 2U);
    EXPECT_EQ(shares[0].name, "sparse");
    EXPECT_EQ(shares.back().name, "others");
    int sum = 0;
    for (const Share& share : shares)
        sum += share.thousandths;
    EXPECT_EQ(sum, 1000);
}

TEST(DiskWords, SizesAreWrittenAndReadAndPathsAreOneWord)
{
    EXPECT_EQ(sizeText(999, Units::Decimal), "999 B");
    EXPECT_EQ(sizeText(999'960, Units::Decimal), "1.0 MB");
    EXPECT_EQ(sizeText(1536, Units::Binary), "1.5 KiB");
    EXPECT_EQ(sizeText(1234567, Units::Bytes), "1234567 B");
    EXPECT_EQ(readSize(" 1.5 GB"), 1'500'000'000);
    EXPECT_EQ(readSize("64kib"), 65536);
    EXPECT_EQ(readSize("4096"), 4096);
    for (const char* wrong : {"", "much", "5 apples", "-1", "1 i", "9e99"})
        EXPECT_FALSE(readSize(wrong)) << wrong;
    EXPECT_EQ(outputOf("sh -c \"$(cat <<'END'\n" + commandOn("printf %s", "/a b/it's $HOME\xff") + "\nEND\n)\""),
              "/a b/it's $HOME\xff");
    EXPECT_EQ(shownName("a\nb\xff"), "a?b\xef\xbf\xbd");
    EXPECT_EQ(withoutNested({"/usr/lib", "/usr", "/usrlocal", "/usr"}), (std::vector<std::string>{"/usr", "/usrlocal"}));
    EXPECT_EQ(withoutNested({"/usr", "/"}), std::vector<std::string>{"/"});
}
