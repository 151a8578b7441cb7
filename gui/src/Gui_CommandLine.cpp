// The desktop application's own options: help, version and the start-up check.
#include "Gui_CommandLine.h"

#include "App_ProgramFiles.h"
#include "App_SchemeStore.h"
#include "App_UserMessages.h"
#include "Gui_KemptApp.h"
#include "Gui_KemptDlg.h"
#include "KemptUI_PropertySetStore.h"
#include "KemptUI_UserTexts.h"

#include <QCoreApplication>
#include <QGuiApplication>

#include <exception>
#include <ostream>
#include <string_view>

namespace Gui {

namespace {

// The number of scheme files in `directory`; 0 when it cannot be listed.
std::size_t schemeFileCount(const std::string& directory)
{
    if (directory.empty())
        return 0;
    KemptUI::PropertySetStore store(directory.back() == '/' ? directory : directory + "/");
    return store.findPSFiles().size();
}

// One line of the report; false (and the line says so) when `path` is empty.
bool reportLine(std::ostream& out, std::string_view label, const std::string& path, const std::string& detail)
{
    out << label << ": " << (path.empty() ? std::string("not found") : path + detail) << '\n';
    return !path.empty();
}

// Opens the main window and closes it at once; the failure text, or empty.
std::string openAndCloseWindow()
{
    try {
        KemptDlg window;
        window.show();
        QCoreApplication::processEvents();
        window.close();
        return "";
    } catch (const KemptUI::PropertySetStore::ReadError& e) {
        return KemptUI::readErrorText(e.path());
    } catch (const KemptUI::PropertySetStore::WriteError& e) {
        return App::schemeWriteErrorText(e.path());
    } catch (const std::exception& e) {
        return e.what();
    } catch (...) {
        return "an unknown failure";
    }
}

} // namespace

StartMode startMode(int argc, const char* const* argv)
{
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        if (argument == "--help" || argument == "-h")
            return StartMode::HELP;
        if (argument == "--version")
            return StartMode::VERSION;
        if (argument == "--check")
            return StartMode::CHECK;
    }
    return StartMode::WINDOW;
}

std::string helpText()
{
    return "The desktop application of Tidewright C++: format C and C++ files, folder trees and projects\n"
           "with a named scheme, edit the schemes and read the documentation.\n"
           "Usage: tidewright-gui [OPTIONS] [Qt options]\n"
           "\n"
           "Options:\n"
           "  -h,--help                   Print this help message and exit\n"
           "  --version                   Display program version information and exit\n"
           "  --check                     Open the main window, close it again and report where the\n"
           "                              built-in schemes, the scheme directory and the documentation\n"
           "                              were found; exit status 1 when one is missing or the window\n"
           "                              did not open\n"
           "\n"
           "Qt's own options, such as -platform NAME and -style NAME, are accepted as well.\n";
}

std::string versionText()
{
    return "tidewright-gui " + App::getVersionText() + "\n";
}

int runStartUpCheck(int& argc, char** argv, std::ostream& out, std::ostream& err)
{
    KemptApp application(argc, argv);
    out << versionText();
    out << "Qt platform: " << QGuiApplication::platformName().toStdString() << '\n';
    const std::string builtIn = App::builtInSchemeDirectory();
    const std::string user = App::schemeDirectory();
    bool found = reportLine(out, "Built-in schemes", builtIn,
                            " (" + std::to_string(schemeFileCount(builtIn)) + " scheme files)");
    const std::string failure = openAndCloseWindow();
    found = reportLine(out, "Scheme directory", user, " (" + std::to_string(schemeFileCount(user)) + " scheme files)")
        && found;
    found = reportLine(out, "Documentation", App::helpFilePath(), "") && found;
    if (!failure.empty()) {
        err << "tidewright-gui: the main window did not open: " << failure << '\n';
        return 1;
    }
    out << "The main window opened and closed.\n";
    if (!found)
        err << "tidewright-gui: the installation is incomplete (see \"not found\" above)\n";
    return found ? 0 : 1;
}

} // namespace Gui
