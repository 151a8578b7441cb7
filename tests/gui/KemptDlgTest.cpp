// The desktop application driven through its widgets: menu actions, buttons,
// typed text, with message boxes and dialogs answered by a robot.
#include "GuiTestSupport.h"

#include "App_UserMessages.h"
#include "Gui_AboutDlg.h"
#include "Gui_FileProgressDlg.h"
#include "Gui_HelpWindow.h"
#include "Gui_HyperLink.h"
#include "Gui_Indicator.h"
#include "Gui_KemptApp.h"
#include "Gui_KemptDlg.h"
#include "Gui_OptionsDlg.h"
#include "KemptUI_UserTexts.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFontInfo>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QStatusBar>
#include <QTextBlock>
#include <QTest>
#include <QTextBrowser>

#include <memory>

using namespace GuiTest;

namespace {

const QByteArray UNFORMATTED = "int main(){return 0;}\n";

QByteArray readAll(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QAction* action(QWidget* window, const char* name)
{
    auto* found = window->findChild<QAction*>(name);
    if (!found)
        qFatal("no action %s", name);
    return found;
}

// Records every main window that is shown.
class ShowSpy : public QObject {
public:
    int shown = 0;
    bool eventFilter(QObject* object, QEvent* event) override
    {
        if (event->type() == QEvent::Show && qobject_cast<Gui::KemptDlg*>(object))
            ++shown;
        return false;
    }
};

// Receives the links that the About box opens.
class LinkCatcher : public QObject {
    Q_OBJECT
public:
    QList<QUrl> urls;
public slots:
    void open(const QUrl& url) { urls.append(url); }
};

} // namespace

class KemptDlgTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TestHome> m_home;
    FakePickers::State m_pick;

    // The main window of a fresh session, with a scheme chosen unless `scheme` is empty.
    std::unique_ptr<Gui::KemptDlg> window(const QString& scheme = "default", QStringList settings = {})
    {
        if (!scheme.isEmpty())
            settings << "StandaloneOnFormat=" + scheme;
        m_home->writeSettings(settings);
        auto dlg = std::make_unique<Gui::KemptDlg>(std::make_unique<FakePickers>(m_pick));
        dlg->show();
        return dlg;
    }

    // A tree: two sources to format, a text file, and a read-only source.
    QString makeTree()
    {
        m_home->writeFile("tree/a.cpp", UNFORMATTED);
        m_home->writeFile("tree/sub/b.h", "struct B{int x;};\n");
        m_home->writeFile("tree/notes.txt", "not C++\n");
        const QString locked = m_home->writeFile("tree/locked.cpp", UNFORMATTED);
        QFile::setPermissions(locked, QFileDevice::ReadOwner | QFileDevice::ReadGroup | QFileDevice::ReadOther);
        return m_home->path() + "/tree";
    }

private slots:
    void init()
    {
        m_home = std::make_unique<TestHome>();
        m_pick = {};
    }
    void cleanup()
    {
        const QString locked = m_home->path() + "/tree/locked.cpp";
        QFile::setPermissions(locked, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
        m_home.reset();
    }

    // The platform the run asked for is the one in use (offscreen, or xcb under Xvfb).
    void runsOnTheRequestedPlatform()
    {
        QCOMPARE(QGuiApplication::platformName(), qEnvironmentVariable("QT_QPA_PLATFORM"));
    }

    void menuTextsAcceleratorsAndStatusTips()
    {
        auto dlg = window();
        QCOMPARE(dlg->windowTitle(), QString("Tidewright C++"));
        QStringList titles;
        for (QAction* column : dlg->menuBar()->actions())
            titles << column->text();
        QCOMPARE(titles, QStringList({"&Format", "&Edit", "&Tools", "&Help"}));
        const QList<QPair<const char*, QPair<QString, QString>>> items = {
            {"actionFile", {"&File...", "Format a single file"}},
            {"actionProject", {"P&roject...", "Format all C/C++ files in a Developer Studio project"}},
            {"actionWorkspace", {"&Workspace...", "Format all C/C++ files in a Developer Studio workspace"}},
            {"actionDirectoryTree", {"&Directory Tree...", "Format all C/C++ files beneath a directory."}},
            {"actionExit", {"E&xit", "Exit the application"}},
            {"actionCopy", {"&Copy", "Copies the current selection to the clipboard"}},
            {"actionClear", {"C&lear", "Clears all messages from the window"}},
            {"actionOptions", {"&Options...", "Display the Options dialog"}},
            {"actionContents", {"&Contents", "Displays the Index to the online documentation"}},
            {"actionAbout", {"&About...", "Displays the program information and copyright"}},
        };
        for (const auto& [name, texts] : items) {
            QCOMPARE(action(dlg.get(), name)->text(), texts.first);
            QCOMPARE(action(dlg.get(), name)->statusTip(), texts.second);
        }
        // The Format column: four commands, a separator, Exit.
        auto* format = dlg->findChild<QMenu*>("formatMenu");
        QCOMPARE(format->actions().size(), 6);
        QVERIFY(format->actions()[4]->isSeparator());
        // Hovering an item of the open menu shows its status tip.
        auto* tools = dlg->findChild<QMenu*>("toolsMenu");
        dlg->menuBar()->setActiveAction(tools->menuAction());
        QVERIFY(QTest::qWaitForWindowExposed(tools));
        QAction* options = action(dlg.get(), "actionOptions");
        QTest::mouseMove(tools, tools->actionGeometry(options).center());
        QTRY_COMPARE(dlg->statusBar()->currentMessage(), QString("Display the Options dialog"));
        tools->hide();
    }

    void theAcceleratorsOpenTheCommands()
    {
        auto dlg = window();
        dlg->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(dlg.get()));
        ModalRobot robot;
        QString opened;
        robot.handleDialog([&](QWidget* modal) {
            opened = modal->windowTitle();
            QMetaObject::invokeMethod(modal, "reject", Qt::QueuedConnection);
        });
        // Alt+T opens Tools, O its "&Options...".
        QTest::keyClick(dlg.get(), Qt::Key_T, Qt::AltModifier);
        auto* tools = dlg->findChild<QMenu*>("toolsMenu");
        QTRY_VERIFY(tools->isVisible());
        QTest::keyClick(tools, Qt::Key_O);
        QTRY_COMPARE(opened, QString("Options"));
    }

