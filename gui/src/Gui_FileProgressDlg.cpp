// The progress dialog's widgets and its cancel flag.
#include "Gui_FileProgressDlg.h"

#include "KemptUI_UserTexts.h"

#include <QCoreApplication>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace Gui {

FileProgressDlg::FileProgressDlg(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(KemptUI::PRODUCT_NAME);
    setModal(false);
    setObjectName("FileProgressDlg");

    m_status = new QLabel(this);
    m_status->setObjectName("status");
    m_status->setWordWrap(true);
    m_status->setTextFormat(Qt::PlainText);
    // Room for two lines: a status text and a path under it.
    const QFontMetrics metrics(m_status->font());
    m_status->setMinimumWidth(metrics.averageCharWidth() * 60);
    m_status->setMinimumHeight(metrics.lineSpacing() * 3);
    m_status->setAlignment(Qt::AlignLeft | Qt::AlignTop);

    m_bar = new QProgressBar(this);
    m_bar->setObjectName("fileBar");
    m_bar->setRange(0, STEPS_PER_FILE);
    m_bar->setValue(0);
    m_bar->setTextVisible(false);

    m_cancel = new QPushButton(tr("Cancel"), this);
    m_cancel->setObjectName("cancel");
    connect(m_cancel, &QPushButton::clicked, this, &FileProgressDlg::cancel);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_cancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_status);
    layout->addWidget(m_bar);
    layout->addLayout(buttons);
}

bool FileProgressDlg::pumpAndCheckCancelled()
{
    QCoreApplication::processEvents();
    return m_cancelled;
}

void FileProgressDlg::resetBar()
{
    m_bar->setValue(0);
}

void FileProgressDlg::showStatus(const std::string& text)
{
    m_status->setText(QString::fromStdString(text));
    if (m_bar->value() < m_bar->maximum())
        m_bar->setValue(m_bar->value() + 1);
    m_status->repaint();
}

QString FileProgressDlg::statusText() const
{
    return m_status->text();
}

int FileProgressDlg::barValue() const
{
    return m_bar->value();
}

void FileProgressDlg::cancel()
{
    m_cancelled = true;
    m_cancel->setEnabled(false);
}

void FileProgressDlg::reject()
{
    cancel();
}

} // namespace Gui
