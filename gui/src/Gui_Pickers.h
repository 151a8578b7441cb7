// The file and folder pickers of the batch commands, as an interface: the
// window asks it for a path and never opens a file dialog by itself, so that
// a test can answer in the dialog's place. DialogPickers shows Qt's dialogs.
#ifndef GUI_PICKERS_H
#define GUI_PICKERS_H

#include <QString>

#include <string>

class QWidget;

namespace Gui {

class Pickers {
public:
    virtual ~Pickers();
    // A file to open, starting in `directory`; `filter` in Qt's form
    // ("Name (*.a *.b);;Other (*.c)"). Empty when the user cancelled.
    virtual std::string openFile(QWidget* parent, const std::string& directory, const QString& filter) = 0;
    // A folder, starting in `directory`, under the title `title`. Empty when cancelled.
    virtual std::string folder(QWidget* parent, const std::string& directory, const std::string& title) = 0;
};

class DialogPickers : public Pickers {
public:
    std::string openFile(QWidget* parent, const std::string& directory, const QString& filter) override;
    std::string folder(QWidget* parent, const std::string& directory, const std::string& title) override;
};

// A filter of the form "Name|*.a;*.b||" (pairs of a name and its patterns,
// each ended by a bar, the list by a second bar) in Qt's form
// "Name (*.a *.b)", one entry per pair joined by ";;".
QString qtFilter(const std::string& barFilter);

} // namespace Gui

#endif
