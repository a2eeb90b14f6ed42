// The main window: declares the data and the handlers, and connects them with the controls.
#pragma once

#include "app/appearance.h"
#include "app/controls.h"
#include "app/gestures.h"
#include "app/list_gestures.h"
#include "app/results_model.h"
#include "app/sample_files.h"
#include "app/settings_file.h"
#include "app/text_list_model.h"
#include "app/window_user.h"
#include "extract/extraction_options.h"
#include "extract/extraction_run.h"
#include "extract/option_handlers.h"
#include "extract/results_table.h"
#include "lists/input_file_handlers.h"
#include "lists/tag_handlers.h"
#include "lists/text_list.h"
#include "output/output_handlers.h"

#include <QButtonGroup>
#include <QMainWindow>
#include <functional>
#include <memory>
#include <string>

namespace brindlewick {

class Form1 : public QMainWindow {
public:
    /// `programFolder` is the folder of the executable. Closing the window ends with a call of `endProcess`,
    /// which returns in tests only.
    Form1(std::u16string programFolder, std::function<void()> endProcess);
    ~Form1() override;

    /// Restores the settings. Called once, before the window is shown.
    void Form_Load();
    /// Saves the tags and ends the process.
    void Form_QueryUnload();
    /// Saves the tags while the program goes on. Does not report a failure, since the desktop may be waiting;
    /// a failure when the window closes is reported.
    void saveTags() noexcept;

    [[nodiscard]] Controls& controls() noexcept { return controls_; }
    [[nodiscard]] WindowUser& user() noexcept { return user_; }
    [[nodiscard]] TextList& inputFiles() noexcept { return inputFiles_; }
    [[nodiscard]] TextList& tags() noexcept { return tags_; }
    [[nodiscard]] ResultsTable& results() noexcept { return results_; }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void connectButtons();
    void connectOptions();
    void connectLists();
    void addShortcuts();
    void onClick(QPushButton* button, std::function<void()> handler);
    void onShortcut(const QKeySequence& keys, QPushButton* button);
    static void nameKey(const QKeySequence& keys, QPushButton* button, const char* where = "");
    void startExtracting();
    void keepTabStop();
    void addFinding();
    void copySelectedRows();
    void restoreMode();
    std::u16string countsText() const;
    void catchUp();

    std::u16string programFolder_;
    std::function<void()> endProcess_;

    UndoList undoList_;
    TextList inputFiles_{&undoList_};
    TextList tags_{&undoList_};
    ResultsTable results_{&undoList_};
    SettingsFile settings_;
    ExtractionOptions options_{settings_};

    TextListModel inputModel_{inputFiles_, TextListModel::Contents::paths};
    TextListModel tagModel_{tags_};
    ResultsModel resultsModel_{results_};
    Controls controls_{inputFiles_, resultsModel_};
    WindowUser user_;
    Gestures gestures_{user_, undoList_};
    QButtonGroup modes_;

    InputFileHandlers inputHandlers_{user_, settings_, inputFiles_};
    TagHandlers tagHandlers_{user_, tags_};
    OptionHandlers optionHandlers_{user_, options_};
    ExtractionRun run_{user_, options_, inputFiles_.texts(), tags_.texts(), results_};
    OutputHandlers outputHandlers_{user_, results_};
    SampleFiles samples_;
    ListGestures listGestures_{{controls_, user_, gestures_, inputFiles_, tags_, inputHandlers_, tagHandlers_,
                                resultsModel_, [this] { copySelectedRows(); }, [this] { find_(); }}};
    std::function<void()> find_; ///< opens the find bar
    std::unique_ptr<HoverPointer> hover_;
};

} // namespace brindlewick
