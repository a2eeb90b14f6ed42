// The main window's controls under their names, and how they are laid out.
#pragma once

#include "app/input_list_view.h"
#include "app/results_view.h"
#include "app/rows_view.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
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
    QPushButton* PushButton15;
    QGroupBox* Frame2;
    QCheckBox* Check1;
    QPushButton* PushButton2;
    InputListView* ListView1;
    QLineEdit* Text1x; ///< used by nothing, and hidden
    ResultsView* ListView2;
    QPushButton* PushButton1;
    QPushButton* PushButton5;
    QPushButton* PushButton7;
    QPushButton* PushButton6;
    QPushButton* PushButton12;
    QPushButton* PushButton11;
    QPushButton* PushButton9;
    QPushButton* PushButton13;
    QPushButton* PushButton14;
    QPushButton* PushButton16;
    RowsView* ListView3;
    QPushButton* PushButton3;
    QPushButton* PushButton4;
    QPushButton* PushButton8;
    QPushButton* PushButton10;
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
