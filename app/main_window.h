// The program's one window: the controls, what they show and which handlers they call.
#pragma once

#include "app/appearance.h"
#include "app/controls.h"
#include "app/option_handlers.h"
#include "app/results_model.h"
#include "app/sample_files.h"
#include "app/settings_file.h"
#include "app/text_list_model.h"
#include "app/window_user.h"
#include "extract/extraction_options.h"
#include "extract/extraction_run.h"
#include "extract/results_table.h"
#include "lists/input_file_handlers.h"
#include "lists/tag_handlers.h"
#include "lists/text_list.h"
#include "output/output_handlers.h"

#include <QButtonGroup>
#include <QMainWindow>
#include <QTimer>
#include <functional>
#include <memory>
#include <string>

namespace brindlewick {

class Form1 : public QMainWindow {
public:
    /// `programFolder` holds the files beside the executable. `endProcess` is the last thing that closing
    /// does and is expected not to return; tests let it.
    Form1(std::u16string programFolder, std::function<void()> endProcess);
    ~Form1() override;

    /// Restores what the program remembers. Called once, before the window is shown.
    void Form_Load();
    /// Saves what is saved at the end, and ends the process.
    void Form_QueryUnload();

    Controls& controls() noexcept { return controls_; }
    WindowUser& user() noexcept { return user_; }
    TextList& inputFiles() noexcept { return inputFiles_; }
    TextList& tags() noexcept { return tags_; }
    ResultsTable& results() noexcept { return results_; }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void connectButtons();
    void connectOptions();
    void connectLists();
    void addShortcuts();
    /// Calls the handler when the button is pressed; while an operation is under way, only if it `onlyTells`.
    void onClick(QPushButton* button, std::function<void()> handler, bool onlyTells = false);
    void onShortcut(const QKeySequence& keys, QPushButton* button);
    void copySelectedRows();
    void restoreTaken();
    void catchUp();

    // Start-up, step by step.
    void restoreMode();

    std::u16string programFolder_;
    std::function<void()> endProcess_;

    TextList inputFiles_;
    TextList tags_;
    ResultsTable results_;
    SettingsFile settings_;
    ExtractionOptions options_{settings_};

    TextListModel inputModel_{inputFiles_};
    TextListModel tagModel_{tags_};
    ResultsModel resultsModel_{results_};
    Controls controls_{inputFiles_, resultsModel_};
    WindowUser user_;
    QButtonGroup modes_;
    QTimer catchUpTimer_;

    InputFileHandlers inputHandlers_{user_, settings_, inputFiles_};
    TagHandlers tagHandlers_{user_, tags_};
    OptionHandlers optionHandlers_{user_, options_};
    ExtractionRun run_{user_, options_, inputFiles_.texts(), tags_.texts(), results_};
    OutputHandlers outputHandlers_{user_, results_};
    SampleFiles samples_;
    std::unique_ptr<HoverPointer> hover_;
};

} // namespace brindlewick
