// The help window: the program's Markdown documentation (docs/*.md, installed
// beside the program) in a browser with a list of its pages. A topic name
// ("Options") opens the desktop application's page at the section of that
// name.
#ifndef GUI_HELPWINDOW_H
#define GUI_HELPWINDOW_H

#include <QWidget>

class QListWidget;
class QTextBrowser;

namespace Gui {

class HelpWindow : public QWidget {
    Q_OBJECT
public:
    // The page that "Contents" opens, and the one that holds the topics.
    static constexpr const char* START_PAGE = "desktop.md";

    // `directory`: where the Markdown pages lie; empty when none were found.
    explicit HelpWindow(const QString& directory, QWidget* parent = nullptr);

    // Shows the start page.
    void showContents();
    // Shows the start page at the heading `topic`; the start page when there is no such heading.
    void showTopic(const QString& topic);

    QTextBrowser* browser() const { return m_browser; }
    // The file name of the page shown.
    QString currentPage() const;

private:
    void openPage(const QString& fileName);

    QString m_directory;
    QListWidget* m_pages;
    QTextBrowser* m_browser;
};

} // namespace Gui

#endif
