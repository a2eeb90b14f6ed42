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
#include <QLineEdit>
#include <QPainter>
#include <QProgressBar>
#include <QStatusBar>
#include <QStyle>
#include <QUrl>
#include <QWidget>
#include <algorithm>

namespace brindlewick {

namespace {

constexpr qint64 minPause = 8'000'000;   // ns; half a frame at 60 Hz
constexpr qint64 maxPause = 100'000'000; // ns; a longer pause is noticed
constexpr int maxDispatch = 5;           // ms
constexpr qint64 progressInterval = 50;  // ms
constexpr int progressSteps = 1000;
constexpr int answerWidth = 60;             // characters of average width
constexpr std::size_t maxStatusText = 1000; // code units; wider than any screen

/// Paints the text without its middle if it does not fit: the ends of a path matter most.
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

std::u16string applicationTitle(std::u16string_view name) {
    constexpr std::size_t maxLength = 40;
    do {
        const std::size_t blank = name.rfind(u' ');
        if (blank == std::u16string_view::npos)
            break;
        name = name.substr(0, blank);
    } while (name.size() > maxLength);
    return std::u16string(name);
}

WindowUser::WindowUser(QWidget& window, QStatusBar& statusBar)
    : window_(window), statusBar_(statusBar), title_(toQString(displayName)) {
    progressLabel_ = new ElidedLabel(&statusBar_);
    progressLabel_->setObjectName(QStringLiteral("progressLabel"));
    progressLabel_->setTextFormat(Qt::PlainText);
    progressLabel_->setContentsMargins(6, 0, 6, 0);
    // Ignored: a long path must not widen the window.
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
    showMessageDialog(window_, title_, text, MessageKind::information);
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
    // Prompts contain "<" and ">", which the label must not interpret as markup.
    if (QLabel* label = dialog.findChild<QLabel*>())
        label->setTextFormat(Qt::PlainText);
    dialog.setTextValue(toQString(proposedAnswer));
    if (auto* const field = dialog.findChild<QLineEdit*>())
        field->setMinimumWidth(answerWidth * field->fontMetrics().averageCharWidth());
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
    // Children without a cursor of their own show the window's. An override cursor would need one restore per
    // set.
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
    // Restarted here too, for handlers that call `yield` while they are dispatched.
    sinceDispatch_.start();
    catchUp();
    QCoreApplication::processEvents(QEventLoop::AllEvents, maxDispatch);
    dispatchPause_ = std::clamp(8 * sinceDispatch_.nsecsElapsed(), minPause, maxPause);
    sinceDispatch_.start();
}

void WindowUser::showProgress(std::u16string_view text, std::uint64_t done, std::uint64_t total) {
    progressText_.assign(text.substr(0, maxStatusText));
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
    setStatusText(summary.substr(0, maxStatusText));
}

void WindowUser::setClipboardText(std::u16string_view text) {
    QClipboard* clipboard = QGuiApplication::clipboard();
    const QString wanted = toQString(text);
    clipboard->setText(wanted);
    // Some platforms do not report the clipboard's owner, so compare its content.
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
