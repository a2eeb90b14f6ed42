// The list of texts: what each change tells the listener, and rows that are not there.
#include "lists/text_list.h"

#include "platform/failure.h"

#include <gtest/gtest.h>

namespace brindlewick {
namespace {

using Texts = std::vector<std::u16string>;

TextList listOf(const Texts& texts) {
    TextList list;
    for (const std::u16string& text : texts)
        list.append(text);
    return list;
}

/// Writes down each word together with the list's size at that moment.
class Diary : public TextListListener {
public:
    explicit Diary(const TextList& list) : list_(list) {}
    void rowWillBeRemoved(std::size_t row) override { note("remove", row); }
    void rowWasRemoved(std::size_t row) override { note("removed", row); }
    void rowWasChanged(std::size_t row) override { note("changed", row); }
    void listWillBeReset() override { note("reset", 0); }
    void listWasReset() override { note("was reset", 0); }

    std::vector<std::string> notes;

private:
    void note(const std::string& word, std::size_t row) {
        notes.push_back(word + ' ' + std::to_string(row) + " of " + std::to_string(list_.size()));
    }
    const TextList& list_;
};

TEST(TextList, TellsTheListenerBeforeAndAfterEachChange) {
    TextList list = listOf({u"a", u"b", u"c"});
    Diary diary(list);
    list.setListener(&diary);
    list.exchange(0, 2);
    list.removeAt(1);
    EXPECT_EQ(list.texts(), (Texts{u"c", u"a"}));
    list.clear();
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(diary.notes, (std::vector<std::string>{"changed 0 of 3", "changed 2 of 3", "remove 1 of 3",
                                                     "removed 1 of 2", "reset 0 of 2", "was reset 0 of 0"}));
    list.setListener(nullptr);
    list.append(u"d");
    list.removeAt(0);
    EXPECT_EQ(diary.notes.size(), 6u);
}

TEST(TextList, GivesBackWhatTheLastChangeTook) {
    TextList list = listOf({u"a", u"b", u"c"});
    EXPECT_FALSE(list.restoreTaken());
    list.removeAt(1);
    EXPECT_TRUE(list.restoreTaken());
    EXPECT_EQ(list.texts(), (Texts{u"a", u"b", u"c"}));
    EXPECT_FALSE(list.restoreTaken()); // once
    list.clear();
    list.clear(); // takes nothing, so changes nothing
    EXPECT_TRUE(list.restoreTaken());
    EXPECT_EQ(list.texts(), (Texts{u"a", u"b", u"c"}));
    list.removeAt(0);
    list.append(u"d");
    EXPECT_FALSE(list.restoreTaken());
    list.removeAt(0);
    list.exchange(0, 1);
    EXPECT_FALSE(list.restoreTaken());
    EXPECT_EQ(list.texts(), (Texts{u"d", u"c"}));
}

TEST(TextList, RowsThatAreNotThereChangeNothing) {
    TextList list = listOf({u"a", u"b"});
    Diary diary(list);
    list.setListener(&diary);
    EXPECT_THROW(list.removeAt(2), Failure);
    EXPECT_THROW(list.exchange(2, 0), Failure);
    EXPECT_THROW(list.exchange(0, 2), Failure);
    EXPECT_EQ(list.texts(), (Texts{u"a", u"b"}));
    EXPECT_TRUE(diary.notes.empty());
}

TEST(ListContainsText, WantsTheExactText) {
    const TextList list = listOf({u"/a.json", u"", u"/B.json"});
    const struct {
        std::u16string text;
        bool expected;
    } cases[] = {{u"/a.json", true},  {u"/B.json", true}, {u"", true},
                 {u"/b.json", false}, {u"/a.jso", false}, {u"/a.json ", false}};
    for (const auto& one : cases)
        EXPECT_EQ(ListContainsText(list, one.text), one.expected)
            << std::string(one.text.begin(), one.text.end());
    EXPECT_FALSE(ListContainsText(TextList(), u""));
}

} // namespace
} // namespace brindlewick
