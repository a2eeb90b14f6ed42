// The real user: message boxes, dialogs, pointer, clipboard and event loop of the main window.
// Runs on the user-interface thread alone; dialogs handle events until they are answered.
#include "app/window_user.h"

#include "app/file_dialogs.h"
#include "app/message_dialog.h"
#include "app/qt_text.h"
#include "platform/failure.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QInputDialog>
#include <QLabel>
#include <QPainter>
#include <QProgressBar>
#include <QStatusBar>
#include <QStyle>
#include <QUrl>
#include <QWidget>
#include <algorithm>

namespace brindlewick {

namespace {

constexpr qint64 shortestPause = 8'000'000;  // ns: about twice a frame
constexpr qint64 longestPause = 100'000'000; // ns: beyond this a window feels stuck
constexpr int longestDispatch = 5;           // ms
constexpr qint64 progressInterval = 50;      // ms
constexpr int progressSteps = 1000;
constexpr int charactersToType = 60;            // that a typed answer has room for, on average
constexpr std::size_t longestStatusText = 1000; // units: far more than any screen shows

/// Keeps the whole text and paints what fits, the middle left out: both ends of a path tell most.
class ElidedLabel : public QLabel {
public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const QString line = fontMetrics().elidedText(text(), Qt::ElideMiddle, contentsRect().width());
        style()->drawItemText(&painter, contentsRect(), Qt::AlignLeft | Qt::AlignVCenter, palette(),
                              isEnabled(), line, foregroundRole());
    }
};

} // namespace

WindowUser::WindowUser(QWidget& window, QStatusBar& statusBar)
    : window_(window), statusBar_(statusBar), title_(QStringLiteral("Brindlewick")) {
    progressLabel_ = new ElidedLabel(&statusBar_);
    progressLabel_->setObjectName(QStringLiteral("progressLabel"));
    progressLabel_->setTextFormat(Qt::PlainText);
    progressLabel_->setContentsMargins(6, 0, 6, 0);
    // A long path must not widen the window.
    progressLabel_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    progressLabel_->setAccessibleName(QStringLiteral("Status"));
    progressBar_ = new QProgressBar(&statusBar_);
    progressBar_->setObjectName(QStringLiteral("progressBar"));
    progressBar_->setAccessibleName(QStringLiteral("Progress"));
    progressBar_->setFixedWidth(200);
    progressBar_->hide();
    statusBar_.addWidget(progressLabel_, 1);
    statusBar_.addPermanentWidget(progressBar_);
    progressBar_->hide();
    sinceDispatch_.start();
    sinceProgress_.start();
}

void WindowUser::setApplicationTitle(std::u16string_view title) {
    title_ = toQString(title);
}

void WindowUser::setHandPointer(const QCursor& hand) {
    hand_ = hand;
    if (pointer_ == PointerShape::custom)
        window_.setCursor(*hand_);
}

void WindowUser::setBeforeDispatch(std::function<void()> beforeDispatch) {
    beforeDispatch_ = std::move(beforeDispatch);
}

void WindowUser::showMessage(std::u16string_view text) {
    catchUp();
    showMessageDialog(window_, title_, text, MessageKind::plain);
}

void WindowUser::showApplicationError(std::u16string_view text) {
    catchUp();
    showMessageDialog(window_, QStringLiteral("Application Error"), text, MessageKind::warning);
}

bool WindowUser::askYesNo(std::u16string_view text) {
    catchUp();
    return showMessageDialog(window_, title_, text, MessageKind::question);
}

std::u16string WindowUser::askText(std::u16string_view prompt, std::u16string_view proposedAnswer) {
    catchUp();
    QInputDialog dialog(&window_);
    dialog.setInputMode(QInputDialog::TextInput);
    dialog.setWindowTitle(title_);
    dialog.setLabelText(shownLines(prompt));
    // Prompts speak of "<" and ">": the label must not take them for markup.
    if (QLabel* label = dialog.findChild<QLabel*>())
        label->setTextFormat(Qt::PlainText);
    dialog.setTextValue(toQString(proposedAnswer));
    dialog.setMinimumWidth(charactersToType * dialog.fontMetrics().averageCharWidth());
    return dialog.exec() == QDialog::Accepted ? fromQString(dialog.textValue()) : std::u16string();
}

