// Skin, hand pointer and hover behaviour, with valid, missing and broken files.
#include "app/appearance.h"

#include "app/cursor_picture.h"
#include "app/pictures.h"
#include "platform/busy_scope.h"
#include "platform/failure.h"
#include "support/failure_of.h"
#include "support/fake_user.h"
#include "support/temporary_folder.h"

#include <QApplication>
#include <QCheckBox>
#include <QEnterEvent>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QMainWindow>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <functional>
#include <gtest/gtest.h>
#include <optional>

namespace brindlewick {
namespace {

using testing::failureOf;
using testing::FakeUser;
using testing::TemporaryFolder;

struct Controls {
    QMainWindow window;
    QWidget* surface = new QWidget;
    QRadioButton* option = new QRadioButton;
    QCheckBox* check = new QCheckBox;
    QGroupBox* frame1 = new QGroupBox;
    QGroupBox* frame2 = new QGroupBox;
    QLabel* label = new QLabel;
    QPushButton* button = new QPushButton("b");
    QListWidget* list = new QListWidget;

    Controls() {
        auto* layout = new QVBoxLayout(surface);
        for (QWidget* widget :
             std::initializer_list<QWidget*>{option, check, frame1, frame2, label, button, list})
            layout->addWidget(widget);
        frame1->setObjectName("Frame1");
        frame2->setObjectName("Frame2");
        QPalette palette = window.palette();
        palette.setColor(QPalette::Window, Qt::yellow);
        palette.setColor(QPalette::Button, Qt::cyan);
        window.setPalette(palette);
        window.setCentralWidget(surface);
        window.resize(400, 500);
        window.show();
    }
    bool coloured() const {
        int count = 0;
        for (const QWidget* widget :
             std::initializer_list<const QWidget*>{option, check, frame1, frame2, label})
            count += widget->palette().color(QPalette::Window) == Qt::cyan;
        EXPECT_TRUE(count == 0 || count == 5) << count;
        EXPECT_NE(list->palette().color(QPalette::Window), QColor(Qt::cyan));
        return count == 5;
    }
};

TEST(ApplySkin, appliesAFileThatItCanLoad) {
    const struct {
        const char* what;
        std::optional<std::string> file;
        bool colours;
        bool fails;
    } cases[] = {
        {"no file", std::nullopt, false, false},
        {"empty", "", true, false},
        {"UTF-8 text with a mark", "\xEF\xBB\xBF/* \xC3\xA9 */ QLabel { color: red }", true, false},
        {"not UTF-8", "QLabel { color: red } /* \xFF */", true, true},
        {"binary", std::string("\0\1\2PK\3\4", 7), true, true},
        {"not a style sheet", "{{{ this is ] no sheet", true, true},
        {"too long", std::string(5'000'000, ' '), true, true},
    };
    for (const auto& one : cases) {
        const TemporaryFolder folder;
        if (one.file)
            folder.write("x/o.cjs", *one.file);
        else
            folder.makeFolder("x/o.cjs"); // a folder is not a skin file
        Controls controls;
        EXPECT_EQ(failureOf([&] { ApplySkin(controls.window, folder.text()); }),
                  one.fails ? std::optional(FailureNumber::invalidProcedureCall) : std::nullopt)
            << one.what;
        EXPECT_EQ(controls.coloured(), one.colours) << one.what;
        EXPECT_EQ(controls.window.styleSheet().isEmpty(), one.fails || !one.file || one.file->empty());
    }
}

std::string number(std::uint32_t value, int count) {
    std::string bytes;
    for (int i = 0; i < count; ++i)
        bytes += static_cast<char>(value >> (8 * i));
    return bytes;
}

std::string directory(unsigned type, unsigned count) {
    return number(0, 2) + number(type, 2) + number(count, 2);
}

std::string entry(unsigned side, unsigned x, unsigned y, std::size_t length, std::size_t offset) {
    return number(side, 1) + number(side, 1) + number(0, 2) + number(x, 2) + number(y, 2) +
           number(static_cast<std::uint32_t>(length), 4) + number(static_cast<std::uint32_t>(offset), 4);
}

std::string png(int side) {
    return testing::png(side, side);
}

/// A bitmap in the form of pointer files: header with twice the height, blue pixels, an empty mask.
std::string bitmap(unsigned side) {
    std::string bytes = number(40, 4) + number(side, 4) + number(2 * side, 4) + number(1, 2) + number(32, 2);
    bytes += std::string(24, '\0');
    for (unsigned i = 0; i < side * side; ++i)
        bytes += "\xFF\x01\x02\xFF";
    return bytes + std::string((side + 31) / 32 * 4 * side, '\0');
}

std::string cursorFile(const std::string& picture, unsigned side, unsigned x, unsigned y) {
    return directory(2, 1) + entry(side, x, y, picture.size(), 22) + picture;
}

TEST(CursorPictures, haveAHotSpot) {
    const std::string two = directory(2, 2) + entry(16, 1, 2, png(16).size(), 38) +
                            entry(32, 3, 4, png(32).size(), 38 + png(16).size()) + png(16) + png(32);
    const struct {
        std::string bytes;
        int side;
        QPoint hotSpot;
        QRgb colour;
    } cases[] = {{cursorFile(png(32), 32, 5, 31), 32, {5, 31}, 0xFFFF0000},
                 {cursorFile(bitmap(32), 32, 9, 1), 32, {9, 1}, 0xFF0201FF},
                 {cursorFile(bitmap(16), 16, 0, 0), 16, {0, 0}, 0xFF0201FF},
                 {two, 32, {3, 4}, 0xFFFF0000}};
    for (const auto& one : cases) {
        const CursorPicture picture = cursorPictureFromBytes(QByteArray::fromStdString(one.bytes));
        EXPECT_EQ(picture.image.size(), QSize(one.side, one.side));
        EXPECT_EQ(picture.hotSpot, one.hotSpot);
        EXPECT_EQ(picture.image.pixel(one.side / 2, 3), one.colour);
    }
}

TEST(CursorPictures, brokenFilesAreInvalidPictures) {
    const std::string good = cursorFile(png(32), 32, 0, 0);
    const std::pair<const char*, std::string> cases[] = {
        {"empty", ""},
        {"an icon", directory(1, 1) + entry(32, 0, 0, png(32).size(), 22) + png(32)},
        {"no entries", directory(2, 0) + std::string(40, '\0')},
        {"more entries than bytes", directory(2, 65535) + good.substr(6)},
        {"hot spot outside", cursorFile(png(32), 32, 32, 0)},
        {"offset beyond the end", directory(2, 1) + entry(32, 0, 0, 10, 0xFFFFFFF0) + png(32)},
        {"length beyond the end", directory(2, 1) + entry(32, 0, 0, 0xFFFFFFFF, 22) + png(32)},
        {"picture inside the directory", directory(2, 1) + entry(32, 0, 0, 30, 0) + png(32)},
        {"larger than pointers are", cursorFile(png(300), 0, 0, 0)},
        {"no picture", cursorFile(std::string(100, 'x'), 32, 0, 0)},
    };
    for (const auto& one : cases)
        EXPECT_EQ(failureOf([&] {
                      static_cast<void>(cursorPictureFromBytes(QByteArray::fromStdString(one.second)));
                  }),
                  FailureNumber::invalidPicture)
            << one.first;
}

TEST(HandPointer, isOptional) {
    const TemporaryFolder folder;
    EXPECT_FALSE(loadHandPointer(folder.text()));
    folder.write("HAND-M.CUR", cursorFile(bitmap(32), 32, 9, 1));
    const std::optional<QCursor> hand = loadHandPointer(folder.text());
    ASSERT_TRUE(hand);
    EXPECT_EQ(hand->hotSpot(), QPoint(9, 1));
    folder.write("HAND-M.CUR", "damaged");
    EXPECT_THROW(static_cast<void>(loadHandPointer(folder.text())), Failure);
}

TEST(HoverPointers, handOverButtonsArrowElsewhereHourglassUntouched) {
    Controls controls;
    FakeUser user;
    const HoverPointer hover(controls.window, user);
    const auto move = [](QWidget& widget) {
        const QPointF at(2, 2);
        QMouseEvent event(QEvent::MouseMove, at, widget.mapToGlobal(at), Qt::NoButton, Qt::NoButton,
                          Qt::NoModifier);
        QApplication::sendEvent(&widget, &event);
    };
    const auto enter = [](QWidget& widget) {
        QEnterEvent event(QPointF(2, 2), QPointF(2, 2), QPointF(2, 2));
        QApplication::sendEvent(&widget, &event);
    };
    const auto leave = [](QWidget& widget) {
        QEvent event(QEvent::Leave);
        QApplication::sendEvent(&widget, &event);
    };
    const std::pair<std::function<void()>, PointerShape> steps[] = {
        {[&] { move(*controls.button); }, PointerShape::custom}, // the surface below gets the move too
        {[&] { move(*controls.surface); }, PointerShape::standard},
        {[&] { enter(*controls.button); }, PointerShape::custom},
        {[&] { enter(*controls.frame2); }, PointerShape::standard},
        {[&] { enter(*controls.button); }, PointerShape::custom},
        {[&] { leave(*controls.button); }, PointerShape::standard},
    };
    for (const auto& [step, pointer] : steps) {
        step();
        EXPECT_EQ(user.pointer(), pointer);
    }
    const Guard guard(user, u"");
    const BusyScope busy(user, guard);
    for (const auto& [step, pointer] : steps) {
        step();
        EXPECT_EQ(user.pointer(), PointerShape::hourglass);
    }
}

} // namespace
} // namespace brindlewick
