// The main window's controls under their names, and how they are laid out.
#pragma once

#include "app/caption_button.h"
#include "app/input_list_view.h"
#include "app/results_view.h"
#include "app/rows_view.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <array>

namespace brindlewick {

/// The controls belong to the widget that `layOut` puts them in.
struct Controls {
    Controls(TextList& inputFiles, ResultsModel& results);

    QGroupBox* Frame1;
    QRadioButton* Option4;
    QRadioButton* Option1;
    QRadioButton* Option2;
    QRadioButton* Option3;
    CaptionButton* PushButton15;
    QGroupBox* Frame2;
    QCheckBox* Check1;
    CaptionButton* PushButton2;
    InputListView* ListView1;
    QLineEdit* Text1x; ///< used by nothing, and hidden
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

    /// The mode buttons, mode 1 first.
    std::array<QRadioButton*, 4> options() const { return {Option1, Option2, Option3, Option4}; }
    std::array<std::u16string, 4> optionCaptions() const;

    /// Puts all controls into `window` in the order of work: files and tags, options and start, results and
    /// what becomes of them. The parts can be made larger at each other's expense. Sets the tab order.
    void layOut(QWidget& window);

private:
    void nameForAssistiveTools();
    void setTabOrder();
};

} // namespace brindlewick