    void pickerFiltersInQtForm()
    {
        QCOMPARE(Gui::qtFilter("C++ Source Files|*.c;*.cpp||"), QString("C++ Source Files (*.c *.cpp)"));
        QCOMPARE(Gui::qtFilter("MS Visual Studio Project Files (*.dsp)|*.dsp||"),
                 QString("MS Visual Studio Project Files (*.dsp)"));
        QCOMPARE(Gui::qtFilter("A|*.a|B|*.b||"), QString("A (*.a);;B (*.b)"));
    }

    void paneIsReadOnlyFixedPitchAndReadyStateShows()
    {
        auto dlg = window();
        QVERIFY(dlg->pane()->isReadOnly());
        QVERIFY(QFontInfo(dlg->pane()->font()).fixedPitch());
        QCOMPARE(dlg->statusText(), QString("Ready to format!"));
        QVERIFY(!dlg->filesBar()->isVisible());
        QCOMPARE(dlg->idleIndicator()->text(), QString("Idle"));
        QCOMPARE(dlg->busyIndicator()->text(), QString("Busy"));
        QVERIFY(dlg->idleIndicator()->isLit());
        QVERIFY(!dlg->busyIndicator()->isLit());
        // Typing into the pane changes nothing.
        QTest::keyClicks(dlg->pane(), "typed");
        QCOMPARE(dlg->pane()->toPlainText(), QString());
    }

    void brokenSchemeFileShowsTheReadErrorAndNoWindow()
    {
        QDir().mkpath(m_home->schemeDirectory());
        const QString broken = m_home->writeFile("schemes/broken.tws", "not a scheme\n");
        ShowSpy spy;
        qApp->installEventFilter(&spy);
        ModalRobot robot;
        QCOMPARE(Gui::KemptApp::startUp(false), 0);
        qApp->removeEventFilter(&spy);
        QCOMPARE(robot.boxes().size(), std::size_t(1));
        QCOMPARE(robot.boxes()[0].text, QString::fromStdString(KemptUI::readErrorText(broken.toStdString())));
        QCOMPARE(robot.boxes()[0].icon, QMessageBox::Warning);
        QCOMPARE(spy.shown, 0);
    }

    void startUpWithoutProblemsShowsNoBox()
    {
        ShowSpy spy;
        qApp->installEventFilter(&spy);
        ModalRobot robot;
        QCOMPARE(Gui::KemptApp::startUp(false), 0);
        qApp->removeEventFilter(&spy);
        QCOMPARE(robot.boxes().size(), std::size_t(0));
        QCOMPARE(spy.shown, 1);
    }

    void anUnreadableSettingsFileIsToldAndNotOverwritten()
    {
        // A directory where the file should be: it exists but cannot be read.
        QDir().mkpath(m_home->settingsFile());
        ModalRobot robot;
        auto dlg = std::make_unique<Gui::KemptDlg>(std::make_unique<FakePickers>(m_pick));
        QCOMPARE(robot.boxes().size(), std::size_t(1));
        QVERIFY2(robot.boxes()[0].text.startsWith("Failed to read the settings file \"" + m_home->settingsFile()),
                 qPrintable(robot.boxes()[0].text));
        QCOMPARE(robot.boxes()[0].icon, QMessageBox::Warning);
        // The defaults stand: no scheme yet, the usual extensions.
        QVERIFY(!dlg->scheme().has_value());
        QCOMPARE(dlg->extensions().size(), std::size_t(8));
        dlg->show();
        QVERIFY(dlg->close());
        QVERIFY(QFileInfo(m_home->settingsFile()).isDir());
        QCOMPARE(robot.boxes().size(), std::size_t(1));
    }

