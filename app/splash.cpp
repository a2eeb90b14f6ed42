#include "app/splash.h"

#include "app/qt_text.h"
#include "app/small_file.h"
#include "app/twips.h"
#include "app/window_user.h"
#include "extract/extraction_options.h"
#include "platform/error_report.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "platform/native_path.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QFrame>
#include <QLabel>
#include <QPixmap>
#include <QScreen>
#include <QThread>
#include <QTime>
#include <algorithm>

namespace brindlewick {

namespace {

constexpr double secondsADay = 86400;
constexpr int maxSide = 8192;                                 // pixels
constexpr std::size_t maxPictureSize = std::size_t{64} << 20; // bytes
// Twips:
constexpr int stripHeight = 300;
constexpr int boxLeft = 60;
constexpr int boxMargin = 20;
constexpr int lineLength = 10000;
constexpr int lineInset = 10;

/// The name of the first file in the folder that is not hidden; empty when there is none.
std::u16string firstFileName(std::u16string_view folder) {
    if (!IsFolder(folder))
        return {};
    for (const FolderEntry& entry : listFolder(folder))
        if (!entry.isFolder && !entry.name.starts_with(u'.'))
            return entry.name;
    return {};
}

} // namespace

double elapsedSinceEntry(double now, double entry) noexcept {
    return now < entry ? now + secondsADay - entry : now - entry;
}

double secondsSinceMidnight() {
    return QTime::currentTime().msecsSinceStartOfDay() / 1000.0;
}

Splash::Splash(UserInterface& user, SettingsStore& settings, std::u16string programFolder,
               std::function<double()> clock, bool underDevelopment)
    : user_(user), settings_(settings), programFolder_(std::move(programFolder)), clock_(std::move(clock)),
      underDevelopment_(underDevelopment), Image1_(new QLabel(this)),
      Check1_(new QCheckBox(QStringLiteral("Hide this at next startup"), this)) {
    // Closing it must not end the program while the main window is not shown yet.
    setAttribute(Qt::WA_QuitOnClose, false);
    Image1_->setObjectName(QStringLiteral("Image1"));
    Image1_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    Check1_->setObjectName(QStringLiteral("Check1"));
    for (int i = 0; i < 4; ++i) {
        Lines_[i] = new QFrame(this);
        Lines_[i]->setObjectName(QStringLiteral("Line%1").arg(i + 1));
        Lines_[i]->setFrameShadow(QFrame::Plain);
        Lines_[i]->setFrameShape(i % 2 == 0 ? QFrame::VLine : QFrame::HLine);
    }
    connect(Check1_, &QCheckBox::toggled, this, [this] { Check1_Click(); });
}

void Splash::SplashShow() {
    if (flagFromSetting(settings_.GetSetting(u"ShowAgain", u"0")) != 0)
        return;
    const std::u16string folder = joinedPath(programFolder_, u"Splash");
    const std::u16string name = firstFileName(folder);
    const std::u16string path = joinedPath(folder, name);
    if (name.empty() || !FileExists(path))
        return;
    setWindowTitle(toQString(displayName));
    placeControls(pictureFromBytes(readSmallFile(path, maxPictureSize), maxSide));
    show();
    Pause(underDevelopment_ ? 0.4 : 4);
    close();
}

void Splash::placeControls(const QImage& picture) {
    const auto pixels = [&](int twips) { return pixelsFromTwips(twips, *this); };
    const int width = picture.width();
    const int height = picture.height() + pixels(stripHeight);
    Image1_->setPixmap(QPixmap::fromImage(picture));
    Image1_->setGeometry(0, 0, width, height);
    Check1_->adjustSize();
    Check1_->move(pixels(boxLeft), height - Check1_->height() - pixels(boxMargin));

    const int length = pixels(lineLength);
    const int inset = std::max(pixels(lineInset), 1);
    Lines_[0]->setGeometry(0, 0, 1, length);
    Lines_[1]->setGeometry(0, 0, length, 1);
    Lines_[2]->setGeometry(width - inset, 0, 1, length);
    Lines_[3]->setGeometry(0, height - inset, length, 1);
    setFixedSize(width, height);
    move(screen()->availableGeometry().center() - rect().center());
}

void Splash::Check1_Click() {
    const Guard guard(user_, u"Splash.Check1_Click");
    guard([&] { settings_.SaveSetting(u"ShowAgain", Check1_->isChecked() ? u"1" : u"0"); });
}

void Splash::Pause(double seconds) {
    const double entry = clock_();
    while (elapsedSinceEntry(clock_(), entry) < seconds) {
        QCoreApplication::processEvents();
        QThread::msleep(5);
    }
}

} // namespace brindlewick
