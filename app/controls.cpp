#include "app/controls.h"

#include "app/qt_text.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QSplitter>
#include <QStyle>
#include <QVBoxLayout>
#include <vector>

namespace brindlewick {

namespace {

constexpr const char* inputHint = "Drag and drop files here. Double-click item to remove it. Move | line to "
                                  "right and out of window to reveal full names.";
constexpr const char* listHint = "Move | line to right and out of window to reveal full names.";

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

/// The list with its buttons in a column on its right. `label` goes above the list; nullptr for none.
QWidget* listWithButtons(QWidget* label, QWidget* list, std::initializer_list<QPushButton*> buttons) {
    auto* panel = new QWidget;
    auto* grid = new QGridLayout(panel);
    grid->setContentsMargins(0, 0, 0, 0);
    int row = 0;
    if (label != nullptr)
        grid->addWidget(label, row++, 0, 1, 2);
    grid->addWidget(list, row, 0);
    auto* column = new QVBoxLayout;
    for (QPushButton* button : buttons)
        column->addWidget(button);
    column->addStretch(1);
    grid->addLayout(column, row, 1);
    grid->setColumnStretch(0, 1);
    grid->setRowStretch(row, 1);
    return panel;
}

} // namespace

Controls::Controls(TextList& inputFiles, ResultsModel& results)
    : Frame1(captioned<QGroupBox>("Frame1", "Extract Options")), Options(makeOptions()),
      PushButton15(captioned<CaptionButton>("PushButton15", "")),
      Frame2(captioned<QGroupBox>("Frame2", "Include Option")),
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
    ListView1->setHint(QString::fromLatin1(inputHint));
    ListView2->setHint(QString::fromLatin1(listHint));
    ListView3->setHint(QString::fromLatin1(listHint));
    // A drawn character: finding the style's icon in the desktop's themes would double the start-up time.
    PushButton15->setSign(QStringLiteral("?"));
    PushButton7->makePrimary();
    nameForAssistiveTools();
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
    QWidget* const files = listWithButtons(
        nullptr, ListView1, {PushButton1, PushButton5, PushButton16, PushButton13, PushButton14});
    QWidget* const tags =
        listWithButtons(Label1, ListView3, {PushButton3, PushButton4, PushButton8, PushButton10});
    auto* const lists = new QSplitter(Qt::Horizontal);
    lists->addWidget(files);
    lists->addWidget(tags);
    lists->setStretchFactor(0, 3);
    lists->setStretchFactor(1, 2);

    auto* const modes = new QGridLayout(Frame1);
    constexpr int modeRows = static_cast<int>(extractionModes.size() + 1) / 2;
    for (int place = 0; QRadioButton * option : Options) {
        modes->addWidget(option, place % modeRows, place / modeRows);
        ++place;
    }
    modes->addWidget(PushButton15, 0, 2, modeRows, 1, Qt::AlignVCenter);
    modes->setColumnStretch(1, 1);

    auto* const include = new QVBoxLayout(Frame2);
    include->addWidget(Check1, 1);

    auto* const options = new QWidget;
    auto* const optionsRow = new QHBoxLayout(options);
    optionsRow->setContentsMargins(0, 0, 0, 0);
    optionsRow->addWidget(Frame1, 3);
    optionsRow->addWidget(Frame2, 2);

    auto* const above = new QWidget;
    auto* const aboveColumn = new QVBoxLayout(above);
    aboveColumn->setContentsMargins(0, 0, 0, 0);
    aboveColumn->addWidget(lists, 1);
    aboveColumn->addWidget(options);

    auto* const below = new QWidget;
    auto* const belowGrid = new QVBoxLayout(below);
    belowGrid->setContentsMargins(0, 0, 0, 0);
    auto* const startRow = new QHBoxLayout;
    startRow->addWidget(PushButton7, 1);
    startRow->addWidget(PushButton2);
    belowGrid->addLayout(startRow);
    belowGrid->addWidget(ListView2, 1);
    auto* const saveRow = new QHBoxLayout;
    for (QPushButton* button : {PushButton6, PushButton12, PushButton11}) {
        button->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Preferred); // fills the row's height
        saveRow->addWidget(button);
    }
    saveRow->addStretch(1);
    saveRow->addWidget(PushButton9);
    belowGrid->addLayout(saveRow);

    auto* const all = new QSplitter(Qt::Vertical);
    all->addWidget(above);
    all->addWidget(below);
    all->setStretchFactor(0, 1);
    all->setStretchFactor(1, 3);
    // As wide as the gaps between controls, so that all gaps in the window are equal.
    for (QSplitter* splitter : {lists, all}) {
        splitter->setChildrenCollapsible(false);
        splitter->setHandleWidth(window.style()->pixelMetric(QStyle::PM_LayoutHorizontalSpacing));
    }

    auto* const column = new QVBoxLayout(&window);
    column->addWidget(all);
    Text1x->setParent(&window);
    Text1x->hide();

    setTabOrder();
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
