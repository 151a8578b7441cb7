// Showing the Markdown pages.
#include "Gui_HelpWindow.h"

#include "KemptUI_UserTexts.h"

#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QListWidget>
#include <QSplitter>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextCursor>
#include <QTextDocument>
#include <QUrl>

namespace Gui {

HelpWindow::HelpWindow(const QString& directory, QWidget* parent) : QWidget(parent, Qt::Window), m_directory(directory)
{
    setWindowTitle(QString(KemptUI::PRODUCT_NAME) + " Help");
    setObjectName("HelpWindow");
    m_pages = new QListWidget(this);
    m_pages->setObjectName("pages");
    m_browser = new QTextBrowser(this);
    m_browser->setObjectName("browser");
    m_browser->setOpenExternalLinks(true);
    m_browser->setSearchPaths({directory});

    QStringList files = QDir(directory).entryList({"*.md"}, QDir::Files, QDir::Name);
    // The start page first, then the README, then the rest by name.
    for (const QString& first : {QString("README.md"), QString(START_PAGE)})
        if (files.removeOne(first))
            files.prepend(first);
    m_pages->addItems(files);
    connect(m_pages, &QListWidget::currentTextChanged, this, [this](const QString& page) {
        if (!page.isEmpty() && page != currentPage())
            openPage(page);
    });

    auto* splitter = new QSplitter(this);
    splitter->addWidget(m_pages);
    splitter->addWidget(m_browser);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({160, 640});
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(splitter);
    resize(900, 600);

    if (files.isEmpty())
        m_browser->setPlainText("The documentation was not found. It is installed with the program "
                                "(share/doc/tidewright) and lies in docs/ of the source tree.");
}

void HelpWindow::openPage(const QString& fileName)
{
    const QString path = QDir(m_directory).filePath(fileName);
    if (!QFileInfo::exists(path))
        return;
    m_browser->setSource(QUrl::fromLocalFile(path), QTextDocument::MarkdownResource);
    const auto found = m_pages->findItems(fileName, Qt::MatchExactly);
    if (!found.isEmpty())
        m_pages->setCurrentItem(found.front());
}

QString HelpWindow::currentPage() const
{
    return QFileInfo(m_browser->source().toLocalFile()).fileName();
}

void HelpWindow::showContents()
{
    openPage(START_PAGE);
}

void HelpWindow::showTopic(const QString& topic)
{
    openPage(START_PAGE);
    // Markdown headings carry no anchors here: find the heading by its text.
    QTextDocument* document = m_browser->document();
    for (QTextBlock block = document->begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() > 0 && block.text().trimmed() == topic) {
            QTextCursor cursor(block);
            m_browser->setTextCursor(cursor);
            // Bring the heading to the top: to the end first, then back to it.
            m_browser->moveCursor(QTextCursor::End);
            m_browser->setTextCursor(cursor);
            m_browser->ensureCursorVisible();
            return;
        }
    }
}

} // namespace Gui
