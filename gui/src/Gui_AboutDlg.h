// The About box: the product's name, version and copyright, and the maker's
// support and web addresses as links.
#ifndef GUI_ABOUTDLG_H
#define GUI_ABOUTDLG_H

#include <QDialog>

namespace Gui {

class HyperLink;

class AboutDlg : public QDialog {
    Q_OBJECT
public:
    explicit AboutDlg(QWidget* parent = nullptr);

    HyperLink* supportLink() const { return m_support; }
    HyperLink* websiteLink() const { return m_website; }
    // The product, version and copyright lines.
    QString informationText() const;

private:
    HyperLink* m_support;
    HyperLink* m_website;
    QString m_information;
};

// "Copyright (C) YEAR MAKER"
QString copyrightLine();

} // namespace Gui

#endif
