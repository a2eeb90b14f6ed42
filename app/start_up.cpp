// What the main window does when it opens and when it closes. The order of the steps matters.

#include "app/main_window.h"
#include "app/qt_text.h"
#include "platform/error_report.h"
#include "platform/native_path.h"

#include <QCoreApplication>
#include <QIcon>
#include <QImage>

namespace brindlewick {

void Form1::Form_Load() {
    const Guard guard(user_, u"Form1.Form_Load");
    guard([&] { ApplySkin(*this, programFolder_); });
    guard([&] {
        if (const std::optional<CursorPicture> hand = loadHandPointer(programFolder_))
            user_.setHandPointer(*hand);
    });
    const auto recordSamples = [&] {
        if (settings_.GetSetting(u"Snapshot", u"").empty())
            samples_.RecordSampleFiles();
    };
    // Twice, so that an empty record is built again.
    guard(recordSamples);
    guard(recordSamples);
    guard([&] {
        setWindowTitle(toQString(displayName));
        setWindowIcon(QIcon(QStringLiteral(":/brindlewick.png")));
    });
    guard([&] { user_.setApplicationTitle(applicationTitle(displayName)); });
    guard([&] {
        inputModel_.setCaption(QStringLiteral("JSON File(s)"));
        controls_.ListView1->setColumnWidthInTwips(0, 7000);
        const std::u16string dragPicture = joinedPath(programFolder_, u"drag.ico");
        if (const QImage picture(toQString(dragPicture)); !picture.isNull())
            controls_.ListView1->setDragPointer({picture, picture.rect().center()});
    });
    guard([&] { controls_.Check1->setChecked(flagFromSetting(settings_.GetSetting(u"Check1", u"0")) == 1); });
    guard([&] { results_.setColumns(controls_.Check1->isChecked()); });
    guard([&] {
        tagModel_.setCaption(QStringLiteral("Tag/s"));
        controls_.ListView3->setColumnWidthInTwips(0, 7000);
    });
    guard([&] { appendTagsFromSetting(settings_.GetSetting(u"Tags", u""), tags_); });
    guard([&] { restoreMode(); });
    undoList_.clear();
}

void Form1::restoreMode() {
    const ExtractionMode mode = modeFromSetting(settings_.GetSetting(u"Option", u"1"));
    if (mode != ExtractionMode::none) {
        // If the button was not selected before, its handler runs and saves the mode again.
        controls_.option(mode).setChecked(true);
        return;
    }
    modes_.setExclusive(false);
    for (QRadioButton* option : controls_.Options)
        option->setChecked(false);
    modes_.setExclusive(true);
    options_.selectNone();
}

void Form1::Form_QueryUnload() {
    const Guard guard(user_, u"Form1.Form_QueryUnload");
    std::u16string stored; // stays empty when there are too many tags
    guard([&] { stored = tagsToSetting(tags_); });
    guard([&] { settings_.SaveSetting(u"Tags", stored); });
    guard([&] { QCoreApplication::processEvents(); });
    guard([&] { QCoreApplication::processEvents(); });
    endProcess_();
}

void Form1::saveTags() noexcept {
    try {
        settings_.SaveSetting(u"Tags", tagsToSetting(tags_));
    } catch (...) {
    }
}

} // namespace brindlewick