    void windowPositionOfZerosKeepsTheDefaultPlace()
    {
        auto plain = window("default");
        const QSize defaultSize = plain->size();
        plain.reset();
        auto zeros = window("default", {"StandaloneWindowPos=0 0 0 0"});
        QCOMPARE(zeros->size(), defaultSize);
        zeros.reset();
        auto placed = window("default", {"StandaloneWindowPos=40 50 640 450"});
        QCOMPARE(placed->geometry(), QRect(40, 50, 600, 400));
    }

    void exitSavesTheSettingsWithTheWindowPosition()
    {
        auto dlg = window("K&R");
        dlg->setGeometry(30, 40, 700, 380);
        action(dlg.get(), "actionExit")->trigger();
        QVERIFY(!dlg->isVisible());
        const QString saved = m_home->readSettings();
        QVERIFY2(saved.contains("StandaloneWindowPos=30 40 730 420"), qPrintable(saved));
        QVERIFY2(saved.contains("StandaloneOnFormat=K&R"), qPrintable(saved));
    }

    void closingTheWindowSavesToo()
    {
        auto dlg = window();
        dlg->setGeometry(10, 20, 500, 300);
        QVERIFY(dlg->close());
        QVERIFY(m_home->readSettings().contains("StandaloneWindowPos=10 20 510 320"));
    }

    void folderTreeThroughTheMenu()
    {
        const QString root = makeTree();
        auto dlg = window();
        m_pick.folders = {root.toStdString()};
        ModalRobot robot;
        robot.answer(QMessageBox::Yes);
        action(dlg.get(), "actionDirectoryTree")->trigger();

        QCOMPARE(m_pick.lastTitle, std::string("Select folder for formatting..."));
        QCOMPARE(robot.boxes().size(), std::size_t(1));
        QCOMPARE(robot.boxes()[0].text,
                 "You have chosen to format all C/C++ files under the directory tree \"" + root
                     + "\". Are you sure you wish to continue?");
        QCOMPARE(robot.boxes()[0].buttons, QMessageBox::Yes | QMessageBox::No);
        const QStringList shown = lines(dlg->pane()->toPlainText());
        QCOMPARE(shown.value(0),
                 "Formatting files under directory \"" + root + "\" using scheme \"default\".");
        QVERIFY2(shown.contains("Formatting \"" + root + "/a.cpp\"."), qPrintable(shown.join('\n')));
        QVERIFY(shown.contains("Formatting \"" + root + "/sub/b.h\"."));
        // The read-only file is passed over without a word, the text file too.
        QVERIFY(!dlg->pane()->toPlainText().contains("locked.cpp"));
        QVERIFY(!dlg->pane()->toPlainText().contains("notes.txt"));
        QCOMPARE(shown.back(), QString("Finished formatting directory tree."));
        QVERIFY(readAll(root + "/a.cpp") != UNFORMATTED);
        QCOMPARE(readAll(root + "/a.cpp.bak"), UNFORMATTED);
        QCOMPARE(readAll(root + "/locked.cpp"), UNFORMATTED);
        // Back in the ready state; the folder is remembered.
        QCOMPARE(dlg->statusText(), QString("Ready to format!"));
        QVERIFY(dlg->idleIndicator()->isLit());
        QVERIFY(!dlg->busy());
        QCOMPARE(dlg->settings().standaloneLastDirectory, root.toStdString());
        // The pane ends scrolled to its last line.
        QCOMPARE(dlg->pane()->textCursor().position(), dlg->pane()->document()->characterCount() - 1);
    }

    void aSecondClickDuringABatchDoesNothing()
    {
        const QString root = makeTree();
        auto dlg = window();
        m_pick.folders = {root.toStdString(), root.toStdString()};
        ModalRobot robot;
        robot.answer(QMessageBox::Yes);
        bool triedDuringBatch = false;
        bool busyShown = false;
        bool closeRefused = false;
        robot.whileIdle([&] {
            if (triedDuringBatch || !dlg->progressDialog() || !dlg->progressDialog()->isVisible())
                return;
            triedDuringBatch = true;
            busyShown = dlg->busyIndicator()->isLit() && !dlg->idleIndicator()->isLit()
                        && dlg->filesBar()->isVisible();
            action(dlg.get(), "actionDirectoryTree")->trigger();
            action(dlg.get(), "actionFile")->trigger();
            action(dlg.get(), "actionOptions")->trigger();
            action(dlg.get(), "actionExit")->trigger();
            closeRefused = dlg->isVisible();
        });
        action(dlg.get(), "actionDirectoryTree")->trigger();
        QVERIFY(triedDuringBatch);
        QVERIFY(busyShown);
        QVERIFY(closeRefused);
        QCOMPARE(m_pick.folderQuestions, 1);
        QCOMPARE(m_pick.fileQuestions, 0);
        QCOMPARE(robot.boxes().size(), std::size_t(1)); // the one question of the first command
        QCOMPARE(robot.dialogsHandled(), 0);            // no Options dialog
        QCOMPARE(lines(dlg->pane()->toPlainText()).back(), QString("Finished formatting directory tree."));
        QVERIFY(dlg->isVisible());
    }

