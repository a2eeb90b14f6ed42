// The main window's controls and their layout. The members have the controls' names.
#pragma once

#include "app/caption_button.h"
#include "app/input_list_view.h"
#include "app/results_view.h"
#include "app/rows_view.h"
#include "extract/extraction_options.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <string>

namespace brindlewick {

/// The widget passed to `layOut` becomes the owner of the controls.
struct Controls {
    Controls(TextList& inputFiles, ResultsModel& results);

    QGroupBox* Frame1;
    PerMode<QRadioButton*> Options; ///< Option1, Option2 ..., in the order of `extractionModes`
    CaptionButton* PushButton15;
    QGroupBox* Frame2;
    QCheckBox* Check1;
    CaptionButton* PushButton2;
    InputListView* ListView1;
    QLineEdit* Text1x; ///< hidden; no operation uses it
    ResultsView* ListView2;
    CaptionButton* PushButton1;
    CaptionButton* PushButton5;
    CaptionButton* PushButton7;
    CaptionButton* PushButton6;
    CaptionButton* PushButton12;
    CaptionButton* PushButton11;
    CaptionButton* PushButton9;
    CaptionButton* PushButton13;
    CaptionButton* PushButton14;
    CaptionButton* PushButton16;
    RowsView* ListView3;
    CaptionButton* PushButton3;
    CaptionButton* PushButton4;
    CaptionButton* PushButton8;
    CaptionButton* PushButton10;
    QLabel* Label1;

    /// The button of a mode other than `none`.
    [[nodiscard]] QRadioButton& option(ExtractionMode mode) const { return *Options[placeOf(mode).value()]; }
    [[nodiscard]] PerMode<std::u16string> optionCaptions() const;

    /// What the empty results show: why the run has found no rows, or without a reason the step to take.
    void setReasonForNoRows(const QString& reason) const;

    /// Puts all controls into `window`: files and tags at the top, each list with
    /// its buttons on its right and its options below, then "Start Extracting", the results and their
    /// buttons. Dividers change the sizes of these areas. Sets the tab order.
    void layOut(QWidget& window);
    /// Puts the bar, which may be hidden, below the results, also in the tab order. Called after `layOut`.
    void addBelowResults(QWidget& bar) const;

private:
    void nameForAssistiveTools();
    void setTabOrder();
};

} // namespace brindlewick
