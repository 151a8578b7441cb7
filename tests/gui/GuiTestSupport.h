// Helpers of the desktop application's tests: a private home for each test
// (settings file, scheme directory), pickers that answer in the file
// dialogs' place, and a robot that answers message boxes and modal dialogs
// as they come up.
#ifndef GUITESTSUPPORT_H
#define GUITESTSUPPORT_H

#include "Gui_Pickers.h"

#include <QMessageBox>
#include <QObject>
#include <QPointer>
#include <QTemporaryDir>
#include <QTimer>

#include <functional>
#include <string>
#include <vector>

namespace GuiTest {

// A fresh home: HOME, XDG_CONFIG_HOME and the scheme directory point into it
// while it lives.
class TestHome {
public:
    TestHome();
    QString path() const { return m_dir.path(); }
    QString settingsFile() const;
    QString schemeDirectory() const;
    // Writes the settings file's [Options] group with these lines.
    void writeSettings(const QStringList& lines) const;
    // The settings file's text.
    QString readSettings() const;
    // A file under the home, its directories made.
    QString writeFile(const QString& relative, const QByteArray& bytes) const;

private:
    QTemporaryDir m_dir;
};

// Answers in the file dialogs' place and counts the questions.
class FakePickers : public Gui::Pickers {
public:
    struct State {
        std::vector<std::string> files;   // answers of openFile, in order ("" cancels)
        std::vector<std::string> folders; // answers of folder
        int fileQuestions = 0;
        int folderQuestions = 0;
        QString lastFilter;
        std::string lastDirectory;
        std::string lastTitle;
    };
    explicit FakePickers(State& state) : m_state(state) {}
    std::string openFile(QWidget*, const std::string& directory, const QString& filter) override;
    std::string folder(QWidget*, const std::string& directory, const std::string& title) override;

private:
    State& m_state;
};

// A box as the user saw it.
struct SeenBox {
    QString title;
    QString text;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QMessageBox::StandardButtons buttons;
};

// Polls for modal windows. A message box is answered with the next button
// of `answers` (Ok when they run out); another modal dialog is handed to the
// next handler of `dialogs` (and closed with reject() when none is left).
class ModalRobot : public QObject {
    Q_OBJECT
public:
    using DialogHandler = std::function<void(QWidget*)>;
    ModalRobot();

    void answer(QMessageBox::StandardButton button) { m_answers.push_back(button); }
    void handleDialog(DialogHandler handler) { m_dialogs.push_back(std::move(handler)); }
    // Called on every poll while nothing modal is up (for actions during a batch).
    void whileIdle(std::function<void()> poll) { m_idle = std::move(poll); }

    // No more polling: another robot takes over.
    void stop() { m_timer.stop(); }

    const std::vector<SeenBox>& boxes() const { return m_boxes; }
    int dialogsHandled() const { return m_dialogsHandled; }

private:
    void poll();

    QTimer m_timer;
    std::vector<QMessageBox::StandardButton> m_answers;
    std::vector<DialogHandler> m_dialogs;
    std::function<void()> m_idle;
    std::vector<SeenBox> m_boxes;
    QList<QPointer<QWidget>> m_handled;
    int m_dialogsHandled = 0;
};

// The lines of a text, without the empty last one.
QStringList lines(const QString& text);

} // namespace GuiTest

#endif
