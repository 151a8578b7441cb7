// The icons the program draws itself: the application's icon and the lamps of
// the "Idle" and "Busy" indicators, lit or dark.
#ifndef GUI_STATEICONS_H
#define GUI_STATEICONS_H

#include <QIcon>
#include <QPixmap>

namespace Gui {

QIcon applicationIcon();
// A round lamp of `size` pixels: green or red when lit, grey when dark.
QPixmap idleLamp(bool lit, int size);
QPixmap busyLamp(bool lit, int size);

} // namespace Gui

#endif
