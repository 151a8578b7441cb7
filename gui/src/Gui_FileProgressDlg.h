// The progress dialog of a batch: a status text, a bar that counts the steps
// of the file being formatted (back to 0 at each file), and "Cancel". It is
// modeless and has no event loop of its own: the batch lets pending events run
// at its cancel points (pumpAndCheckCancelled), which is when a click on
// Cancel is seen.
#ifndef GUI_FILEPROGRESSDLG_H
#define GUI_FILEPROGRESSDLG_H

#include "App_FileProgress.h"

#include <QDialog>

#include <string>

class QLabel;
class QProgressBar;
class QPushButton;

namespace Gui {

class FileProgressDlg : public QDialog, public App::FileProgress {
    Q_OBJECT
public:
    // The steps of one file that the bar counts: opening, analysing,
    // formatting, writing, completed.
    static constexpr int STEPS_PER_FILE = 5;

    // The pipeline's callback: each text, with the path for its "%s", goes to
    // the dialog's status line, and pending events run.
    class UpdateFunction : public App::ProgressUpdate {
    public:
        // `dialog` may be null: then nothing is shown and the run never stops.
        UpdateFunction(FileProgressDlg* dialog, std::string path) : App::ProgressUpdate(dialog, std::move(path)) {}
    };

    explicit FileProgressDlg(QWidget* parent = nullptr);

    bool isCancelled() const { return m_cancelled; }

    // App::FileProgress
    bool pumpAndCheckCancelled() override;
    void resetBar() override;
    void showStatus(const std::string& text) override;

    QString statusText() const;
    int barValue() const;
    QPushButton* cancelButton() const { return m_cancel; }

public slots:
    void cancel();

protected:
    // Escape and the close box cancel as the button does.
    void reject() override;

private:
    QLabel* m_status;
    QProgressBar* m_bar;
    QPushButton* m_cancel;
    bool m_cancelled = false;
};

} // namespace Gui

#endif
