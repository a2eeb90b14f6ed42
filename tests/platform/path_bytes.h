// Paths as bytes and as text, the same on every platform.
#pragma once

#include <string>

namespace brindlewick::testing {

struct PathBytes {
    std::string bytes;
    std::u16string text;
};

inline const PathBytes pathBytes[] = {
    {"", u""},
    {"/a b/c", u"/a b/c"},
    {"\xC3\xA4\xE2\x82\xAC", u"\u00E4\u20AC"},
    {"\xF0\x9F\x98\x80", u"\U0001F600"},
    {"a\x80z", {u'a', 0xDC80, u'z'}},
    {"\xFF", {0xDCFF}},
    {"\xE2\x82", {0xDCE2, 0xDC82}},
    {"\xC0\xAF", {0xDCC0, 0xDCAF}},
    {"\xED\xA0\x80", {0xDCED, 0xDCA0, 0xDC80}},
    {"\xF4\x90\x80\x80", {0xDCF4, 0xDC90, 0xDC80, 0xDC80}},
    {"\xF0\x90\x82\x80\x80", {0xD800, 0xDC80, 0xDC80}}, // a pair, then an escape
    {"\xEF\xBF\xBD", u"\uFFFD"},
    {"\xEF\xBF\xBD\xFE", {0xFFFD, 0xDCFE}},
};

} // namespace brindlewick::testing
