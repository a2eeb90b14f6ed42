#include "platform/native_path.h"

#include <gtest/gtest.h>

namespace brindlewick {
namespace {

struct Case {
    std::u16string_view path;
    std::u16string_view name;
};

class FileNamePart : public ::testing::TestWithParam<Case> {};

TEST_P(FileNamePart, FollowsTheLastSeparatorOfEitherKind) {
    EXPECT_EQ(fileNamePart(GetParam().path), GetParam().name);
}

INSTANTIATE_TEST_SUITE_P(Paths, FileNamePart,
                         ::testing::Values(Case{u"", u""}, Case{u"a.json", u"a.json"},
                                           Case{u"/x/a.json", u"a.json"}, Case{u"C:\\x\\a.json", u"a.json"},
                                           Case{u"/x\\a/b", u"b"}, Case{u"/x/a\\b", u"b"}, Case{u"/x/", u""},
                                           Case{u"C:a", u"C:a"}));

} // namespace
} // namespace brindlewick
