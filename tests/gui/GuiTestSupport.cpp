#include "GuiTestSupport.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

namespace GuiTest {

TestHome::TestHome()
{
    qputenv("HOME", m_dir.path().toUtf8());
    qputenv("XDG_CONFIG_HOME", (m_dir.path() + "/config").toUtf8());
    qputenv("XDG_DATA_HOME", (m_dir.path() + "/data").toUtf8());
    qputenv("TIDEWRIGHT_SCHEME_DIR", schemeDirectory().toUtf8());
}

QString TestHome::settingsFile() const
{
    return m_dir.path() + "/config/tidewright/tidewright.ini";
}

QString TestHome::schemeDirectory() const
{
    return m_dir.path() + "/schemes";
}

void TestHome::writeSettings(const QStringList& lines) const
{
    QDir().mkpath(QFileInfo(settingsFile()).path());
    QFile file(settingsFile());
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write("[Options]\n" + lines.join("\n").toUtf8() + "\n");
}

QString TestHome::readSettings() const
{
    QFile file(settingsFile());
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    return QString::fromUtf8(file.readAll());
}

QString TestHome::writeFile(const QString& relative, const QByteArray& bytes) const
{
    const QString path = m_dir.path() + "/" + relative;
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(bytes);
    return path;
}

std::string FakePickers::openFile(QWidget*, const std::string& directory, const QString& filter)
{
    ++m_state.fileQuestions;
    m_state.lastFilter = filter;
    m_state.lastDirectory = directory;
    if (m_state.files.empty())
        return "";
    std::string answer = m_state.files.front();
    m_state.files.erase(m_state.files.begin());
    return answer;
}

std::string FakePickers::folder(QWidget*, const std::string& directory, const std::string& title)
{
    ++m_state.folderQuestions;
    m_state.lastDirectory = directory;
    m_state.lastTitle = title;
    if (m_state.folders.empty())
        return "";
    std::string answer = m_state.folders.front();
    m_state.folders.erase(m_state.folders.begin());
    return answer;
}

ModalRobot::ModalRobot()
{
    // Every turn of the event loop: the batch's cancel points are where it gets one.
    m_timer.setInterval(0);
    connect(&m_timer, &QTimer::timeout, this, &ModalRobot::poll);
    m_timer.start();
}

void ModalRobot::poll()
{
    QWidget* modal = QApplication::activeModalWidget();
    if (!modal || !modal->isVisible()) {
        if (m_idle)
            m_idle();
        return;
    }
    for (const QPointer<QWidget>& done : m_handled)
        if (done == modal)
            return; // answered, still closing
    m_handled.append(modal);
    if (auto* box = qobject_cast<QMessageBox*>(modal)) {
        m_boxes.push_back({box->windowTitle(), box->text(), box->icon(), box->standardButtons()});
        QMessageBox::StandardButton button = QMessageBox::Ok;
        if (!m_answers.empty()) {
            button = m_answers.front();
            m_answers.erase(m_answers.begin());
        }
        QAbstractButton* target = box->button(button);
        if (!target)
            target = box->buttons().value(0);
        target->click();
        return;
    }
    ++m_dialogsHandled;
    if (m_dialogs.empty()) {
        QMetaObject::invokeMethod(modal, "reject", Qt::QueuedConnection);
        return;
    }
    DialogHandler handler = std::move(m_dialogs.front());
    m_dialogs.erase(m_dialogs.begin());
    handler(modal);
}

QStringList lines(const QString& text)
{
    QStringList result = text.split('\n');
    while (!result.isEmpty() && result.back().isEmpty())
        result.pop_back();
    return result;
}

} // namespace GuiTest
