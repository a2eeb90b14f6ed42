#include "app/main_window.h"

#include "app/file_drop.h"
#include "app/find_bar.h"
#include "app/row_viewer.h"
#include "extract/run_summary.h"
#include "platform/error_report.h"
#include "platform/text.h"

#include <QCloseEvent>
#include <QScreen>
#include <QShortcut>
#include <QStatusBar>
#include <utility>

namespace brindlewick {

namespace {

constexpr QSize preferredSize{1120, 760}; // pixels, if the screen is large enough
constexpr QSize frameAllowance{16, 48};   // pixels for the title bar and the borders

} // namespace

Form1::Form1(std::u16string programFolder, std::function<void()> endProcess)
    : programFolder_(std::move(programFolder)), endProcess_(std::move(endProcess)),
      user_(*this, *statusBar()), samples_(user_, settings_, inputFiles_, tags_, programFolder_, [this] {
          controls_.option(ExtractionMode::valueWithoutTag).setChecked(true);
      }) {
    setObjectName(QStringLiteral("Form1"));
    QFont arial = font();
    arial.setFamily(QStringLiteral("Arial"));
    setFont(arial);
    auto* const surface = new QWidget;
    controls_.layOut(*surface);
    setCentralWidget(surface);
    controls_.ListView1->setModel(&inputModel_);
    controls_.ListView3->setModel(&tagModel_);
    resize(preferredSize.boundedTo(screen()->availableSize() - frameAllowance));

    connectButtons();
    connectOptions();
    connectLists();
    addShortcuts();
    addFinding();
    user_.narrator().setCounts([this] { return countsText(); });
    for (const QAbstractItemModel* model :
         std::initializer_list<const QAbstractItemModel*>{&inputModel_, &tagModel_, &resultsModel_})
        user_.narrator().watch(*model);
    user_.setBeforeDispatch([this] { catchUp(); });
    hover_ = std::make_unique<HoverPointer>(*this, user_);
}

Form1::~Form1() {
    // A view must not outlive its model.
    delete takeCentralWidget();
}

void Form1::connectButtons() {
    const Controls& c = controls_;
    onClick(c.PushButton1, [this] { inputHandlers_.PushButton1_Click(); });
    onClick(c.PushButton5, [this] { inputHandlers_.PushButton5_Click(); });
    onClick(c.PushButton16, [this] { inputHandlers_.PushButton16_Click(); });
    onClick(c.PushButton14, [this] { inputHandlers_.PushButton14_Click(); });
    onClick(c.PushButton13, [this] { samples_.PushButton13_Click(); });
    onClick(c.PushButton3, [this] { tagHandlers_.PushButton3_Click(); });
    onClick(c.PushButton4, [this] { tagHandlers_.PushButton4_Click(); });
    onClick(c.PushButton8, [this] { tagHandlers_.PushButton8_Click(controls_.ListView3->selectedRow()); });
    onClick(c.PushButton10, [this] { tagHandlers_.PushButton10_Click(); });
    onClick(c.PushButton7, [this] { startExtracting(); });
    onClick(c.PushButton6, [this] { outputHandlers_.PushButton6_Click(); });
    onClick(c.PushButton12, [this] { outputHandlers_.PushButton12_Click(); });
    onClick(c.PushButton11, [this] { outputHandlers_.PushButton11_Click(); });
    onClick(c.PushButton9, [this] { outputHandlers_.PushButton9_Click(); });
    // These two only show a message, so they are allowed during an operation.
    connect(c.PushButton15, &QPushButton::clicked, this,
            [this] { optionHandlers_.PushButton15_Click(controls_.optionCaptions()); });
    connect(c.PushButton2, &QPushButton::clicked, this, [this] { optionHandlers_.PushButton2_Click(); });
}

/// The empty results still show why they are empty after the status bar has changed.
void Form1::startExtracting() {
    controls_.setReasonForNoRows({});
    run_.PushButton7_Click();
    if (results_.rowCount() == 0 && inputFiles_.size() > 0)
        controls_.setReasonForNoRows(user_.narrator().text());
}

void Form1::connectOptions() {
    for (std::size_t place = 0; QRadioButton * option : controls_.Options) {
        modes_.addButton(option);
        connect(option, &QRadioButton::toggled, this,
                [this, handler = OptionHandlers::optionClicks()[place]](bool selected) {
                    if (!selected)
                        return;
                    keepTabStop();
                    (optionHandlers_.*handler)();
                });
        ++place;
    }
    connect(controls_.Check1, &QCheckBox::toggled, this,
            [this](bool ticked) { optionHandlers_.Check1_Click(ticked); });
}

void Form1::connectLists() {
    new FileDrop(
        *this, [this](bool isOver) { controls_.ListView1->setHighlighted(isOver); },
        [this](const DroppedFiles& files) { listGestures_.addFiles(files); });
    controls_.ListView2->setCopyHandler([this] { copySelectedRows(); });
    connect(&resultsModel_, &QAbstractItemModel::modelReset, this, [this] {
        QList<int> widths;
        for (const TableColumn& column : results_.columns())
            widths.append(column.widthInTwips);
        controls_.ListView2->setWidthsInTwips(widths);
    });
}

/// Tab goes to the selected mode. QButtonGroup does this only when a button gets the focus.
void Form1::keepTabStop() {
    for (QRadioButton* option : controls_.Options)
        option->setFocusPolicy(option->isChecked() ? Qt::StrongFocus : Qt::ClickFocus);
}

void Form1::addShortcuts() {
    const Controls& c = controls_;
    onShortcut(QKeySequence::Open, c.PushButton1);
    onShortcut(QKeySequence::Save, c.PushButton6);
    onShortcut(QKeySequence(Qt::CTRL | Qt::Key_Enter), c.PushButton7);
    onShortcut(QKeySequence(Qt::CTRL | Qt::Key_Return), c.PushButton7);
    onShortcut(QKeySequence(Qt::Key_F1), c.PushButton2);
    nameKey(QKeySequence(Qt::Key_Insert), c.PushButton3, " in the tag list");
    nameKey(QKeySequence(Qt::Key_Delete), c.PushButton8, " in the tag list");
    connect(new QShortcut(QKeySequence::Undo, this), &QShortcut::activated, this,
            [this] { gestures_.undo(); });
    connect(new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q), this), &QShortcut::activated, this,
            [this] { close(); });
}

