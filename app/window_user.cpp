#include "app/window_user.h"

#include "app/dialog_loop.h"
#include "app/file_dialogs.h"
#include "app/message_dialog.h"
#include "app/qt_text.h"
#include "platform/failure.h"
#include "platform/text.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QUrl>
#include <QWidget>
#include <algorithm>
#include <utility>

namespace brindlewick {

namespace {

constexpr qint64 minPause = 8'000'000;  // ns; half a frame at 60 Hz
constexpr qint64 maxPause = 30'000'000; // ns; a pause of three times that is noticed
constexpr int maxDispatch = 5;          // ms
constexpr int maxPlainReports = 3;      // of one operation; the next ones have a check box
constexpr std::size_t unitsBetweenYields = std::size_t{1} << 20; // while a text is copied
constexpr int answerWidth = 60;                                  // characters of average width

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

/// While a dialog is open. Before that, the views and the status bar are brought up to date.
class WindowUser::DialogScope {
public:
    DialogScope(WindowUser& user, DialogKind kind) : user_(user) {
        user_.catchUp();
        user_.narrator_.updateNow();
        // A question is the beginning of an operation, unless it is part of one.
        if (kind == DialogKind::question && !user_.isBusy())
            user_.narrator_.showCounts();
        ++user_.openDialogs_;
    }
    ~DialogScope() { --user_.openDialogs_; }
    DialogScope(const DialogScope&) = delete;
    DialogScope& operator=(const DialogScope&) = delete;

private:
    WindowUser& user_;
};

WindowUser::WindowUser(QWidget& window, QStatusBar& statusBar)
    : window_(window), narrator_(statusBar, [this] { requestStop(); }), title_(toQString(displayName)) {
    sinceDispatch_.start();
}

void WindowUser::setApplicationTitle(std::u16string_view title) {
    title_ = toQString(title);
}

void WindowUser::setHandPointer(const CursorPicture& hand) {
    hand_ = hand;
    if (std::exchange(pointer_, PointerShape::standard) == PointerShape::custom)
        setPointer(PointerShape::custom);
}

void WindowUser::setBeforeDispatch(std::function<void()> beforeDispatch) {
    beforeDispatch_ = std::move(beforeDispatch);
}

void WindowUser::showMessage(std::u16string_view text) {
    const DialogScope scope(*this, DialogKind::message);
    showMessageDialog(window_, title_, text, MessageKind::information);
}

void WindowUser::showApplicationError(std::u16string_view text) {
    if (reports_.areHidden) {
        ++reports_.hidden;
        if (!isBusy())
            narrator_.endProgress(hiddenReportsText());
        return;
    }
    const DialogScope scope(*this, DialogKind::message);
    DialogCheckBox hideFurther{QStringLiteral("Do not show further reports of this operation")};
    const bool isOffered = ++reports_.shown > maxPlainReports;
    showMessageDialog(window_, QStringLiteral("Application Error"), text, MessageKind::warning,
                      isOffered ? &hideFurther : nullptr);
    reports_.areHidden = hideFurther.isTicked;
}

bool WindowUser::askYesNo(std::u16string_view text, YesNo defaultAnswer) {
    const DialogScope scope(*this, DialogKind::question);
    return showMessageDialog(window_, title_, text,
                             defaultAnswer == YesNo::yes ? MessageKind::question
                                                         : MessageKind::warningQuestion);
}

std::u16string WindowUser::askText(std::u16string_view prompt, std::u16string_view proposedAnswer,
                                   ProposedAnswer whenTyping) {
    const DialogScope scope(*this, DialogKind::question);
    QInputDialog dialog(&window_);
    dialog.setInputMode(QInputDialog::TextInput);
    dialog.setWindowTitle(title_);
    dialog.setLabelText(shownLines(prompt));
    // Prompts contain "<" and ">", which the label must not interpret as markup.
    if (QLabel* label = dialog.findChild<QLabel*>())
        label->setTextFormat(Qt::PlainText);
    dialog.setTextValue(toQString(proposedAnswer));
    if (auto* const field = dialog.findChild<QLineEdit*>()) {
        field->setMinimumWidth(answerWidth * field->fontMetrics().averageCharWidth());
        // The dialog selects the answer when it is shown.
        if (whenTyping == ProposedAnswer::isContinued)
            QMetaObject::invokeMethod(
                field, [field] { field->end(false); }, Qt::QueuedConnection);
    }
    return runDialog(window_, dialog) == QDialog::Accepted ? fromQString(dialog.textValue())
                                                           : std::u16string();
}

std::u16string WindowUser::chooseFilesToOpen(const FileDialog& dialog) {
    const DialogScope scope(*this, DialogKind::question);
    return joinedSelection(runOpenDialog(window_, dialog, lastFolder_));
}

std::u16string WindowUser::chooseFileToSave(const FileDialog& dialog) {
    const DialogScope scope(*this, DialogKind::question);
    return fromQString(runSaveDialog(window_, dialog, lastFolder_));
}

std::u16string WindowUser::browseForFolder(std::u16string_view prompt, std::u16string_view startFolder) {
    const DialogScope scope(*this, DialogKind::question);
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
        window_.setCursor(hand_ ? cursorFor(window_, *hand_) : QCursor(Qt::ArrowCursor));
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
    if (reports_.hidden == 0)
        narrator_.showProgress(text, done, total);
    else
        narrator_.showProgress(joinedClauses({hiddenReportsText(), std::u16string(text)}), done, total);
}

void WindowUser::endProgress(std::u16string_view summary) {
    catchUp(); // a change that is reported later would replace the summary
    narrator_.endProgress(joinedClauses({std::u16string(summary), hiddenReportsText()}));
}

void WindowUser::setClipboardText(std::u16string_view text) {
    QClipboard* clipboard = QGuiApplication::clipboard();
    QString wanted;
    wanted.reserve(static_cast<qsizetype>(text.size()));
    for (; text.size() > unitsBetweenYields; text.remove_prefix(unitsBetweenYields)) {
        wanted += toQString(text.substr(0, unitsBetweenYields));
        yield();
    }
    wanted += toQString(text);
    if (isBusy() && isStopRequested())
        return;
    clipboard->setText(wanted);
    // Some platforms do not report the clipboard's owner, so compare its content.
    if (!clipboard->ownsClipboard() && clipboard->text() != wanted)
        throw Failure(FailureNumber::permissionDenied);
}

bool WindowUser::openFolder(std::u16string_view folder) {
    return QDesktopServices::openUrl(urlOfPath(folder));
}

void WindowUser::catchUp() {
    if (beforeDispatch_)
        beforeDispatch_();
    narrator_.update();
}

/// How many reports of the operation are not shown; empty for none.
std::u16string WindowUser::hiddenReportsText() const {
    return unlessNone(reports_.hidden, u"report not shown", u"reports not shown");
}

} // namespace brindlewick