    void cancelDuringTheCountingWalkFormatsNothing()
    {
        const QString root = makeTree();
        auto dlg = window();
        m_pick.folders = {root.toStdString()};
        ModalRobot robot;
        robot.answer(QMessageBox::Yes);
        QString statusAtCancel;
        robot.whileIdle([&] {
            Gui::FileProgressDlg* progress = dlg->progressDialog();
            if (progress && !progress->isCancelled() && dlg->statusText().startsWith("Adding ")) {
                statusAtCancel = dlg->statusText();
                QTest::mouseClick(progress->cancelButton(), Qt::LeftButton);
            }
        });
        action(dlg.get(), "actionDirectoryTree")->trigger();
        QVERIFY(statusAtCancel.startsWith("Adding " + root));
        const QStringList shown = lines(dlg->pane()->toPlainText());
        QCOMPARE(shown.size(), 2);
        QCOMPARE(shown.back(), QString("Format operation cancelled at user's request."));
        QCOMPARE(readAll(root + "/a.cpp"), UNFORMATTED);
        QVERIFY(!QFile::exists(root + "/a.cpp.bak"));
        QVERIFY(!QFile::exists(root + "/sub/b.h.bak"));
        QCOMPARE(dlg->statusText(), QString("Ready to format!"));
    }

    void cancelDuringARunLeavesFileAndBackupUntouched()
    {
        const QString root = makeTree();
        m_home->writeFile("tree/a.cpp.bak", "old backup\n");
        auto dlg = window();
        m_pick.folders = {root.toStdString()};
        ModalRobot robot;
        robot.answer(QMessageBox::Yes);
        // Cancel once the pipeline runs on the first file.
        robot.whileIdle([&] {
            Gui::FileProgressDlg* progress = dlg->progressDialog();
            if (progress && !progress->isCancelled()
                && (progress->statusText().startsWith("Analyzing file")
                    || progress->statusText().startsWith("Formatting file")))
                progress->cancelButton()->click();
        });
        // The pipeline's texts pump events themselves: the robot's timer gets its turn there.
        action(dlg.get(), "actionDirectoryTree")->trigger();
        QCOMPARE(lines(dlg->pane()->toPlainText()).back(), QString("Format operation cancelled at user's request."));
        QCOMPARE(readAll(root + "/a.cpp"), UNFORMATTED);
        QCOMPARE(readAll(root + "/a.cpp.bak"), QByteArray("old backup\n"));
        QCOMPARE(readAll(root + "/sub/b.h"), QByteArray("struct B{int x;};\n"));
    }

    void declinedTreeFormatsNothing()
    {
        const QString root = makeTree();
        auto dlg = window();
        m_pick.folders = {root.toStdString()};
        ModalRobot robot;
        robot.answer(QMessageBox::No);
        action(dlg.get(), "actionDirectoryTree")->trigger();
        QCOMPARE(robot.boxes().size(), std::size_t(1));
        QCOMPARE(readAll(root + "/a.cpp"), UNFORMATTED);
        QCOMPARE(dlg->pane()->toPlainText(), QString());
    }

    void noFormattingInOptionsStopsTheNextCommand()
    {
        auto dlg = window();
        ModalRobot robot;
        robot.handleDialog([](QWidget* modal) {
            auto* options = qobject_cast<Gui::OptionsDlg*>(modal);
            QVERIFY(options);
            auto* scheme = options->findChild<QComboBox*>("scheme");
            QCOMPARE(scheme->currentText(), QString("default"));
            scheme->setCurrentIndex(0);
            QCOMPARE(scheme->currentText(), QString("<No Formatting>"));
            auto* ok = options->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
            QMetaObject::invokeMethod(ok, "click", Qt::QueuedConnection);
        });
        action(dlg.get(), "actionOptions")->trigger();
        QCOMPARE(robot.dialogsHandled(), 1);
        QVERIFY(!dlg->scheme().has_value());
        QVERIFY(m_home->readSettings().contains("StandaloneOnFormat=\n")
                || !m_home->readSettings().contains("StandaloneOnFormat=default"));

        const QString noScheme = QString::fromStdString(App::userMessages().noSchemeSelected);
        for (const char* command : {"actionFile", "actionProject", "actionWorkspace", "actionDirectoryTree"}) {
            action(dlg.get(), command)->trigger();
            QCOMPARE(robot.boxes().back().text, noScheme);
        }
        QCOMPARE(robot.boxes().size(), std::size_t(4));
        QCOMPARE(m_pick.fileQuestions + m_pick.folderQuestions, 0);
    }

