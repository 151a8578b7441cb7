// The main window: session, menu, pane, status bar and the batch commands.
#include "Gui_KemptDlg.h"

#include "App_FileCollection.h"
#include "App_FileJob.h"
#include "App_JobTarget.h"
#include "App_ProgramFiles.h"
#include "App_SchemeStore.h"
#include "App_UserMessages.h"
#include "Gui_AboutDlg.h"
#include "Gui_FileProgressDlg.h"
#include "Gui_HelpWindow.h"
#include "Gui_Indicator.h"
#include "Gui_OptionsDlg.h"
#include "Gui_StateIcons.h"
#include "KemptUI_SchemeConversion.h"
#include "KemptUI_UserTexts.h"

#include <QAction>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QFontDatabase>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QStatusBar>

#include <stdexcept>

namespace Gui {

namespace {

constexpr int LAMP_SIZE = 12;

QString product()
{
    return KemptUI::PRODUCT_NAME;
}

std::string fill(const std::string& text, std::initializer_list<std::string_view> arguments)
{
    return KemptUI::fillTemplate(text, arguments);
}

} // namespace

void PaneSink::deliver(const std::string& text, int severity)
{
    App::MessageSink::deliver(text, severity);
    m_window.updatePane();
}

void PaneSink::alert(const std::string& text)
{
    QMessageBox::critical(&m_window, product(), QString::fromStdString(text));
}

KemptDlg::KemptDlg(std::unique_ptr<Pickers> pickers, QWidget* parent)
    : QMainWindow(parent),
      m_pickers(pickers ? std::move(pickers) : std::make_unique<DialogPickers>()),
      m_store(App::schemeDirectory(std::string())),
      m_sink(*this)
{
    setObjectName("KemptDlg");
    openSession();

    // The window.
    setWindowTitle(product());
    setWindowIcon(applicationIcon());
    resize(760, 440);
    restoreWindowRect();

    m_pane = new QPlainTextEdit(this);
    m_pane->setObjectName("messages");
    m_pane->setReadOnly(true);
    // Long lines (a parse failure names the file twice) wrap at the pane's edge.
    m_pane->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    m_pane->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_pane->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setCentralWidget(m_pane);

    buildMenu();
    buildStatusBar();
    enterReadyState();
    updatePane();
}

KemptDlg::~KemptDlg()
{
    delete m_progress.data();
    delete m_help.data();
}

void KemptDlg::openSession()
{
    // The scheme store: the built-in schemes installed, then read (a corrupt
    // scheme file throws ReadError to the start-up block), then old schemes
    // converted.
    if (m_store.path().empty())
        throw std::runtime_error("No scheme directory is known: set HOME or "
                                 + std::string(App::SCHEME_DIR_VARIABLE) + ".");
    std::string error;
    if (!App::installBuiltInSchemes(App::builtInSchemeDirectory(), m_store.path(), App::programVersion(), error))
        throw std::runtime_error(error);
    m_store.read();
    if (const std::string notice = KemptUI::convertSchemes(m_store); !notice.empty())
        QMessageBox::warning(nullptr, product(), QString::fromStdString(notice));

    // The settings.
    m_settingsPath = App::settingsFilePath();
    if (!App::loadSettings(m_settingsPath, m_settings, error))
        QMessageBox::warning(nullptr, product(),
                             QString::fromStdString(fill(App::userMessages().settingsReadFailed, {m_settingsPath})));
    if (const auto entry = m_store.find(m_settings.standaloneOnFormat);
        !m_settings.standaloneOnFormat.empty() && entry != m_store.end())
        m_scheme = entry->second.set;
    applySettings();
}

void KemptDlg::applySettings()
{
    m_extensions = m_settings.extensionList();
    m_sink.setThreshold(m_settings.messagesThreshold);
}

void KemptDlg::buildMenu()
{
    const App::UserMessages& texts = App::userMessages();
    auto add = [this](QMenu* menu, const char* name, const QString& text, const std::string& tip, auto slot) {
        QAction* action = menu->addAction(text);
        action->setObjectName(name);
        action->setStatusTip(QString::fromStdString(tip));
        connect(action, &QAction::triggered, this, slot);
        return action;
    };
    QMenu* format = menuBar()->addMenu("&Format");
    format->setObjectName("formatMenu");
    add(format, "actionFile", "&File...", texts.statusFileCommand, &KemptDlg::formatFileCommand);
    add(format, "actionProject", "P&roject...", texts.statusProjectCommand, &KemptDlg::formatProjectCommand);
    add(format, "actionWorkspace", "&Workspace...", texts.statusWorkspaceCommand, &KemptDlg::formatWorkspaceCommand);
    add(format, "actionDirectoryTree", "&Directory Tree...", texts.statusTreeCommand, &KemptDlg::formatTreeCommand);
    format->addSeparator();
    add(format, "actionExit", "E&xit", "Exit the application", &KemptDlg::exitCommand);

    QMenu* edit = menuBar()->addMenu("&Edit");
    edit->setObjectName("editMenu");
    add(edit, "actionCopy", "&Copy", "Copies the current selection to the clipboard", &KemptDlg::copyCommand);
    add(edit, "actionClear", "C&lear", "Clears all messages from the window", &KemptDlg::clearCommand);

    QMenu* tools = menuBar()->addMenu("&Tools");
    tools->setObjectName("toolsMenu");
    add(tools, "actionOptions", "&Options...", "Display the Options dialog", &KemptDlg::optionsCommand);

    QMenu* helpMenu = menuBar()->addMenu("&Help");
    helpMenu->setObjectName("helpMenu");
    QAction* contents = add(helpMenu, "actionContents", "&Contents", "Displays the Index to the online documentation",
                            &KemptDlg::contentsCommand);
    contents->setShortcut(QKeySequence::HelpContents);
    add(helpMenu, "actionAbout", "&About...", "Displays the program information and copyright",
        &KemptDlg::aboutCommand);
    // Help without documentation would show nothing.
    contents->setEnabled(!App::helpFilePath().empty());
}

void KemptDlg::buildStatusBar()
{
    QStatusBar* bar = statusBar();
    m_status = new QLabel(this);
    m_status->setObjectName("statusText");
    m_status->setMinimumWidth(120);
    bar->addWidget(m_status, 1);
    m_bar = new QProgressBar(this);
    m_bar->setObjectName("filesBar");
    m_bar->setFormat("%v / %m");
    m_bar->setMaximumWidth(220);
    m_bar->setToolTip("progress");
    bar->addPermanentWidget(m_bar);
    m_idle = new Indicator("Idle", idleLamp(true, LAMP_SIZE), idleLamp(false, LAMP_SIZE), this);
    m_idle->setObjectName("idleIndicator");
    bar->addPermanentWidget(m_idle);
    m_busyLamp = new Indicator("Busy", busyLamp(true, LAMP_SIZE), busyLamp(false, LAMP_SIZE), this);
    m_busyLamp->setObjectName("busyIndicator");
    bar->addPermanentWidget(m_busyLamp);
}

void KemptDlg::restoreWindowRect()
{
    const App::WindowRect& rect = m_settings.standaloneWindowPos;
    if (!rect.isSet())
        return;
    const int width = rect.right - rect.left;
    const int height = rect.bottom - rect.top;
    if (width > 0 && height > 0)
        setGeometry(rect.left, rect.top, width, height);
}

void KemptDlg::storeWindowRect()
{
    const QRect rect = geometry();
    m_settings.standaloneWindowPos = {rect.left(), rect.top(), rect.left() + rect.width(), rect.top() + rect.height()};
}

void KemptDlg::saveSettings()
{
    // A settings file that could not be read is not overwritten (its box was shown at start).
    if (m_settings.saveDisabled)
        return;
    std::string error;
    if (!App::saveSettings(m_settingsPath, m_settings, error))
        QMessageBox::warning(this, product(),
                             QString::fromStdString(fill(App::userMessages().settingsSaveFailed, {m_settingsPath})));
}

QString KemptDlg::statusText() const
{
    return m_status->text();
}

void KemptDlg::enterReadyState()
{
    m_status->setText(READY_TEXT);
    m_bar->hide();
    m_idle->setLit(true);
    m_busyLamp->setLit(false);
}

void KemptDlg::enterBusyState()
{
    m_idle->setLit(false);
    m_busyLamp->setLit(true);
    m_bar->setRange(0, 1);
    m_bar->setValue(0);
    m_bar->show();
    statusBar()->repaint();
}

void KemptDlg::updatePane()
{
    const std::vector<std::string>& queue = m_sink.queue();
    if (m_shown > queue.size())
        m_shown = 0;
    if (m_shown == queue.size())
        return;
    QString text;
    for (; m_shown < queue.size(); ++m_shown)
        text += QString::fromStdString(queue[m_shown]);
    text.replace("\r\n", "\n");
    m_pane->moveCursor(QTextCursor::End);
    m_pane->insertPlainText(text);
    m_pane->moveCursor(QTextCursor::End);
    m_pane->ensureCursorVisible();
    m_pane->viewport()->repaint();
}

// --- The commands -----------------------------------------------------------

template <typename Command> void KemptDlg::runCommand(Command command)
{
    if (m_busy)
        return;
    BusyGuard guard(*this);
    try {
        command();
    } catch (...) {
        // Told by KemptApp's start-up block, which the event loop returns to.
        m_failure = std::current_exception();
        closeProgress();
        QCoreApplication::exit(0);
    }
}

bool KemptDlg::schemeSelected()
{
    if (m_scheme)
        return true;
    QMessageBox::warning(this, product(), QString::fromStdString(App::userMessages().noSchemeSelected));
    return false;
}

template <typename Run> void KemptDlg::runBatch(bool withProgress, Run run)
{
    m_withProgress = withProgress;
    App::JobOptions options;
    options.createBackups = m_settings.createBackups;
    options.backupExtension =
        m_settings.backupExtension.empty() ? std::string(App::DEFAULT_BACKUP_EXTENSION) : m_settings.backupExtension;
    App::FileJob job(m_sink, options);
    App::JobTarget target(job, m_sink, *m_scheme, *this);
    App::CollectionSetup setup;
    setup.extensions = m_extensions;
    setup.schemeName = m_scheme->name();
    App::FileCollection commands(target, *this, setup);
    run(commands);
    closeProgress();
}

void KemptDlg::formatFileCommand()
{
    runCommand([this] {
        if (!schemeSelected())
            return;
        std::string patterns;
        for (const std::string& extension : m_extensions)
            patterns += (patterns.empty() ? "*." : ";*.") + extension;
        const QString filter =
            qtFilter(App::userMessages().sourceFilesFilter + patterns + "||") + ";;All Files (*)";
        const std::string path = m_pickers->openFile(this, m_settings.standaloneLastDirectory, filter);
        if (path.empty())
            return;
        runBatch(false, [&](App::FileCollection& commands) { commands.formatFile(path); });
    });
}

void KemptDlg::formatProjectCommand()
{
    runCommand([this] {
        if (!schemeSelected())
            return;
        const QString filter = qtFilter(App::userMessages().projectFilesFilter)
                               + ";;MSBuild Project Files (*.vcxproj);;Visual Studio Solution Files (*.sln)"
                                 ";;Compilation Databases (compile_commands.json)";
        const std::string path = m_pickers->openFile(this, m_settings.standaloneLastDirectory, filter);
        if (path.empty())
            return;
        runBatch(true, [&](App::FileCollection& commands) { commands.formatProjectOrWorkspace(path); });
    });
}

void KemptDlg::formatWorkspaceCommand()
{
    runCommand([this] {
        if (!schemeSelected())
            return;
        const QString filter =
            qtFilter(App::userMessages().workspaceFilesFilter) + ";;Visual Studio Solution Files (*.sln)";
        const std::string path = m_pickers->openFile(this, m_settings.standaloneLastDirectory, filter);
        if (path.empty())
            return;
        runBatch(true, [&](App::FileCollection& commands) { commands.formatWorkspace(path); });
    });
}

void KemptDlg::formatTreeCommand()
{
    runCommand([this] {
        if (!schemeSelected())
            return;
        const std::string root =
            m_pickers->folder(this, m_settings.standaloneLastDirectory, App::userMessages().selectFolderTitle);
        if (root.empty())
            return;
        runBatch(true, [&](App::FileCollection& commands) { commands.formatFolderTree(root); });
    });
}

void KemptDlg::exitCommand()
{
    close(); // refused while busy: see closeEvent
}

void KemptDlg::closeEvent(QCloseEvent* event)
{
    if (m_busy) {
        event->ignore();
        return;
    }
    storeWindowRect();
    saveSettings();
    if (m_help)
        m_help->close();
    event->accept();
}

void KemptDlg::copyCommand()
{
    m_pane->copy();
}

void KemptDlg::clearCommand()
{
    if (m_busy)
        return;
    clearMessages();
}

void KemptDlg::optionsCommand()
{
    runCommand([this] {
        OptionsFields fields;
        fields.scheme = m_scheme ? m_scheme->name() : std::string();
        fields.fileExtensions = m_settings.fileExtensions;
        fields.createBackups = m_settings.createBackups;
        fields.backupExtension = m_settings.backupExtension;
        fields.messagesThreshold = m_settings.messagesThreshold;
        OptionsDlg dialog(m_store, fields, this);
        dialog.setHelpHandler([this](const QString& topic) { showHelpTopic(topic); });
        if (dialog.exec() != QDialog::Accepted)
            return;
        // The store first: a scheme that cannot be written ends the session.
        m_store = dialog.store();
        m_store.write();
        const OptionsFields& chosen = dialog.fields();
        m_scheme.reset();
        if (const auto entry = m_store.find(chosen.scheme); !chosen.scheme.empty() && entry != m_store.end())
            m_scheme = entry->second.set;
        m_settings.standaloneOnFormat = m_scheme ? chosen.scheme : std::string();
        m_settings.fileExtensions = chosen.fileExtensions;
        m_settings.createBackups = chosen.createBackups;
        m_settings.backupExtension = chosen.backupExtension;
        m_settings.messagesThreshold = chosen.messagesThreshold;
        applySettings();
        storeWindowRect();
        saveSettings();
    });
}

HelpWindow& KemptDlg::help()
{
    if (!m_help)
        m_help = new HelpWindow(QString::fromStdString(App::helpFilePath()));
    return *m_help;
}

void KemptDlg::contentsCommand()
{
    help().showContents();
    m_help->show();
    m_help->raise();
    m_help->activateWindow();
}

void KemptDlg::showHelpTopic(const QString& topic)
{
    help().showTopic(topic);
    m_help->show();
    m_help->raise();
    m_help->activateWindow();
}

void KemptDlg::aboutCommand()
{
    AboutDlg dialog(this);
    dialog.exec();
}

// --- The feedback of a batch -----------------------------------------------

void KemptDlg::clearMessages()
{
    m_sink.clear();
    m_shown = 0;
    m_pane->clear();
}

bool KemptDlg::confirm(const std::string& question)
{
    return QMessageBox::question(this, product(), QString::fromStdString(question),
                                 QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes)
           == QMessageBox::Yes;
}

void KemptDlg::alert(const std::string& text)
{
    QMessageBox::warning(this, product(), QString::fromStdString(text));
}

void KemptDlg::beginBatch()
{
    enterBusyState();
    if (m_withProgress && !m_progress) {
        m_progress = new FileProgressDlg(this);
        m_progress->show();
        m_progress->raise();
        QCoreApplication::processEvents();
    }
}

void KemptDlg::setStatus(const std::string& text)
{
    m_status->setText(QString::fromStdString(text));
    m_status->repaint();
}

void KemptDlg::setRange(int total)
{
    // A batch without files still shows an empty bar, not a busy one.
    m_bar->setRange(0, total > 0 ? total : 1);
    m_bar->setValue(0);
}

void KemptDlg::step()
{
    if (m_bar->value() < m_bar->maximum())
        m_bar->setValue(m_bar->value() + 1);
}

bool KemptDlg::cancelled()
{
    QCoreApplication::processEvents();
    return m_progress && m_progress->isCancelled();
}

App::FileProgress* KemptDlg::fileProgress()
{
    return m_progress.data();
}

void KemptDlg::endBatch(const std::string& directory)
{
    if (!directory.empty())
        m_settings.standaloneLastDirectory = directory;
    closeProgress();
}

void KemptDlg::closeProgress()
{
    if (m_progress) {
        m_progress->hide();
        m_progress->deleteLater();
        m_progress = nullptr;
    }
}

} // namespace Gui
