#include "core/line_writer.h"

#include "core/decimal_number.h"
#include "platform/text.h"

#include <array>
#include <string>

namespace brindlewick {

void LineWriter::putUnit(char16_t unit) {
    static constexpr std::u16string_view units = u"\"\\/\b\f\n\r\t";
    static constexpr std::u16string_view letters = u"\"\\/bfnrt";
    line_.makeRoom(6);
    if (unit < 128 && !isKind(escaped, unit)) {
        line_.put(unit);
        return;
    }
    line_.put(u'\\');
    if (unit < 128) {
        if (const std::size_t known = units.find(unit); known != std::u16string_view::npos) {
            line_.put(letters[known]);
            return;
        }
    }
    line_.put(u'u');
    const std::array<char16_t, 4> digits = hexadecimalDigits(unit);
    line_.put({digits.data(), digits.size()});
}

void LineWriter::putNumber(const DecimalNumber& number) {
    std::u16string digits;
    appendDecimal(number, digits);
    put(digits);
}

} // namespace brindlewick