    void optionsShowsItsGroupsAndListsAndTakesTheChoice()
    {
        auto dlg = window("default", {"MessagesThreshold=2", "FileExtensions=cpp;h", "CreateBackups=0"});
        ModalRobot robot;
        QStringList groups;
        QStringList schemes;
        QStringList severities;
        QString severityShown;
        bool manageEnabled = true;
        robot.handleDialog([&](QWidget* modal) {
            QCOMPARE(modal->windowTitle(), QString("Options"));
            for (auto* group : modal->findChildren<QGroupBox*>())
                groups << group->title();
            auto* scheme = modal->findChild<QComboBox*>("scheme");
            for (int i = 0; i < scheme->count(); ++i)
                schemes << scheme->itemText(i);
            auto* severity = modal->findChild<QComboBox*>("severity");
            for (int i = 0; i < severity->count(); ++i)
                severities << severity->itemText(i);
            severityShown = severity->currentText();
            manageEnabled = modal->findChild<QPushButton*>("manageSchemes")->isEnabled();
            QVERIFY(!modal->findChild<QCheckBox*>("createBackups")->isChecked());
            QCOMPARE(modal->findChild<QLineEdit*>("extensions")->text(), QString("cpp;h"));
            // The user picks another scheme, turns backups on and lowers the threshold.
            scheme->setCurrentText("K&R");
            QTest::mouseClick(modal->findChild<QCheckBox*>("createBackups"), Qt::LeftButton);
            severity->setCurrentIndex(0);
            auto* extensions = modal->findChild<QLineEdit*>("extensions");
            extensions->selectAll();
            QTest::keyClicks(extensions, "c, .H;cpp");
            auto* ok = modal->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
            QMetaObject::invokeMethod(ok, "click", Qt::QueuedConnection);
        });
        action(dlg.get(), "actionOptions")->trigger();
        QCOMPARE(groups, QStringList({"Scheme options", "Target options", "Safety options",
                                      "Messages window options"}));
        QCOMPARE(schemes.value(0), QString("<No Formatting>"));
        QVERIFY(schemes.contains("default"));
        QVERIFY(schemes.contains("K&R"));
        QCOMPARE(severities, QStringList({"Never display", "Information or greater", "Warning or greater",
                                          "Error or greater"}));
        QCOMPARE(severityShown, QString("Warning or greater"));
        QVERIFY(!manageEnabled);
        QCOMPARE(dlg->scheme()->name(), std::string("K&R"));
        QCOMPARE(dlg->extensions(), std::vector<std::string>({"c", "H", "cpp"}));
        QVERIFY(dlg->settings().createBackups);
        QCOMPARE(dlg->settings().messagesThreshold, 0);
        const QString saved = m_home->readSettings();
        QVERIFY2(saved.contains("StandaloneOnFormat=K&R"), qPrintable(saved));
        QVERIFY(saved.contains("MessagesThreshold=0"));
        QVERIFY(saved.contains("CreateBackups=1"));
    }

    void anInvalidExtensionKeepsTheOptionsDialogOpen()
    {
        auto dlg = window();
        Gui::OptionsFields fields;
        fields.scheme = "default";
        fields.fileExtensions = "c,cpp";
        fields.backupExtension = "bak";
        Gui::OptionsDlg options(dlg->store(), fields, dlg.get());
        options.show();
        auto* extensions = options.findChild<QLineEdit*>("extensions");
        extensions->selectAll();
        QTest::keyClicks(extensions, "cpp,src/h");
        auto* ok = options.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
        {
            ModalRobot robot;
            QTest::mouseClick(ok, Qt::LeftButton);
            QCOMPARE(robot.boxes().size(), std::size_t(1));
            QCOMPARE(robot.boxes()[0].text,
                     QString("Error: Invalid file extension entered. File extensions may not contain any of the "
                             "following characters: \"<>:\\/|?\""));
        }
        QVERIFY(options.isVisible());
        QCOMPARE(options.result(), int(QDialog::Rejected));
        // Each of the characters is refused; a clean list is taken.
        for (const char* bad : {"<", ">", ":", "\\", "/", "|", "?"})
            QVERIFY(!Gui::OptionsDlg::extensionsValid(std::string("cpp,h") + bad + "x"));
        extensions->selectAll();
        QTest::keyClicks(extensions, "cpp, h");
        QTest::mouseClick(ok, Qt::LeftButton);
        QVERIFY(!options.isVisible());
        QCOMPARE(options.result(), int(QDialog::Accepted));
        QCOMPARE(options.fields().fileExtensions, std::string("cpp, h"));
    }

