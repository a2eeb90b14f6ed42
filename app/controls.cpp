#include "app/controls.h"

#include "app/lists_splitter.h"
#include "app/matched_size.h"
#include "app/qt_text.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QStyle>
#include <QVBoxLayout>
#include <vector>

namespace brindlewick {

namespace {

constexpr const char* inputHint = "Drag and drop files here. Double-click item to remove it. Move | line to "
                                  "right and out of window to reveal full names.";
constexpr const char* listHint = "Move | line to right and out of window to reveal full names.";
constexpr int minStartWidth = 120; // pixels

template <class Control>
Control* named(Control* control, const char* name) {
    control->setObjectName(QString::fromLatin1(name));
    return control;
}

template <class Control>
Control* captioned(const char* name, const char* caption) {
    return named(new Control(QString::fromLatin1(caption)), name);
}

PerMode<QRadioButton*> makeOptions() {
    PerMode<QRadioButton*> options;
    for (std::size_t place = 0; place < options.size(); ++place) {
        options[place] = new QRadioButton(toQString(extractionModes[place].caption));
        options[place]->setObjectName(toQString(extractionModes[place].control));
    }
    return options;
}

using Group = Matched<QGroupBox, Qt::Vertical>;
using Column = Matched<QWidget, Qt::Horizontal>;

Column* columnOf(std::initializer_list<QWidget*> controls) {
    auto* const column = new Column;
    auto* const box = new QVBoxLayout(column);
    box->setContentsMargins(0, 0, 0, 0);
    for (QWidget* control : controls)
        box->addWidget(control);
    box->addStretch(1);
    return column;
}

/// The list with the column on its right and the group under both.
QWidget* listAboveGroup(QWidget* list, Column* column, QGroupBox* group) {
    auto* const area = new QWidget;
    auto* const grid = new QGridLayout(area);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(list, 0, 0);
    grid->addWidget(column, 0, 1);
    grid->addWidget(group, 1, 0, 1, 2);
    grid->setColumnStretch(0, 1);
    grid->setRowStretch(0, 1);
    return area;
}

} // namespace

Controls::Controls(TextList& inputFiles, ResultsModel& results)
    : Frame1(captioned<Group>("Frame1", "Extract Options")), Options(makeOptions()),
      PushButton15(captioned<CaptionButton>("PushButton15", "")),
      Frame2(captioned<Group>("Frame2", "Include Option")),
      Check1(captioned<QCheckBox>("Check1", "Include filename in extraction results")),
      PushButton2(captioned<CaptionButton>("PushButton2", "Help")),
      ListView1(named(new InputListView(inputFiles), "ListView1")), Text1x(named(new QLineEdit, "Text1x")),
      ListView2(named(new ResultsView(results), "ListView2")),
      PushButton1(captioned<CaptionButton>("PushButton1", "Add JSON Files")),
      PushButton5(captioned<CaptionButton>("PushButton5", "Add All JSON Files In Folder")),
      PushButton7(captioned<CaptionButton>("PushButton7", "Start Extracting")),
      PushButton6(captioned<CaptionButton>("PushButton6", "Save Results As Text File")),
      PushButton12(captioned<CaptionButton>("PushButton12", "Save As Comma Delimited")),
      PushButton11(captioned<CaptionButton>("PushButton11", "Copy Results To Clipboard")),
      PushButton9(captioned<CaptionButton>("PushButton9", "\nClear List")),
      PushButton13(captioned<CaptionButton>("PushButton13", "Load Sample/Example Files")),
      PushButton14(captioned<CaptionButton>("PushButton14", "\nClear List")),
      PushButton16(captioned<CaptionButton>("PushButton16", "Load JSON Files From Text File")),
      ListView3(named(new RowsView, "ListView3")),
      PushButton3(captioned<CaptionButton>("PushButton3", "\nAdd Tag")),
      PushButton4(captioned<CaptionButton>("PushButton4", "Load Tags From Text File")),
      PushButton8(captioned<CaptionButton>("PushButton8", "Delete Selected Tag")),
      PushButton10(captioned<CaptionButton>("PushButton10", "\nClear List")),
      Label1(captioned<QLabel>("Label1", "Enter tag without < or / or > :")) {
    Options.front()->setChecked(true);
    Label1->setTextFormat(Qt::PlainText);
    ListView1->setToolTip(QString::fromLatin1(inputHint));
    ListView2->setToolTip(QString::fromLatin1(listHint));
    ListView3->setToolTip(QString::fromLatin1(listHint));
    ListView1->setStep({1, QStringLiteral("Drop JSON files or folders here, or load the samples.")});
    ListView3->setStep(
        {2, QStringLiteral("Add the names or words to look for."),
         QStringLiteral("A tag is found anywhere in a name or a value; upper and lower case are "
                        "the same. \u201c@\u201d finds mail addresses.")});
    setReasonForNoRows({});
    for (std::size_t place = 0; place < Options.size(); ++place)
        Options[place]->setToolTip(toQString(extractionModes[place].example));
    // A drawn character: finding the style's icon in the desktop's themes would double the start-up time.
    PushButton15->setSign(QStringLiteral("?"));
    PushButton7->makePrimary();
    PushButton7->setMinimumWidth(minStartWidth);
    PushButton3->setPicture(CaptionPicture::plus);
    for (CaptionButton* clearing : {PushButton9, PushButton10, PushButton14})
        clearing->setPicture(CaptionPicture::bin);
    nameForAssistiveTools();
}

void Controls::setReasonForNoRows(const QString& reason) const {
    ListView2->setStep(reason.isEmpty()
                           ? Step{3, QStringLiteral("Choose a mode and press \u201cStart Extracting\u201d."),
                                  QStringLiteral("Then Ctrl+F finds text in the results.")}
                           : Step{0, reason});
    ListView2->viewport()->update();
}

PerMode<std::u16string> Controls::optionCaptions() const {
    PerMode<std::u16string> captions;
    for (std::size_t place = 0; place < captions.size(); ++place)
        captions[place] = fromQString(Options[place]->text());
    return captions;
}

/// Accessible names for controls whose purpose is only visible.
void Controls::nameForAssistiveTools() {
    const std::pair<QWidget*, const char*> names[] = {
        {ListView1, "JSON files"},
        {ListView2, "Results"},
        {ListView3, "Tags"},
        {PushButton15, "Explain the extraction modes"},
        {PushButton3, "Add Tag"},
        {PushButton9, "Clear the results"},
        {PushButton10, "Clear the tags"},
        {PushButton14, "Clear the JSON files"},
    };
    for (const auto& [control, name] : names)
        control->setAccessibleName(QString::fromLatin1(name));
    PushButton15->setToolTip(PushButton15->accessibleName());
    for (RowsView* list : {static_cast<RowsView*>(ListView1), static_cast<RowsView*>(ListView2), ListView3})
        list->setAccessibleDescription(list->toolTip());
}

void Controls::layOut(QWidget& window) {
    auto* const modes = new QGridLayout(Frame1);
    constexpr int modeRows = static_cast<int>(extractionModes.size() + 1) / 2;
    for (int place = 0; QRadioButton * option : Options) {
        modes->addWidget(option, place % modeRows, place / modeRows);
        ++place;
    }
    // Next to the last option, whose caption is short: the group stays narrow in large type.
    modes->addWidget(PushButton15, modeRows - 1, 1, Qt::AlignRight);
    modes->setColumnStretch(1, 1);
    modes->setHorizontalSpacing(2 * window.style()->pixelMetric(QStyle::PM_LayoutHorizontalSpacing));
    auto* const include = new QVBoxLayout(Frame2);
    include->addWidget(Check1, 0, Qt::AlignTop);
    static_cast<Group*>(Frame1)->matchWith(*static_cast<Group*>(Frame2));

    Column* const tagColumn = columnOf({Label1, PushButton3, PushButton4, PushButton8, PushButton10});
    Column* const resultsColumn = columnOf({PushButton6, PushButton12, PushButton11, PushButton9});
    tagColumn->matchWith(*resultsColumn);
    auto* const lists = new ListsSplitter(
        listAboveGroup(ListView1,
                       columnOf({PushButton1, PushButton5, PushButton16, PushButton13, PushButton14}),
                       Frame1),
        listAboveGroup(ListView3, tagColumn, Frame2));

    auto* const below = new QWidget;
    auto* const grid = new QGridLayout(below);
    grid->setContentsMargins(0, 0, 0, 0);
    auto* const startRow = new QHBoxLayout;
    startRow->addWidget(PushButton7, 2); // a third of the window's width
    startRow->addStretch(3);
    grid->addLayout(startRow, 0, 0);
    grid->addWidget(PushButton2, 0, 1);
    grid->addWidget(ListView2, 1, 0);
    grid->addWidget(resultsColumn, 1, 1, 2, 1); // next to the results and what is below them
    grid->setColumnStretch(0, 1);
    grid->setRowStretch(1, 1);

    auto* const all = new QSplitter(Qt::Vertical);
    all->addWidget(lists);
    all->addWidget(below);
    all->setStretchFactor(0, 1);
    all->setStretchFactor(1, 3);
    // As wide as the gaps between controls, so that all gaps in the window are equal.
    for (QSplitter* splitter : {static_cast<QSplitter*>(lists), all}) {
        splitter->setChildrenCollapsible(false);
        splitter->setHandleWidth(window.style()->pixelMetric(QStyle::PM_LayoutHorizontalSpacing));
    }

    auto* const column = new QVBoxLayout(&window);
    column->addWidget(all);
    Text1x->setParent(&window);
    Text1x->hide();

    setTabOrder();
}

void Controls::addBelowResults(QWidget& bar) const {
    auto* const grid = qobject_cast<QGridLayout*>(ListView2->parentWidget()->layout());
    grid->addWidget(&bar, 2, 0);
    QWidget* before = ListView2;
    for (QWidget* control : bar.findChildren<QWidget*>())
        if (control->focusPolicy() != Qt::NoFocus) {
            QWidget::setTabOrder(before, control);
            before = control;
        }
}

void Controls::setTabOrder() {
    std::vector<QWidget*> order = {ListView1,    PushButton1,  PushButton5, PushButton16,
                                   PushButton13, PushButton14, ListView3,   PushButton3,
                                   PushButton4,  PushButton8,  PushButton10};
    order.insert(order.end(), Options.begin(), Options.end());
    order.insert(order.end(), {PushButton15, Check1, PushButton7, PushButton2, ListView2, PushButton6,
                               PushButton12, PushButton11, PushButton9});
    for (std::size_t at = 1; at < order.size(); ++at)
        QWidget::setTabOrder(order[at - 1], order[at]);
}

} // namespace brindlewick
