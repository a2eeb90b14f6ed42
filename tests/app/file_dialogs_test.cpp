// The conversion of file dialogs' filters and results.
#include "app/file_dialogs.h"

#include "support/own_separator.h"

#include <QDir>
#include <gtest/gtest.h>

namespace brindlewick {
namespace {

using namespace std::string_literals;
using testing::own;

TEST(NameFilters, havePatternsThatQtUnderstands) {
    const std::pair<std::u16string, QStringList> cases[] = {
        {u"All Files (*.json)|*.json|", {"All Files (*.json) (*.json)"}},
        {u"All Files (*.*)|*.*|", {"All Files (*.*) (*)"}},
        {u"Text Files (*.txt)|*.txt|All Files (*.*)|*.*|",
         {"Text Files (*.txt) (*.txt)", "All Files (*.*) (*)"}},
        {u"Two|*.a;*.b|Caption alone|", {"Two (*.a *.b)"}},
    };
    for (const auto& [filter, expected] : cases)
        EXPECT_EQ(nameFilters(filter), expected);
}

TEST(JoinedSelection, isAPathOrAFolderAndNames) {
    const std::pair<QStringList, std::u16string> cases[] = {
        // "/" stands for the platform's separator
        {{}, u""},
        {{"/d/a.json"}, u"/d/a.json"},
        {{"/d/e/b.json", "/d/e/a.json"}, u"/d/e\0b.json\0a.json"s},
        {{"/a", "/b"}, u"/\0a\0b"s},
        {{"/d/e/a", "/d/ef/b"}, u"/d\0e/a\0ef/b"s},
        {{"/x/a", "/y/b", "/x/c"}, u"/\0x/a\0y/b\0x/c"s},
    };
    for (const auto& [paths, expected] : cases) {
        QStringList native;
        for (const QString& path : paths)
            native += QDir::toNativeSeparators(path);
        EXPECT_EQ(joinedSelection(native), own(expected));
    }
}

} // namespace
} // namespace brindlewick