    void singleFileWithAnUnlistedExtensionAsksFirst()
    {
        auto dlg = window();
        const QString file = m_home->writeFile("work/odd.inl", UNFORMATTED);
        m_pick.files = {file.toStdString(), file.toStdString()};
        ModalRobot robot;
        robot.answer(QMessageBox::No);
        robot.answer(QMessageBox::Yes);
        dlg->pane()->setPlainText("earlier line\n");
        action(dlg.get(), "actionFile")->trigger();
        QCOMPARE(robot.boxes().size(), std::size_t(1));
        QCOMPARE(robot.boxes()[0].text, "The file \"" + file
                                            + "\" does not have a file extension registered with Tidewright as "
                                              "valid for formatting. Format the file anyway?");
        QCOMPARE(readAll(file), UNFORMATTED);
        // The directory is remembered even on No, and offered next time.
        QCOMPARE(dlg->settings().standaloneLastDirectory, QFileInfo(file).path().toStdString());
        QVERIFY(m_pick.lastFilter.startsWith("C++ Source Files (*.c *.cc *.cpp *.cxx *.h *.hh *.hpp *.hxx)"));
        action(dlg.get(), "actionFile")->trigger();
        QCOMPARE(m_pick.lastDirectory, QFileInfo(file).path().toStdString());
        QVERIFY(readAll(file) != UNFORMATTED);
        // The pane keeps its old text.
        QVERIFY(dlg->pane()->toPlainText().startsWith("earlier line\n"));
        QVERIFY(dlg->pane()->toPlainText().contains("Formatting \"" + file + "\"."));
    }

    void thresholdZeroLeavesThePaneEmptyForAFailedFile()
    {
        auto dlg = window("default", {"MessagesThreshold=0"});
        const QString file = m_home->writeFile("work/broken.cpp", "int main( {\n");
        m_pick.files = {file.toStdString()};
        action(dlg.get(), "actionFile")->trigger();
        QCOMPARE(dlg->pane()->toPlainText(), QString());
        QCOMPARE(readAll(file), QByteArray("int main( {\n"));
    }

    void projectThroughTheMenu()
    {
        auto dlg = window();
        const QString source = m_home->writeFile("proj/main.cpp", UNFORMATTED);
        m_home->writeFile("proj/readme.txt", "text\n");
        const QString project = m_home->writeFile(
            "proj/app.dsp", "# Microsoft Developer Studio Project File - Name=\"app\"\r\n"
                            "# Begin Source File\r\nSOURCE=.\\main.cpp\r\n# End Source File\r\n"
                            "# Begin Source File\r\nSOURCE=.\\readme.txt\r\n# End Source File\r\n");
        m_pick.files = {project.toStdString()};
        ModalRobot robot;
        robot.answer(QMessageBox::Yes);
        action(dlg.get(), "actionProject")->trigger();
        QVERIFY(m_pick.lastFilter.startsWith("MS Visual Studio Project Files (*.dsp)"));
        QVERIFY(m_pick.lastFilter.contains("*.vcxproj"));
        QVERIFY(m_pick.lastFilter.contains("*.sln"));
        QVERIFY(m_pick.lastFilter.contains("compile_commands.json"));
        QCOMPARE(robot.boxes().size(), std::size_t(1));
        QCOMPARE(robot.boxes()[0].text, "You have chosen to format all C/C++ files in the project \"" + project
                                            + "\". Are you sure you wish to continue?");
        const QStringList shown = lines(dlg->pane()->toPlainText());
        QCOMPARE(shown.value(0), "Formatting project \"" + project + "\" using scheme \"default\".");
        QCOMPARE(shown.back(), QString("Finished formatting project."));
        QVERIFY(readAll(source) != UNFORMATTED);
    }

