// The Options dialog: the scheme to format with, the extensions to format,
// the backups and the messages' severity. It works on its own copy of the
// scheme store and on plain fields; the main window takes them over when the
// user presses OK. OK is refused, with a box, while an extension holds a
// character that no file extension may hold.
#ifndef GUI_OPTIONSDLG_H
#define GUI_OPTIONSDLG_H

#include "KemptUI_PropertySetStore.h"

#include <QDialog>

#include <functional>
#include <string>

class QCheckBox;
class QComboBox;
class QLineEdit;
class QPushButton;

namespace Gui {

struct OptionsFields {
    std::string scheme;           // empty: "<No Formatting>"
    std::string fileExtensions;
    bool createBackups = true;
    std::string backupExtension;
    int messagesThreshold = 1;    // index into the severity list
};

class OptionsDlg : public QDialog {
    Q_OBJECT
public:
    static constexpr const char* NO_FORMATTING = "<No Formatting>";
    // The characters no extension may hold.
    static constexpr const char* INVALID_EXTENSION_CHARACTERS = "<>:\\/|?";

    OptionsDlg(const KemptUI::PropertySetStore& store, const OptionsFields& fields, QWidget* parent = nullptr);

    // After OK: the dialog's store and fields.
    const KemptUI::PropertySetStore& store() const { return m_store; }
    const OptionsFields& fields() const { return m_fields; }

    // What Help opens: called with the topic's name ("Options").
    void setHelpHandler(std::function<void(const QString&)> handler) { m_help = std::move(handler); }

    // The box's text for an invalid extension.
    static QString invalidExtensionText();
    // True when no extension in `text` holds an invalid character.
    static bool extensionsValid(const std::string& text);

public slots:
    void accept() override;

private:
    void fillSchemes();
    void readControls();

    KemptUI::PropertySetStore m_store;
    OptionsFields m_fields;
    std::function<void(const QString&)> m_help;
    QComboBox* m_scheme;
    QPushButton* m_manage;
    QLineEdit* m_extensions;
    QCheckBox* m_backups;
    QLineEdit* m_backupExtension;
    QComboBox* m_severity;
};

} // namespace Gui

#endif
