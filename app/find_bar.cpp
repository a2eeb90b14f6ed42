#include "app/find_bar.h"

#include "app/caption_button.h"
#include "app/qt_text.h"
#include "platform/error_report.h"
#include "platform/text.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

namespace brindlewick {

namespace {

constexpr qint64 sliceTime = 4;                           // ms; four slices fit between two frames
constexpr std::size_t workPerStep = std::size_t{1} << 16; // code units; less than a millisecond
// The results give up the bar's height, so that the bar does not make a small window higher.
constexpr int minRows = 4;
constexpr int minRowsBesideBar = 2;
constexpr int minTextWidth = 12; // characters of average width

CaptionButton* makeButton(const char* name, const char* tip) {
    auto* const button = new CaptionButton;
    button->setObjectName(QString::fromLatin1(name));
    button->setToolTip(QString::fromLatin1(tip));
    button->setFocusPolicy(Qt::TabFocus); // a click leaves the focus in the text
    return button;
}

CaptionButton* makeSignButton(QChar sign, const char* accessibleName, const char* name, const char* tip) {
    CaptionButton* const button = makeButton(name, tip);
    button->setSign(sign);
    button->setAccessibleName(QString::fromLatin1(accessibleName));
    return button;
}

} // namespace

FindBar::FindBar(const ResultsTable& table, ResultsModel& model, ResultsView& view, UserInterface& user)
    : model_(model), view_(view), user_(user), finder_(table), text_(new QLineEdit), count_(new QLabel),
      previous_(makeSignButton(u'\u2191', "Previous hit", "findPrevious", "Previous hit (Shift+F3)")),
      next_(makeSignButton(u'\u2193', "Next hit", "findNext", "Next hit (F3)")),
      checkOnly_(makeButton("checkOnlyHits", "Tick the hits and untick all other rows")),
      closing_(makeSignButton(u'\u00D7', "Close the find bar", "closeFindBar", "Close (Esc)")) {
    checkOnly_->setText(QStringLiteral("Tick Only These"));
    setObjectName(QStringLiteral("findBar"));
    layOut();
    hide();
    slices_.setInterval(0);
    connect(&slices_, &QTimer::timeout, this, [this] { guarded([this] { search(); }); });
    connect(text_, &QLineEdit::textChanged, this, [this] { guarded([this] { startSearch(Goal::here); }); });
    connect(previous_, &QPushButton::clicked, this, [this] { findPrevious(); });
    connect(next_, &QPushButton::clicked, this, [this] { findNext(); });
    connect(checkOnly_, &QPushButton::clicked, this, [this] { guarded([this] { checkOnlyHits(); }); });
    connect(closing_, &QPushButton::clicked, this, [this] { close(); });
    connect(&model_, &QAbstractItemModel::modelReset, this,
            [this] { guarded([this] { startSearch(Goal::none); }); });
    connect(&model_, &QAbstractItemModel::rowsInserted, this, [this] {
        if (!isHidden())
            slices_.start();
    });
    connect(view_.selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this] { showCount(); });
    view_.installEventFilter(this);
    installEventFilter(this);
    for (QWidget* child : findChildren<QWidget*>())
        child->installEventFilter(this);
}

void FindBar::layOut() {
    text_->setObjectName(QStringLiteral("findText"));
    text_->setPlaceholderText(QStringLiteral("Find in the results"));
    text_->setAccessibleName(text_->placeholderText());
    text_->setMinimumWidth(minTextWidth * fontMetrics().averageCharWidth());
    count_->setObjectName(QStringLiteral("findCount"));
    count_->setTextFormat(Qt::PlainText);
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(text_, 1);
    for (QWidget* widget :
         {static_cast<QWidget*>(count_), static_cast<QWidget*>(previous_), static_cast<QWidget*>(next_),
          static_cast<QWidget*>(checkOnly_), static_cast<QWidget*>(closing_)})
        row->addWidget(widget);
    setFocusProxy(text_);
}

void FindBar::open() {
    const bool wasHidden = isHidden();
    view_.setMinRows(minRowsBesideBar);
    show();
    text_->setFocus(Qt::ShortcutFocusReason);
    text_->selectAll();
    if (wasHidden)
        guarded([this] { startSearch(Goal::none); });
}

