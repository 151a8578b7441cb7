// The About box's layout.
#include "Gui_AboutDlg.h"

#include "App_ProgramFiles.h"
#include "App_UserMessages.h"
#include "Gui_HyperLink.h"
#include "Gui_StateIcons.h"
#include "KemptUI_UserTexts.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#ifndef TW_COPYRIGHT_YEAR
#error "TW_COPYRIGHT_YEAR must be defined by the build"
#endif

namespace Gui {

QString copyrightLine()
{
    return QString("Copyright (C) %1 %2").arg(TW_COPYRIGHT_YEAR, App::companyName());
}

AboutDlg::AboutDlg(QWidget* parent) : QDialog(parent)
{
    const QString title = QString("About ") + KemptUI::PRODUCT_NAME;
    setWindowTitle(title);
    setObjectName("AboutDlg");

    m_information = QString("%1\nVersion %2\n%3")
                        .arg(KemptUI::PRODUCT_NAME, QString::fromStdString(App::getVersionText()), copyrightLine());

    auto* group = new QGroupBox(title, this);
    auto* icon = new QLabel(group);
    icon->setPixmap(applicationIcon().pixmap(48, 48));
    icon->setAlignment(Qt::AlignTop);
    auto* information = new QLabel(m_information, group);
    information->setObjectName("information");
    information->setTextFormat(Qt::PlainText);
    information->setTextInteractionFlags(Qt::TextSelectableByMouse);

    m_support = new HyperLink(App::supportAddress(), App::supportAddress(), group);
    m_support->setObjectName("supportLink");
    m_website = new HyperLink(App::webAddress(), App::webAddress(), group);
    m_website->setObjectName("websiteLink");

    auto* links = new QGridLayout;
    links->addWidget(new QLabel("Support:", group), 0, 0);
    links->addWidget(m_support, 0, 1);
    links->addWidget(new QLabel("Website:", group), 1, 0);
    links->addWidget(m_website, 1, 1);
    links->setColumnStretch(1, 1);

    auto* text = new QVBoxLayout;
    text->addWidget(information);
    text->addSpacing(8);
    text->addLayout(links);
    auto* inGroup = new QHBoxLayout(group);
    inGroup->addWidget(icon);
    inGroup->addLayout(text, 1);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(group);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

QString AboutDlg::informationText() const
{
    return m_information;
}

} // namespace Gui