std::u16string WindowUser::chooseFilesToOpen(const FileDialog& dialog) {
    catchUp();
    return joinedSelection(runOpenDialog(window_, dialog, lastFolder_));
}

std::u16string WindowUser::chooseFileToSave(const FileDialog& dialog) {
    catchUp();
    return fromQString(runSaveDialog(window_, dialog, lastFolder_));
}

std::u16string WindowUser::browseForFolder(std::u16string_view prompt, std::u16string_view startFolder) {
    catchUp();
    return fromQString(runFolderDialog(window_, shownLines(prompt), toQString(startFolder)));
}

void WindowUser::setPointer(PointerShape shape) {
    if (shape == pointer_)
        return;
    pointer_ = shape;
    // The window's own cursor: every child without one of its own shows it, and nothing piles up.
    switch (shape) {
    case PointerShape::hourglass:
        window_.setCursor(Qt::WaitCursor);
        return;
    case PointerShape::custom:
        window_.setCursor(hand_.value_or(QCursor(Qt::ArrowCursor)));
        return;
    case PointerShape::standard:
        window_.unsetCursor();
        return;
    }
}

void WindowUser::yield() {
    if (sinceDispatch_.nsecsElapsed() < dispatchPause_)
        return;
    // A handler that runs in here may yield too: it waits its own pause.
    sinceDispatch_.start();
    catchUp();
    QCoreApplication::processEvents(QEventLoop::AllEvents, longestDispatch);
    dispatchPause_ = std::clamp(8 * sinceDispatch_.nsecsElapsed(), shortestPause, longestPause);
    sinceDispatch_.start();
}

void WindowUser::showProgress(std::u16string_view text, std::uint64_t done, std::uint64_t total) {
    progressText_.assign(text.substr(0, longestStatusText));
    progressDone_ = done;
    progressTotal_ = total;
    progressChanged_ = true;
    if (!progressRunning_)
        drawProgress();
    progressRunning_ = true;
}

void WindowUser::endProgress(std::u16string_view summary) {
    progressRunning_ = false;
    progressChanged_ = false;
    progressBar_->hide();
    setStatusText(summary.substr(0, longestStatusText));
}

void WindowUser::setClipboardText(std::u16string_view text) {
    QClipboard* clipboard = QGuiApplication::clipboard();
    const QString wanted = toQString(text);
    clipboard->setText(wanted);
    // Where the platform does not tell who owns the clipboard, its content does.
    if (!clipboard->ownsClipboard() && clipboard->text() != wanted)
        throw Failure(FailureNumber::permissionDenied);
}

void WindowUser::openFolder(std::u16string_view folder) {
    QDesktopServices::openUrl(QUrl::fromLocalFile(toQString(folder)));
}

void WindowUser::catchUp() {
    if (beforeDispatch_)
        beforeDispatch_();
    if (progressChanged_ && sinceProgress_.elapsed() >= progressInterval)
        drawProgress();
}

void WindowUser::drawProgress() {
    progressChanged_ = false;
    sinceProgress_.start();
    setStatusText(progressText_);
    if (progressTotal_ == 0) {
        progressBar_->setRange(0, 0);
    } else {
        const double share = static_cast<double>(std::min(progressDone_, progressTotal_)) /
                             static_cast<double>(progressTotal_);
        progressBar_->setRange(0, progressSteps);
        progressBar_->setValue(static_cast<int>(share * progressSteps));
    }
    progressBar_->show();
}

void WindowUser::setStatusText(std::u16string_view text) {
    QString line = toQString(text);
    std::replace_if(
        line.begin(), line.end(), [](QChar unit) { return unit < u' '; }, QChar(u' '));
    progressLabel_->setText(line);
}

} // namespace brindlewick
