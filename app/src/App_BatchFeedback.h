// The two sides that a batch command (App_FileCollection.h) talks to.
//
// BatchTarget takes the command's steps in their order: message lines for
// the user and files to format. A front end decides how a file is formatted
// (in place, checked, on several threads) and must keep the order of what it
// shows: the messages of a file stand after the steps given before it.
// JobTarget (App_JobTarget.h) formats each file at once with a FileJob.
//
// BatchFeedback is the user interface around a command: the question that
// confirms it, the status line, the bar that counts the files, cancelling,
// and the progress display of a single file. Every operation has a default
// that does nothing (or agrees, or never cancels), which is what a command
// line needs; the desktop application overrides them with its dialogs.
//
// The order of the calls in one command:
//   clearMessages, confirm (No: the command stops), beginBatch,
//   setStatus / setRange / cancelled ... step ..., endBatch.
#ifndef APP_BATCHFEEDBACK_H
#define APP_BATCHFEEDBACK_H

#include "App_FileProgress.h"

#include <string>

namespace App {

class BatchTarget {
public:
    virtual ~BatchTarget();
    // A message of the command itself ("Formatting project ..."), in order.
    virtual void message(const std::string& text, int severity) = 0;
    // Format one file, found and filtered by the command.
    virtual void formatFile(const std::string& path) = 0;
};

class BatchFeedback {
public:
    virtual ~BatchFeedback();
    // A new command empties the message pane.
    virtual void clearMessages() {}
    // A Yes/No question; false stops the command. The default agrees.
    virtual bool confirm(const std::string& question);
    // A failure that a window shows in a box as well as in the pane.
    virtual void alert(const std::string&) {}
    // The command is under way: busy state, progress display open.
    virtual void beginBatch() {}
    // The status line: "Adding PATH", "Formatting file 3 of 12".
    virtual void setStatus(const std::string& text);
    // The bar that counts the files: its range, then one step per file.
    virtual void setRange(int total);
    virtual void step() {}
    // Lets pending window events run; true once the user has cancelled.
    virtual bool cancelled();
    // The progress display of the file being formatted, or null.
    virtual FileProgress* fileProgress();
    // The command is over; `directory` is the one to remember as the last used.
    virtual void endBatch(const std::string& directory);
};

} // namespace App

#endif
