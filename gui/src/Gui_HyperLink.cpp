// Opening a link and telling a failure.
#include "Gui_HyperLink.h"

#include <QDesktopServices>
#include <QKeyEvent>
#include <QMessageBox>
#include <QMouseEvent>

namespace Gui {

QString HyperLink::failureText(Failure failure)
{
    switch (failure) {
    case Failure::NO_RESOURCES: return "The operating system is out\nof memory or resources.";
    case Failure::PATH_NOT_FOUND: return "The specified path was not found.";
    case Failure::FILE_NOT_FOUND: return "The specified file was not found.";
    case Failure::NO_ASSOCIATION: return "There is no application associated\nwith the given filename extension.";
    }
    return "Unknown Error (0) occurred.";
}

QUrl linkUrl(const QString& target)
{
    const QString text = target.trimmed();
    if (text.isEmpty())
        return QUrl();
    if (text.contains(u'@') && !text.contains(u':'))
        return QUrl("mailto:" + text);
    const QUrl url(text, QUrl::StrictMode);
    if (url.isValid() && !url.scheme().isEmpty())
        return url;
    return QUrl("https://" + text, QUrl::StrictMode);
}

HyperLink::HyperLink(const QString& text, const QString& target, QWidget* parent)
    : QLabel(parent), m_url(linkUrl(target))
{
    setTextFormat(Qt::PlainText);
    setText(text);
    QFont underlined = font();
    underlined.setUnderline(true);
    setFont(underlined);
    QPalette colours = palette();
    colours.setColor(QPalette::WindowText, colours.color(QPalette::Link));
    setPalette(colours);
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::StrongFocus);
    setToolTip(m_url.isValid() ? m_url.toString() : target);
}

bool HyperLink::open()
{
    bool done = false;
    Failure failure = Failure::PATH_NOT_FOUND;
    if (m_url.isValid()) {
        done = QDesktopServices::openUrl(m_url);
        failure = Failure::NO_ASSOCIATION;
    }
    if (done) {
        emit opened(m_url);
        return true;
    }
    QMessageBox::warning(this, windowTitle().isEmpty() ? text() : windowTitle(),
                         "Unable to open hyperlink:\n\n" + failureText(failure));
    return false;
}

void HyperLink::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        open();
    QLabel::mouseReleaseEvent(event);
}

void HyperLink::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Space || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        open();
        return;
    }
    QLabel::keyPressEvent(event);
}

} // namespace Gui
