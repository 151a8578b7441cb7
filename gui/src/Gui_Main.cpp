// tidewright-gui: the desktop application.
#include "Gui_CommandLine.h"
#include "Gui_KemptApp.h"

#include <iostream>

int main(int argc, char** argv)
{
    switch (Gui::startMode(argc, argv)) {
    case Gui::StartMode::HELP:
        std::cout << Gui::helpText();
        return 0;
    case Gui::StartMode::VERSION:
        std::cout << Gui::versionText();
        return 0;
    case Gui::StartMode::CHECK:
        return Gui::runStartUpCheck(argc, argv, std::cout, std::cerr);
    case Gui::StartMode::WINDOW:
        break;
    }
    Gui::KemptApp application(argc, argv);
    return application.run();
}
