// A label that is a link: underlined, a pointing hand over it, and a click
// opens its target with the desktop's handler (a web address in the browser,
// a "mailto:" address in the mail program). When that fails, a box says so:
// "Unable to open hyperlink:" and what went wrong.
#ifndef GUI_HYPERLINK_H
#define GUI_HYPERLINK_H

#include <QLabel>
#include <QUrl>

namespace Gui {

class HyperLink : public QLabel {
    Q_OBJECT
public:
    // The reasons an opening fails, and their texts in the box.
    enum class Failure { NO_RESOURCES, PATH_NOT_FOUND, FILE_NOT_FOUND, NO_ASSOCIATION };
    static QString failureText(Failure failure);

    // `text` is shown; `target` is opened (a web or mail address; an address
    // with "@" and no scheme becomes a "mailto:" link).
    HyperLink(const QString& text, const QString& target, QWidget* parent = nullptr);

    QUrl url() const { return m_url; }

    // Opens the target; false (after the box) when that failed.
    bool open();

signals:
    void opened(const QUrl& url);

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QUrl m_url;
};

// The target of a link as a URL: as it stands when it has a scheme, "mailto:"
// for an e-mail address, else "https://" in front. Invalid when it is empty.
QUrl linkUrl(const QString& target);

} // namespace Gui

#endif
