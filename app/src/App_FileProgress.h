// The progress display of a file job, as an interface: the desktop
// application's progress dialog implements it; the command line passes none.
// ProgressUpdate is the pipeline's callback over it: it shows each text the
// pipeline passes, with the file's path for its "%s", lets pending window
// events run, and asks the run to stop once the user has cancelled.
#ifndef APP_FILEPROGRESS_H
#define APP_FILEPROGRESS_H

#include "Kempt_UpdateFunctor.h"

#include <string>

namespace App {

class FileProgress {
public:
    virtual ~FileProgress();
    // Lets pending window events run; true when the user has cancelled.
    virtual bool pumpAndCheckCancelled() = 0;
    // The bar that counts within one file goes back to 0.
    virtual void resetBar() = 0;
    // A status text, its "%s" already filled.
    virtual void showStatus(const std::string& text) = 0;
};

class ProgressUpdate : public Kempt::UpdateFunctor {
public:
    // `progress` may be null: then nothing is shown and the run never stops.
    ProgressUpdate(FileProgress* progress, std::string path) : m_progress(progress), m_path(std::move(path)) {}
    bool operator()(const std::string& format) override;

private:
    FileProgress* m_progress;
    std::string m_path;
};

} // namespace App

#endif
