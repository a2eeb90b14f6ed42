// JSON documents for the benchmarks, the same for the same arguments on every machine.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

namespace brindlewick::bench {

enum class Shape {
    records, ///< an array of flat objects, one a line
    nested,  ///< an array of objects in objects, one a line
    pretty,  ///< an array of objects, indented by four blanks
    longStrings,
};

inline constexpr std::pair<const char*, Shape> shapeNames[] = {{"records", Shape::records},
                                                               {"nested", Shape::nested},
                                                               {"pretty", Shape::pretty},
                                                               {"long", Shape::longStrings}};

/// A document of at least `bytes` bytes, ASCII with a little UTF-8, without a mark.
inline std::string generatedJson(Shape shape, std::size_t bytes, std::uint64_t seed = 0) {
    static constexpr const char* names[] = {"Ann", "Bob", "Cleo", "Dora", "Emil", "J\xC3\xBCrgen"};
    static constexpr const char* cities[] = {"Oslo", "Paris", "Lima", "Quito"};
    static constexpr const char* words[] = {"lorem", "ipsum", "dolor", "sit",
                                            "amet",  "elit",  "sed",   "tempor"};
    std::uint64_t state = seed * 2 + 1;
    const auto below = [&state](std::uint64_t limit) { // Knuth's MMIX generator
        state = state * 6364136223846793005U + 1442695040888963407U;
        return (state >> 33) % limit;
    };
    const auto number = [](std::uint64_t value) { return std::to_string(value); };

    std::string text = "[\n";
    text.reserve(bytes + 65536);
    for (std::uint64_t id = 0; text.size() < bytes; ++id) {
        text += id == 0 ? "" : ",\n";
        const std::string name = names[below(6)] + number(id);
        const std::string city = cities[below(4)];
        switch (shape) {
        case Shape::records:
            text += "{\"id\":" + number(id) + ",\"name\":\"" + name + "\",\"email\":\"user" + number(id) +
                    "@example.org\",\"score\":" + number(below(100)) + "." + number(100 + below(900)) +
                    ",\"active\":" + (below(2) == 0 ? "true" : "false") + ",\"tags\":[\"a\",\"b" +
                    number(id % 7) + "\"],\"city\":\"" + city + "\"}";
            break;
        case Shape::nested:
            text += "{\"user\":{\"id\":" + number(id) + ",\"name\":\"" + name +
                    "\",\"address\":{\"city\":\"" + city + "\",\"street\":{\"no\":" + number(below(90)) +
                    ",\"name\":\"Rue " + number(below(1000)) +
                    "\"}},\"tags\":[{\"k\":\"a\",\"v\":1},{\"k\":\"b\",\"v\":[1,2,3]}]},\"ok\":true}";
            break;
        case Shape::pretty:
            text += "    {\n        \"id\": " + number(id) + ",\n        \"name\": \"" + name +
                    "\",\n        \"email\": \"user" + number(id) +
                    "@example.org\",\n        \"score\": " + number(below(100)) + "." +
                    number(100 + below(900)) + ",\n        \"address\": {\n            \"city\": \"" + city +
                    "\",\n            \"zip\": \"" + number(10000 + below(90000)) + "\"\n        }\n    }";
            break;
        case Shape::longStrings:
            text += "{\"title\":\"t" + number(id) + "\",\"body\":\"";
            for (int word = 0; word < 2000; ++word)
                text.append(words[below(8)]).push_back(' ');
            text += "\"}";
            break;
        }
    }
    return text + "\n]\n";
}

} // namespace brindlewick::bench
