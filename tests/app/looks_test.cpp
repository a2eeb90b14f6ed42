// What the window shows of itself: names that can be told apart, colours that can be seen, sizes that fit.
#include "app/indicator_style.h"
#include "app/row_delegate.h"
#include "app/window_story.h"

#include <QApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOptionButton>
#include <QToolTip>
#include <algorithm>
#include <cmath>

namespace brindlewick::testing {
namespace {

struct Looks : WindowStory {
    /// The text of the tool tip over the cell.
    static std::string tipOver(RowsView* list, int row, int column) {
        QToolTip::hideText();
        const QPoint at = list->visualRect(list->model()->index(row, column)).topLeft() + QPoint(25, 3);
        QHelpEvent pause(QEvent::ToolTip, at, list->viewport()->mapToGlobal(at));
        QApplication::sendEvent(list->viewport(), &pause);
        EXPECT_LT(QToolTip::text().indexOf(QString(100, u'd')), 0) << "wider than a screen";
        return QToolTip::text().remove(QChar(0x200B)).toStdString();
    }
    /// The contrast of two colours, 1 to 21, by the definition of the Web Content Accessibility Guidelines.
    static double contrast(const QColor& a, const QColor& b) {
        const auto luminance = [](const QColor& colour) {
            const auto linear = [](double part) {
                return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
            };
            return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
                   0.0722 * linear(colour.blueF());
        };
        const auto [less, more] = std::minmax({luminance(a), luminance(b)});
        return (more + 0.05) / (less + 0.05);
    }
};

TEST_F(Looks, ShortenedPathsKeepTheFileName) {
    const QFontMetrics metrics(QApplication::font());
    const auto shortened = [&](const QString& path, const QString& room) {
        return shortenedPath(path, metrics, metrics.horizontalAdvance(room)).toStdString();
    };
    const QString room(24, u'n');
    const QString folders = QStringLiteral("/srv/archive of all harbours/quarterly exports/2023");
    EXPECT_EQ(shortened("/srv/a.json", room), "/srv/a.json");
    for (const char* name : {"/orders-of-january.json", "\\orders-of-february.json"})
        EXPECT_THAT(shortened(folders + name, room),
                    ::testing::AllOf(::testing::StartsWith("/"), ::testing::HasSubstr("\u2026"),
                                     ::testing::EndsWith(name)));
    EXPECT_THAT(shortened("/srv/" + QString(90, u'a') + ".json", room),
                ::testing::MatchesRegex("a+\u2026a+\\.json"));
}

TEST_F(Looks, AToolTipShowsTheWholeTextOfAShortenedCellAndElseTheHint) {
    open();
    const std::u16string deep = u"/srv/<b>" + std::u16string(700, u'd') + u"/end.json";
    fill({deep, u"/a.json"}, {});
    const std::string hint = files()->toolTip().toStdString();
    EXPECT_THAT(tipOver(files(), 0, 0), ::testing::HasSubstr(std::string(700, 'd') + "/end.json"));
    EXPECT_THAT(tipOver(files(), 0, 0), ::testing::HasSubstr("&lt;b&gt;")) << "no markup";
    EXPECT_EQ(tipOver(files(), 1, 0), hint);
    EXPECT_THAT(files()->model()->index(0, 0).data().toString().toStdString(),
                ::testing::EndsWith("/end.json"));
}

TEST_F(Looks, AnEmptyListHasNoScrollBarsAndShowsTheFocus) {
    open();
    window->resize(window->minimumSizeHint());
    QCoreApplication::processEvents();
    EXPECT_FALSE(files()->horizontalScrollBar()->isVisible());
    const auto withFocusOn = [&](QWidget* widget) {
        widget->setFocus();
        return files()->viewport()->grab().toImage();
    };
    EXPECT_NE(withFocusOn(files()), withFocusOn(tags()));
    fill({u"a"}, {});
    QCoreApplication::processEvents();
    EXPECT_TRUE(files()->horizontalScrollBar()->isVisible()) << "its column is wider than the list";
}

TEST_F(Looks, TheDividerOfTheFilesCanBeSeenAtFirstAndLargeTypeFitsASmallScreen) {
    open();
    window->resize(1120, 700);
    QCoreApplication::processEvents();
    EXPECT_LE(files()->columnWidth(0), files()->viewport()->width());
    QFont large = window->font();
    large.setPixelSize(24); // 18 points on a screen of 96 dots per inch
    window->setFont(large);
    QCoreApplication::processEvents();
    const QSize least = window->minimumSizeHint();
    EXPECT_LE(least.width(), 1200);
    EXPECT_LE(least.height(), 760);
}

TEST_F(Looks, TheAddingButtonHasAPictureInTheColourOfItsCaption) {
    open();
    QPalette palette;
    palette.setColor(QPalette::ButtonText, Qt::red);
    window->controls().PushButton3->setPalette(palette);
    const QImage button = window->controls().PushButton3->grab().toImage();
    int red = 0;
    for (int y = 0; y < button.height() / 2; ++y)
        for (int x = 0; x < button.width(); ++x)
            red += button.pixelColor(x, y).red() > button.pixelColor(x, y).green() + 100;
    EXPECT_GT(red, 10) << "pixels above the caption";
}

TEST_F(Looks, UntickedBoxesCanBeSeenInDarkAndLightColours) {
    IndicatorStyle style;
    for (const auto& [text, back] :
         {std::pair(QColor(252, 252, 252), QColor(49, 54, 59)), {Qt::black, "#efefef"}}) {
        QStyleOptionButton option;
        option.rect = QRect(2, 2, 16, 16);
        option.state = QStyle::State_Enabled | QStyle::State_Off;
        option.palette = QPalette(back, back);
        option.palette.setColor(QPalette::Text, text);
        option.palette.setColor(QPalette::Base, back);
        for (const auto element : {QStyle::PE_IndicatorCheckBox, QStyle::PE_IndicatorRadioButton}) {
            QImage image(20, 20, QImage::Format_RGB32);
            image.fill(back);
            QPainter painter(&image);
            style.drawPrimitive(element, &option, &painter, nullptr);
            double best = 1;
            for (int x = 0; x < 6; ++x) // the left outline
                best = std::max(best, contrast(image.pixelColor(x, 10), back));
            EXPECT_GE(best, 3) << element << ' ' << back.name().toStdString();
        }
    }
}

} // namespace
} // namespace brindlewick::testing
