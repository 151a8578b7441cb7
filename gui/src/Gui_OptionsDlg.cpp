// The Options dialog's controls and its check on OK.
#include "Gui_OptionsDlg.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QVBoxLayout>

namespace Gui {

namespace {

const char* const SEVERITIES[] = {"Never display", "Information or greater", "Warning or greater",
                                  "Error or greater"};

} // namespace

QString OptionsDlg::invalidExtensionText()
{
    return QString("Error: Invalid file extension entered. File extensions may not contain any of the following "
                   "characters: \"%1\"")
        .arg(INVALID_EXTENSION_CHARACTERS);
}

bool OptionsDlg::extensionsValid(const std::string& text)
{
    // The extensions are the pieces between blanks, semicolons and commas.
    const QStringList pieces =
        QString::fromStdString(text).split(QRegularExpression("[ ;,]"), Qt::SkipEmptyParts);
    const QString invalid = INVALID_EXTENSION_CHARACTERS;
    for (const QString& piece : pieces)
        for (QChar c : piece)
            if (invalid.contains(c))
                return false;
    return true;
}

OptionsDlg::OptionsDlg(const KemptUI::PropertySetStore& store, const OptionsFields& fields, QWidget* parent)
    : QDialog(parent), m_store(store), m_fields(fields)
{
    setWindowTitle("Options");
    setObjectName("OptionsDlg");

    // Scheme options.
    auto* schemeGroup = new QGroupBox("Scheme options", this);
    m_scheme = new QComboBox(schemeGroup);
    m_scheme->setObjectName("scheme");
    m_scheme->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_manage = new QPushButton("Manage Schemes...", schemeGroup);
    m_manage->setObjectName("manageSchemes");
    m_manage->setEnabled(false); // the scheme editor is not part of this program yet
    m_manage->setToolTip("The scheme editor is not available in this version");
    auto* schemeRow = new QHBoxLayout;
    schemeRow->addWidget(m_scheme, 1);
    schemeRow->addWidget(m_manage);
    auto* schemeForm = new QFormLayout(schemeGroup);
    schemeForm->addRow("Formatting scheme:", schemeRow);

    // Target options.
    auto* targetGroup = new QGroupBox("Target options", this);
    m_extensions = new QLineEdit(QString::fromStdString(fields.fileExtensions), targetGroup);
    m_extensions->setObjectName("extensions");
    auto* targetForm = new QFormLayout(targetGroup);
    targetForm->addRow("File extensions to format:", m_extensions);

    // Safety options.
    auto* safetyGroup = new QGroupBox("Safety options", this);
    m_backups = new QCheckBox("Create backup before formatting", safetyGroup);
    m_backups->setObjectName("createBackups");
    m_backups->setChecked(fields.createBackups);
    m_backupExtension = new QLineEdit(QString::fromStdString(fields.backupExtension), safetyGroup);
    m_backupExtension->setObjectName("backupExtension");
    m_backupExtension->setEnabled(fields.createBackups);
    connect(m_backups, &QCheckBox::toggled, m_backupExtension, &QWidget::setEnabled);
    auto* safetyForm = new QFormLayout(safetyGroup);
    safetyForm->addRow(m_backups);
    safetyForm->addRow("Backup file extension:", m_backupExtension);

    // Messages window options.
    auto* messagesGroup = new QGroupBox("Messages window options", this);
    m_severity = new QComboBox(messagesGroup);
    m_severity->setObjectName("severity");
    for (const char* label : SEVERITIES)
        m_severity->addItem(label);
    m_severity->setCurrentIndex(fields.messagesThreshold >= 0 && fields.messagesThreshold <= 3
                                    ? fields.messagesThreshold : 0);
    auto* messagesForm = new QFormLayout(messagesGroup);
    messagesForm->addRow("Display messages of severity:", m_severity);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Help,
                                         this);
    buttons->button(QDialogButtonBox::Help)->setText("&Help");
    connect(buttons, &QDialogButtonBox::accepted, this, &OptionsDlg::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(buttons, &QDialogButtonBox::helpRequested, this, [this] {
        if (m_help)
            m_help("Options");
    });

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(schemeGroup);
    layout->addWidget(targetGroup);
    layout->addWidget(safetyGroup);
    layout->addWidget(messagesGroup);
    layout->addWidget(buttons);

    fillSchemes();
}

void OptionsDlg::fillSchemes()
{
    m_scheme->clear();
    m_scheme->addItem(NO_FORMATTING);
    int selected = 0;
    for (const auto& [name, entry] : m_store) {
        m_scheme->addItem(QString::fromStdString(name));
        if (name == m_fields.scheme)
            selected = m_scheme->count() - 1;
    }
    m_scheme->setCurrentIndex(selected);
}

void OptionsDlg::readControls()
{
    m_fields.scheme = m_scheme->currentIndex() <= 0 ? std::string() : m_scheme->currentText().toStdString();
    m_fields.fileExtensions = m_extensions->text().toStdString();
    m_fields.createBackups = m_backups->isChecked();
    m_fields.backupExtension = m_backupExtension->text().trimmed().toStdString();
    m_fields.messagesThreshold = m_severity->currentIndex();
}

void OptionsDlg::accept()
{
    // The backup extension ends a file name as well, so it is held to the same rule.
    if (!extensionsValid(m_extensions->text().toStdString())
        || !extensionsValid(m_backupExtension->text().toStdString())) {
        QMessageBox::warning(this, windowTitle(), invalidExtensionText());
        m_extensions->setFocus();
        return; // the dialog stays open
    }
    readControls();
    QDialog::accept();
}

} // namespace Gui
