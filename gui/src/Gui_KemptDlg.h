// The main window: the menu of commands, the read-only message pane and the
// status bar (a text, the bar that counts the files of a batch, and the
// "Idle" and "Busy" lamps). It holds the session: the scheme store, the
// scheme in use, the options of the settings file, the last directory.
//
// The batch commands are the batch front's (App::FileCollection); the window
// is their feedback (questions, status, bars, the progress dialog, cancel)
// and their message sink (the pane).
//
// Making the window opens the session, in this order: the scheme store (the
// built-in schemes installed, then read: an unreadable scheme file throws
// KemptUI::PropertySetStore::ReadError), the conversion of old schemes (its
// text in a box), then the settings file. Nothing is caught here: the start-up
// block of KemptApp tells it.
//
// A command that fails with an exception (other than inside a file's job,
// which tells its own failures) ends the session: the exception is kept,
// the event loop is left, and KemptApp tells it in the same block.
#ifndef GUI_KEMPTDLG_H
#define GUI_KEMPTDLG_H

#include "App_BatchFeedback.h"
#include "App_MessageSink.h"
#include "App_Settings.h"
#include "Gui_BusyGuard.h"
#include "Gui_FileProgressDlg.h"
#include "Gui_HelpWindow.h"
#include "Gui_Pickers.h"
#include "KemptUI_PropertySetStore.h"
#include "Kempt_PropertySet.h"

#include <QMainWindow>
#include <QPointer>

#include <exception>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class QAction;
class QLabel;
class QPlainTextEdit;
class QProgressBar;

namespace Gui {

class Indicator;
class KemptDlg;

// The job's messages into the window's queue and pane.
class PaneSink : public App::MessageSink {
public:
    explicit PaneSink(KemptDlg& window) : m_window(window) {}
    void alert(const std::string& text) override;

protected:
    void deliver(const std::string& text, int severity) override;

private:
    KemptDlg& m_window;
};

class KemptDlg : public QMainWindow, public App::BatchFeedback, private BusyState {
    Q_OBJECT
public:
    static constexpr const char* READY_TEXT = "Ready to format!";

    // `pickers`: where the commands get their paths; null: Qt's file dialogs.
    explicit KemptDlg(std::unique_ptr<Pickers> pickers = nullptr, QWidget* parent = nullptr);
    ~KemptDlg() override;

    // The session's state.
    bool busy() const { return m_busy; }
    const std::optional<Kempt::PropertySet>& scheme() const { return m_scheme; }
    const App::Settings& settings() const { return m_settings; }
    const KemptUI::PropertySetStore& store() const { return m_store; }
    const std::vector<std::string>& extensions() const { return m_extensions; }
    const std::string& settingsPath() const { return m_settingsPath; }
    // The failure that ended a command, for KemptApp to tell; null when none.
    std::exception_ptr failure() const { return m_failure; }

    // The widgets, for tests and screenshots.
    QPlainTextEdit* pane() const { return m_pane; }
    QString statusText() const;
    QProgressBar* filesBar() const { return m_bar; }
    Indicator* idleIndicator() const { return m_idle; }
    Indicator* busyIndicator() const { return m_busyLamp; }
    FileProgressDlg* progressDialog() const { return m_progress; }
    HelpWindow* helpWindow() const { return m_help; }

    // The pane brought up to date with the queue: the new lines appended at
    // its end, scrolled to them and painted at once.
    void updatePane();

    // App::BatchFeedback
    void clearMessages() override;
    bool confirm(const std::string& question) override;
    void alert(const std::string& text) override;
    void beginBatch() override;
    void setStatus(const std::string& text) override;
    void setRange(int total) override;
    void step() override;
    bool cancelled() override;
    App::FileProgress* fileProgress() override;
    void endBatch(const std::string& directory) override;

public slots:
    void formatFileCommand();
    void formatProjectCommand();
    void formatWorkspaceCommand();
    void formatTreeCommand();
    void exitCommand();
    void copyCommand();
    void clearCommand();
    void optionsCommand();
    void contentsCommand();
    void aboutCommand();
    // Opens the help window at a topic ("Options").
    void showHelpTopic(const QString& topic);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    friend class PaneSink;

    void openSession();
    void applySettings();
    void buildMenu();
    void buildStatusBar();
    void restoreWindowRect();
    void storeWindowRect();
    void saveSettings();
    HelpWindow& help();

    // BusyState
    bool isBusy() const override { return m_busy; }
    void setBusyFlag(bool busy) override { m_busy = busy; }
    void enterReadyState() override;
    void enterBusyState();

    // Runs a command: nothing while busy; the busy guard around it; an
    // exception ends the session (see above).
    template <typename Command> void runCommand(Command command);
    // The check that a scheme is selected, with its box.
    bool schemeSelected();
    // One batch command through the file collection.
    template <typename Run> void runBatch(bool withProgress, Run run);
    void closeProgress();

    std::unique_ptr<Pickers> m_pickers;
    KemptUI::PropertySetStore m_store;
    std::optional<Kempt::PropertySet> m_scheme;
    App::Settings m_settings;
    std::string m_settingsPath;
    std::vector<std::string> m_extensions;
    PaneSink m_sink;
    std::size_t m_shown = 0; // queue entries already in the pane
    bool m_busy = false;
    bool m_withProgress = false;
    std::exception_ptr m_failure;

    QPlainTextEdit* m_pane = nullptr;
    QLabel* m_status = nullptr;
    QProgressBar* m_bar = nullptr;
    Indicator* m_idle = nullptr;
    Indicator* m_busyLamp = nullptr;
    QPointer<FileProgressDlg> m_progress;
    QPointer<HelpWindow> m_help;
};

} // namespace Gui

#endif
