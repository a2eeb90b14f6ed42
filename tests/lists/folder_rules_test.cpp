// The rules on names and attributes by which a scan takes folders and files.
#include "lists/folder_rules.h"

#include <gtest/gtest.h>

namespace brindlewick {
namespace {

struct NameCase {
    std::u16string name;
    bool isBad;
};

class BadName : public ::testing::TestWithParam<NameCase> {};

TEST_P(BadName, IsToldFromAGoodOne) {
    EXPECT_EQ(IsBadName(GetParam().name), GetParam().isBad);
}

INSTANTIATE_TEST_SUITE_P(
    Characters, BadName,
    ::testing::Values(NameCase{u"reports 2021", false}, NameCase{u"", false}, NameCase{u"a?b", true},
                      NameCase{u"a\x1F", true}, NameCase{u"a\x20", false}, NameCase{u"tab\there", true},
                      NameCase{u"\x7E", false}, NameCase{u"\x7F", true}, NameCase{u"\u0081", true},
                      NameCase{u"\u00A0", false}, NameCase{u"Gr\u00FC\u00DFe", false},
                      NameCase{u"\u00FF", false}, NameCase{u"100 \u20AC", true}, // euro sign: 128
                      NameCase{u"a \u2013 b", true},                             // en dash: 150
                      NameCase{u"\u0178", true},                                 // Y with diaeresis: 159
                      NameCase{u"\u0100", true},                                 // outside the character set
                      NameCase{u"\u65E5\u672C", true}, NameCase{u"x\U0001F600", true},
                      NameCase{{u'x', char16_t{0xDC80}}, true})); // a byte that is not valid text

TEST(AcceptedFolderName, IsShortAndNoDots) {
    EXPECT_TRUE(isAcceptedFolderName(u"..."));
    EXPECT_TRUE(isAcceptedFolderName(u".hidden"));
    EXPECT_TRUE(isAcceptedFolderName(u"~temporary"));
    EXPECT_FALSE(isAcceptedFolderName(u"."));
    EXPECT_FALSE(isAcceptedFolderName(u".."));
    EXPECT_FALSE(isAcceptedFolderName(u"a?"));
    EXPECT_TRUE(isAcceptedFolderName(std::u16string(259, u'a')));
    EXPECT_FALSE(isAcceptedFolderName(std::u16string(260, u'a')));
}

TEST(AttributesLetWalk, AllButJunctionsAndProtectedFolders) {
    const struct {
        unsigned attributes;
        bool isRoot;
        bool expected;
    } cases[] = {{16, false, true},   {18, false, true},  {20, false, true},
                 {23, false, true},   {22, false, false}, {1046, false, false},
                 {1040, false, true}, {22, true, true},   {1046, true, true}};
    for (const auto& one : cases)
        EXPECT_EQ(attributesLetWalk(one.attributes, one.isRoot), one.expected) << one.attributes;
}

TEST(RootFolder, HasNoName) {
    EXPECT_TRUE(isRootFolder(u"/"));
    EXPECT_FALSE(isRootFolder(u"/a"));
    EXPECT_FALSE(isRootFolder(u"/a/"));
    EXPECT_FALSE(isRootFolder(u"a/"));
    EXPECT_FALSE(isRootFolder(u""));
}

TEST(AcceptedFile, IsAnyButArchiveAndHiddenAlone) {
    EXPECT_TRUE(isAcceptedFile({true, 32}));
    EXPECT_TRUE(isAcceptedFile({true, 33}));
    EXPECT_TRUE(isAcceptedFile({true, 35}));
    EXPECT_TRUE(isAcceptedFile({true, 2}));
    EXPECT_FALSE(isAcceptedFile({true, 34}));
    EXPECT_FALSE(isAcceptedFile({true, 16}));
    EXPECT_FALSE(isAcceptedFile({true, 1046}));
    EXPECT_FALSE(isAcceptedFile({false, 0}));
}

TEST(TemporaryCopy, BeginsWithATilde) {
    EXPECT_TRUE(isTemporaryCopy(u"~report.json"));
    EXPECT_TRUE(isTemporaryCopy(u"~"));
    EXPECT_FALSE(isTemporaryCopy(u"report~.json"));
    EXPECT_FALSE(isTemporaryCopy(u""));
}

} // namespace
} // namespace brindlewick
