#include "extract/option_handlers.h"

#include "platform/error_report.h"

namespace brindlewick {

void OptionHandlers::Option1_Click() {
    const Guard guard(user_, u"Form1.Option1_Click");
    guard([&] { options_.chooseMode(ExtractionMode::valueAndTag); });
}

void OptionHandlers::Option2_Click() {
    const Guard guard(user_, u"Form1.Option2_Click");
    guard([&] { options_.chooseMode(ExtractionMode::valueWithoutTag); });
}

void OptionHandlers::Option3_Click() {
    const Guard guard(user_, u"Form1.Option3_Click");
    guard([&] { options_.chooseMode(ExtractionMode::entireLine); });
}

void OptionHandlers::Option4_Click() {
    const Guard guard(user_, u"Form1.Option4_Click");
    guard([&] { options_.chooseMode(ExtractionMode::all); });
}

void OptionHandlers::Check1_Click(bool ticked) {
    const Guard guard(user_, u"Form1.Check1_Click");
    guard([&] { options_.setIncludeFilename(ticked); });
}

// "?"
void OptionHandlers::PushButton15_Click(const PerMode<std::u16string>& captions) {
    const Guard guard(user_, u"Form1.PushButton15_Click");
    guard([&] { user_.showMessage(explainModes(captions)); });
}

// "Help"
void OptionHandlers::PushButton2_Click() {
    const Guard guard(user_, u"Form1.PushButton2_Click");
    guard([&] {
        user_.showMessage(u"If you need some extraction features added to this software, please email " +
                          std::u16string(supportAddress));
    });
}

} // namespace brindlewick