    void workspaceNumbersFilesWithinEachProject()
    {
        auto dlg = window();
        m_home->writeFile("ws/one/a.cpp", UNFORMATTED);
        m_home->writeFile("ws/one/b.cpp", UNFORMATTED);
        m_home->writeFile("ws/two/c.cpp", UNFORMATTED);
        m_home->writeFile("ws/one/one.dsp", "# Microsoft Developer Studio Project File - Name=\"one\"\r\n"
                                            "# Begin Source File\r\nSOURCE=.\\a.cpp\r\n# End Source File\r\n"
                                            "# Begin Source File\r\nSOURCE=.\\b.cpp\r\n# End Source File\r\n");
        m_home->writeFile("ws/two/two.dsp", "# Microsoft Developer Studio Project File - Name=\"two\"\r\n"
                                            "# Begin Source File\r\nSOURCE=.\\c.cpp\r\n# End Source File\r\n");
        const QString workspace = m_home->writeFile(
            "ws/all.dsw", "Microsoft Developer Studio Workspace File, Format Version 6.00\r\n"
                          "Project: \"one\"=.\\one\\one.dsp - Package Owner=<4>\r\n"
                          "Project: \"two\"=.\\two\\two.dsp - Package Owner=<4>\r\n");
        m_pick.files = {workspace.toStdString()};
        ModalRobot robot;
        robot.answer(QMessageBox::Yes);
        QStringList statuses;
        robot.whileIdle([&] {
            const QString status = dlg->statusText();
            if (status.startsWith("Formatting file") && (statuses.isEmpty() || statuses.back() != status))
                statuses << status;
        });
        action(dlg.get(), "actionWorkspace")->trigger();
        QVERIFY(m_pick.lastFilter.startsWith("MS Visual Studio Workspace Files (*.dsw)"));
        QCOMPARE(robot.boxes()[0].text, "You have chosen to format all C/C++ files in the workspace \""
                                            + workspace + "\". Are you sure you wish to continue?");
        QCOMPARE(statuses, QStringList({"Formatting file 1 of 2", "Formatting file 2 of 2", "Formatting file 1 of 1"}));
        const QStringList shown = lines(dlg->pane()->toPlainText());
        QCOMPARE(shown.back(), QString("Finished formatting workspace."));
        QVERIFY(readAll(m_home->path() + "/ws/two/c.cpp") != UNFORMATTED);
    }

    void clearAndCopy()
    {
        auto dlg = window();
        const QString file = m_home->writeFile("work/x.cpp", UNFORMATTED);
        m_pick.files = {file.toStdString()};
        action(dlg.get(), "actionFile")->trigger();
        const QString text = dlg->pane()->toPlainText();
        QVERIFY(!text.isEmpty());
        dlg->pane()->selectAll();
        action(dlg.get(), "actionCopy")->trigger();
        QCOMPARE(QApplication::clipboard()->text(), text);
        action(dlg.get(), "actionClear")->trigger();
        QCOMPARE(dlg->pane()->toPlainText(), QString());
    }

    void progressDialogAndItsUpdateFunction()
    {
        Gui::FileProgressDlg progress;
        progress.show();
        Gui::FileProgressDlg::UpdateFunction update(&progress, "/src/a.cpp");
        QVERIFY(update("Opening file:\n%s"));
        QCOMPARE(progress.statusText(), QString("Opening file:\n/src/a.cpp"));
        QCOMPARE(progress.barValue(), 1);
        QVERIFY(update("Formatting file:\n%s"));
        QCOMPARE(progress.barValue(), 2);
        progress.resetBar();
        QCOMPARE(progress.barValue(), 0);
        QTest::mouseClick(progress.cancelButton(), Qt::LeftButton);
        QVERIFY(progress.isCancelled());
        QVERIFY(!update("Writing file:\n%s"));
        // Without a dialog the run goes on and shows nothing.
        Gui::FileProgressDlg::UpdateFunction none(nullptr, "/src/a.cpp");
        QVERIFY(none("Opening file:\n%s"));
        // Escape cancels as the button does.
        Gui::FileProgressDlg other;
        other.show();
        QTest::keyClick(&other, Qt::Key_Escape);
        QVERIFY(other.isCancelled());
    }

    void aboutShowsVersionAndLinks()
    {
        auto dlg = window();
        LinkCatcher catcher;
        QDesktopServices::setUrlHandler("https", &catcher, "open");
        QDesktopServices::setUrlHandler("mailto", &catcher, "open");
        ModalRobot robot;
        QString title;
        QString information;
        QStringList labels;
        robot.handleDialog([&](QWidget* modal) {
            title = modal->windowTitle();
            auto* about = qobject_cast<Gui::AboutDlg*>(modal);
            QVERIFY(about);
            information = about->informationText();
            for (auto* label : modal->findChildren<QLabel*>())
                labels << label->text();
            QVERIFY(modal->findChild<QGroupBox*>()->title() == "About Tidewright C++");
            QMetaObject::invokeMethod(modal, "accept", Qt::QueuedConnection);
        });
        action(dlg.get(), "actionAbout")->trigger();
        robot.stop();
        QCOMPARE(title, QString("About Tidewright C++"));
        QVERIFY(information.startsWith("Tidewright C++\nVersion "));
        QVERIFY(information.contains("Copyright"));
        QVERIFY(labels.contains("Support:"));
        QVERIFY(labels.contains("Website:"));

        // A link opens its target through the desktop's handler.
        Gui::HyperLink web("example", "https://example.org/tidewright");
        web.show();
        QTest::mouseClick(&web, Qt::LeftButton);
        QCOMPARE(catcher.urls.value(0), QUrl("https://example.org/tidewright"));
        Gui::HyperLink mail("mail", "help@example.org");
        QVERIFY(mail.open());
        QCOMPARE(catcher.urls.value(1), QUrl("mailto:help@example.org"));
        QDesktopServices::unsetUrlHandler("https");
        QDesktopServices::unsetUrlHandler("mailto");

        // A target that cannot be opened gives the box.
        Gui::HyperLink broken("broken", "");
        ModalRobot failures;
        QVERIFY(!broken.open());
        QCOMPARE(failures.boxes().size(), std::size_t(1));
        QCOMPARE(failures.boxes()[0].text, QString("Unable to open hyperlink:\n\nThe specified path was not found."));
    }