void Form1::addFinding() {
    auto* const bar = new FindBar(results_, resultsModel_, *controls_.ListView2, user_);
    controls_.addBelowResults(*bar);
    const auto onKeys = [this, bar](const QKeySequence& keys, void (FindBar::*action)()) {
        connect(new QShortcut(keys, this), &QShortcut::activated, bar, action);
    };
    find_ = [bar] { bar->open(); };
    onKeys(QKeySequence::Find, &FindBar::open);
    onKeys(Qt::Key_F3, &FindBar::findNext);
    onKeys(Qt::SHIFT | Qt::Key_F3, &FindBar::findPrevious);

    auto* const viewer = new RowViewer(*this, results_);
    connect(&resultsModel_, &QAbstractItemModel::modelAboutToBeReset, viewer, &RowViewer::forgetRow);
    controls_.ListView2->setShowTextHandler([this, viewer](std::size_t row) {
        const Guard guard(user_, u"Form1.ListView2_DblClick");
        guard([&] { viewer->showRow(row); });
    });
}

void Form1::onClick(QPushButton* button, std::function<void()> handler) {
    connect(button, &QPushButton::clicked, this,
            [this, handler = std::move(handler)] { gestures_.start(handler); });
}

void Form1::onShortcut(const QKeySequence& keys, QPushButton* button) {
    connect(new QShortcut(keys, this), &QShortcut::activated, button, [button] { button->click(); });
    nameKey(keys, button);
}

/// Names the keys in the button's tool tip.
void Form1::nameKey(const QKeySequence& keys, QPushButton* button, const char* where) {
    button->setToolTip(QStringLiteral("%1 (%2%3)")
                           .arg(button->text().trimmed(), keys.toString(QKeySequence::NativeText),
                                QString::fromLatin1(where)));
}

void Form1::copySelectedRows() {
    // The handler reports its own failures; listing the ranges may fail too.
    const Guard guard(user_, u"Form1.ListView2_KeyDown");
    guard([this] { outputHandlers_.ListView2_Copy(controls_.ListView2->selectedRanges()); });
}

/// What the lists hold, for the status bar.
std::u16string Form1::countsText() const {
    return joinedClauses({unlessNone(inputFiles_.size(), u"file", u"files"),
                          unlessNone(tags_.size(), u"tag", u"tags"),
                          rowCountText(results_.rowCount(), results_.checkedCount())});
}

void Form1::catchUp() {
    inputModel_.catchUp();
    tagModel_.catchUp();
    resultsModel_.catchUp();
}

void Form1::closeEvent(QCloseEvent* event) {
    Form_QueryUnload();
    event->accept();
}

} // namespace brindlewick