void FindBar::close() {
    slices_.stop();
    const bool hadFocus = isAncestorOf(QApplication::focusWidget());
    hide();
    view_.setMinRows(minRows);
    guarded([this] { finder_.start({}, 0); });
    view_.setMarkedText({});
    if (hadFocus)
        view_.setFocus();
}

void FindBar::findNext() {
    find(Goal::next);
}

void FindBar::findPrevious() {
    find(Goal::previous);
}

void FindBar::find(Goal goal) {
    if (isHidden())
        open();
    goal_ = goal;
    guarded([this] { reachGoal(); });
}

void FindBar::startSearch(Goal goal) {
    if (isHidden())
        return;
    goal_ = goal;
    const std::u16string wanted = fromQString(text_->text());
    view_.setMarkedText(wanted);
    finder_.start(wanted, currentRow().value_or(0));
    slices_.start();
    showCount();
}

/// One slice of the search.
void FindBar::search() {
    slices_.stop(); // in case that this fails
    model_.catchUp();
    QElapsedTimer sinceStart;
    sinceStart.start();
    do
        finder_.advance(workPerStep);
    while (!finder_.isDone() && !sinceStart.hasExpired(sliceTime));
    if (!finder_.isDone())
        slices_.start();
    reachGoal();
    showCount();
}

void FindBar::reachGoal() {
    if (goal_ == Goal::none)
        return;
    const std::size_t current = currentRow().value_or(0);
    const std::size_t from = goal_ == Goal::next && currentRow() ? current + 1 : current;
    const std::optional<std::size_t> hit =
        goal_ == Goal::previous ? finder_.hitBefore(current) : finder_.hitFrom(from);
    if (hit || finder_.isDone())
        goal_ = Goal::none;
    if (hit)
        view_.setCurrentIndex(model_.index(static_cast<int>(*hit), 0));
}

void FindBar::showCount() {
    if (isHidden())
        return;
    const bool isSearching = !finder_.isDone();
    const std::size_t hits = finder_.hitCount();
    const std::optional<std::size_t> current = currentRow();
    QString text = toQString(countText(hits, u"hit", u"hits"));
    if (hits == 0)
        text = isSearching ? QStringLiteral("Searching") : QStringLiteral("No hits");
    if (text_->text().isEmpty())
        text.clear();
    if (isSearching)
        text += u'\u2026';
    else if (current && finder_.isHit(*current))
        text.prepend(toQString(groupedText(finder_.hitsBefore(*current) + 1) + u" of "));
    count_->setText(text);
    previous_->setEnabled(hits > 0);
    next_->setEnabled(hits > 0);
    checkOnly_->setEnabled(hits > 0 && !isSearching);
}

void FindBar::checkOnlyHits() {
    if (!user_.isBusy())
        model_.setEachChecked([this](std::size_t row) { return finder_.isHit(row); });
}

/// Esc closes the bar, in the bar and in the results; Return in the text goes to a hit.
bool FindBar::eventFilter(QObject* watched, QEvent* event) {
    const bool isOverride = event->type() == QEvent::ShortcutOverride;
    if (isHidden() || (event->type() != QEvent::KeyPress && !isOverride))
        return false;
    const auto& key = *static_cast<QKeyEvent*>(event);
    // In the results, Esc stops an operation first.
    const bool closes = key.key() == Qt::Key_Escape && (watched != &view_ || !user_.isBusy());
    const bool finds = watched == text_ && (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) &&
                       (key.modifiers() & Qt::ControlModifier) == 0;
    if (!closes && !finds)
        return false;
    event->accept(); // no shortcut of the window
    if (isOverride)
        return true;
    if (closes)
        close();
    else if (key.modifiers() & Qt::ShiftModifier)
        findPrevious();
    else
        findNext();
    return true;
}

void FindBar::guarded(const std::function<void()>& action) {
    const Guard guard(user_, u"Form1.ListView2_Find");
    guard(action);
}

std::optional<std::size_t> FindBar::currentRow() const {
    const QModelIndex current = view_.currentIndex();
    return current.isValid() ? std::optional(static_cast<std::size_t>(current.row())) : std::nullopt;
}

} // namespace brindlewick