    void helpContentsAndTheOptionsTopic()
    {
        auto dlg = window();
        action(dlg.get(), "actionContents")->trigger();
        QVERIFY(dlg->helpWindow());
        QVERIFY(dlg->helpWindow()->isVisible());
        QCOMPARE(dlg->helpWindow()->currentPage(), QString("desktop.md"));
        QVERIFY(dlg->helpWindow()->browser()->toPlainText().contains("Options"));
        // The Options dialog's Help button opens the topic.
        ModalRobot robot;
        robot.handleDialog([](QWidget* modal) {
            auto* help = modal->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Help);
            QCOMPARE(help->text(), QString("&Help"));
            help->click();
            QMetaObject::invokeMethod(modal, "reject", Qt::QueuedConnection);
        });
        action(dlg.get(), "actionOptions")->trigger();
        QTextCursor cursor = dlg->helpWindow()->browser()->textCursor();
        QCOMPARE(cursor.block().text(), QString("Options"));
        QVERIFY(cursor.block().blockFormat().headingLevel() > 0);
    }

    // Not a check: writes the pictures of the documentation when
    // TW_SCREENSHOT_DIR names a directory (`cmake --build ... --target screenshots`).
    void screenshots()
    {
        const QString directory = qEnvironmentVariable("TW_SCREENSHOT_DIR");
        if (directory.isEmpty())
            QSKIP("TW_SCREENSHOT_DIR is not set: no screenshots written");
        QDir().mkpath(directory);
        auto save = [&](QWidget* widget, const QString& name) {
            const QString path = directory + "/" + name;
            QVERIFY2(widget->grab().save(path), qPrintable(path));
        };
        // A project in a fixed place, so that the paths in the pictures are short and stay the same.
        QDir("/tmp/tidewright-demo").removeRecursively();
        const QString root = "/tmp/tidewright-demo/project";
        auto write = [&](const QString& relative, const QByteArray& bytes) {
            QDir().mkpath(QFileInfo(root + "/" + relative).path());
            QFile file(root + "/" + relative);
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(bytes);
        };
        write("src/main.cpp", "#include \"shape.h\"\nint main(){Shape s;return s.area();}\n");
        write("src/shape.h", "struct Shape{int w=2,h=3;int area()const{return w*h;}};\n");
        write("src/broken.cpp", "int f( {\n");
        write("tests/shape_test.cpp", "#include \"../src/shape.h\"\nint t(){return 0;}\n");
        auto dlg = window();
        dlg->resize(760, 440);
        m_pick.folders = {root.toStdString()};
        ModalRobot robot;
        robot.answer(QMessageBox::Yes);
        action(dlg.get(), "actionDirectoryTree")->trigger();
        QCoreApplication::processEvents();
        save(dlg.get(), "main-window.png");

        Gui::FileProgressDlg progress(dlg.get());
        progress.show();
        Gui::FileProgressDlg::UpdateFunction update(&progress, (root + "/src/shape.h").toStdString());
        update("Opening file:\n%s");
        update("Analyzing file:\n%s");
        update("Formatting file:\n%s");
        QCoreApplication::processEvents();
        save(&progress, "progress.png");
        progress.hide();

        Gui::OptionsFields fields;
        fields.scheme = "default";
        fields.fileExtensions = dlg->settings().fileExtensions;
        fields.createBackups = true;
        fields.backupExtension = "bak";
        fields.messagesThreshold = 1;
        Gui::OptionsDlg options(dlg->store(), fields, dlg.get());
        options.show();
        QCoreApplication::processEvents();
        save(&options, "options.png");

        Gui::AboutDlg about(dlg.get());
        about.show();
        QCoreApplication::processEvents();
        save(&about, "about.png");
        QDir("/tmp/tidewright-demo").removeRecursively();
    }
};

int main(int argc, char** argv)
{
    // Headless unless the caller chose a platform (the Xvfb test picks xcb).
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    Gui::KemptApp::setUpApplication();
    KemptDlgTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "KemptDlgTest.moc"
