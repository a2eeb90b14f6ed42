#include "app/narrator.h"

#include "app/qt_text.h"
#include "app/row_delegate.h"

#include <QAbstractItemModel>
#include <QAccessibleWidget>
#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <QProgressBar>
#include <QScreen>
#include <QShortcut>
#include <QStatusBar>
#include <QStyle>
#include <QToolButton>
#include <algorithm>
#include <utility>

namespace brindlewick {

namespace {

constexpr qint64 updateInterval = 50; // ms
constexpr int progressSteps = 1000;

/// Shortens a text that does not fit, and shows all of it in a tool tip. A path after a colon is shortened so
/// that the file name is shown.
class ElidedLabel : public QLabel {
public:
    using QLabel::QLabel;

protected:
    bool event(QEvent* event) override {
        if (event->type() == QEvent::ToolTip)
            setToolTip(shownText() == text()
                           ? QString()
                           : wrappedTip(text(), fontMetrics(), screen()->availableSize().width() * 2 / 3));
        return QLabel::event(event);
    }
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        style()->drawItemText(&painter, contentsRect(), Qt::AlignLeft | Qt::AlignVCenter, palette(),
                              isEnabled(), shownText(), foregroundRole());
    }

private:
    QString shownText() const {
        const QFontMetrics metrics = fontMetrics();
        const int width = contentsRect().width();
        const qsizetype colon = text().indexOf(QStringLiteral(": "));
        const QString start = text().left(colon < 0 ? 0 : colon + 2);
        const int rest = width - metrics.horizontalAdvance(start);
        return rest < width / 4 ? metrics.elidedText(text(), Qt::ElideMiddle, width)
                                : start + shortenedPath(text().mid(start.size()), metrics, rest);
    }
};

/// Screen readers read out a notification when it is shown, but not the label of a status bar.
QAccessibleInterface* makeNotification(const QString&, QObject* object) {
    auto* const label = dynamic_cast<ElidedLabel*>(object);
    return label != nullptr ? new QAccessibleWidget(label, QAccessible::Notification) : nullptr;
}

/// Asks assistive tools to read out the label's text.
void announce(QLabel& label) {
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    QAccessibleAnnouncementEvent event(&label, label.text());
    QAccessible::updateAccessibility(&event);
#else
    // The first is for Linux, the second for Windows.
    for (const QAccessible::Event type : {QAccessible::ObjectShow, QAccessible::Alert}) {
        QAccessibleEvent event(&label, type);
        QAccessible::updateAccessibility(&event);
    }
#endif
}

/// Can be pressed once; then it is disabled.
QToolButton* makeStopButton(QStatusBar& statusBar, std::function<void()> stop) {
    auto* const button = new QToolButton(&statusBar);
    button->setObjectName(QStringLiteral("stopButton"));
    button->setText(QStringLiteral("Stop"));
    button->setToolTip(QStringLiteral("Stop (Esc)"));
    button->setFocusPolicy(Qt::NoFocus);
    button->setCursor(Qt::ArrowCursor); // not the hourglass
    const auto press = [button, stop = std::move(stop)] {
        button->setEnabled(false);
        stop();
    };
    QObject::connect(button, &QToolButton::clicked, button, press);
    // Works while the button is shown. The button's own shortcut would press it with a delay.
    auto* const escape = new QShortcut(Qt::Key_Escape, button);
    QObject::connect(escape, &QShortcut::activated, button, press);
    return button;
}

} // namespace

Narrator::Narrator(QStatusBar& statusBar, std::function<void()> stop)
    : label_(new ElidedLabel(&statusBar)), bar_(new QProgressBar(&statusBar)),
      stop_(makeStopButton(statusBar, std::move(stop))) {
    QAccessible::installFactory(makeNotification);
    label_->setObjectName(QStringLiteral("progressLabel"));
    label_->setTextFormat(Qt::PlainText);
    label_->setContentsMargins(6, 0, 6, 0);
    // Ignored: a long path must not widen the window.
    label_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    bar_->setObjectName(QStringLiteral("progressBar"));
    bar_->setAccessibleName(QStringLiteral("Progress"));
    bar_->setFixedWidth(200);
    statusBar.addWidget(label_, 1);
    statusBar.addPermanentWidget(bar_);
    statusBar.addPermanentWidget(stop_);
    bar_->hide();
    stop_->hide();
    setText({});
    sinceUpdate_.start();
}

void Narrator::setCounts(std::function<std::u16string()> counts) {
    counts_ = std::move(counts);
}

void Narrator::watch(const QAbstractItemModel& model) {
    const auto showChange = [this] { showCounts(); };
    using Model = QAbstractItemModel;
    for (const auto change : {&Model::rowsInserted, &Model::rowsRemoved})
        QObject::connect(&model, change, label_, showChange);
    QObject::connect(&model, &Model::dataChanged, label_, showChange);
    QObject::connect(&model, &Model::modelReset, label_, showChange);
}

void Narrator::showProgress(std::u16string_view text, std::uint64_t done, std::uint64_t total) {
    text_.assign(text);
    done_ = done;
    total_ = total;
    hasChanged_ = true;
    if (!std::exchange(isRunning_, true)) {
        stop_->setEnabled(true);
        updateNow();
    }
}

void Narrator::endProgress(std::u16string_view summary) {
    isRunning_ = false;
    hasChanged_ = false;
    bar_->hide();
    stop_->hide();
    setText(summary);
    announce(*label_);
}

void Narrator::showCounts() {
    if (!isRunning_)
        setText(counts_ ? counts_() : std::u16string());
}

QString Narrator::text() const {
    return label_->text();
}

void Narrator::update() {
    if (sinceUpdate_.elapsed() >= updateInterval)
        updateNow();
}

void Narrator::updateNow() {
    if (!std::exchange(hasChanged_, false))
        return;
    sinceUpdate_.start();
    setText(text_);
    if (total_ == 0) {
        bar_->setRange(0, 0);
    } else {
        const double share = static_cast<double>(std::min(done_, total_)) / static_cast<double>(total_);
        bar_->setRange(0, progressSteps);
        bar_->setValue(static_cast<int>(share * progressSteps));
    }
    bar_->show();
    stop_->show();
}

void Narrator::setText(std::u16string_view text) {
    const QString shown = displayPath(text); // a path is at the end of most texts
    label_->setText(shown);
    label_->setAccessibleName(shown.isEmpty() ? QStringLiteral("Status") : shown);
}

} // namespace brindlewick
