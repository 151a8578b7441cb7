// The application: starts the main window inside the one guarded block of
// the program. What escapes the start-up or a command is told there in a box,
// and the program ends:
//   a scheme file that cannot be read     the read error, warning sign
//   a scheme file that cannot be written  the write error, warning sign
//   an engine or contract failure, any other exception
//                                         the unexpected-error text, stop sign
//   memory exhausted                      the out-of-memory text, stop sign
// run() returns 0 in every case.
#ifndef GUI_KEMPTAPP_H
#define GUI_KEMPTAPP_H

#include <QApplication>

#include <exception>
#include <functional>

namespace Gui {

class KemptApp : public QApplication {
    Q_OBJECT
public:
    KemptApp(int& argc, char** argv);

    // The main window, shown until it closes; 0 in every case.
    int run();

    // The start-up block: `body` runs, and what escapes it is told in its
    // box. True when nothing escaped. Usable on any QApplication.
    static bool guarded(const std::function<void()>& body);
    // The start-up block around the main window: made, shown and, with
    // `eventLoop`, run until it closes; without, closed again at once (for
    // checks of the start alone). 0 in every case.
    static int startUp(bool eventLoop);

    // Application-wide settings: names, icon.
    static void setUpApplication();
};

} // namespace Gui

#endif
