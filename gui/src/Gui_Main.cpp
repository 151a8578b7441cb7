// tidewright-gui: the desktop application.
#include "Gui_KemptApp.h"

int main(int argc, char** argv)
{
    Gui::KemptApp application(argc, argv);
    return application.run();
}
