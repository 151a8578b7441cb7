// Drawing the icons with QPainter, so the program needs no image files.
#include "Gui_StateIcons.h"

#include <QColor>
#include <QFont>
#include <QPainter>
#include <QPen>
#include <QRadialGradient>

namespace Gui {

namespace {

QPixmap lamp(QColor colour, int size)
{
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    QRadialGradient gradient(size * 0.35, size * 0.35, size * 0.6);
    gradient.setColorAt(0, colour.lighter(160));
    gradient.setColorAt(1, colour);
    painter.setBrush(gradient);
    painter.setPen(QPen(colour.darker(150), 1));
    painter.drawEllipse(QRectF(1, 1, size - 2, size - 2));
    return pixmap;
}

QPixmap applicationPixmap(int size)
{
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(QColor(0x1f, 0x5f, 0x8b));
    painter.setPen(Qt::NoPen);
    painter.drawRoundedRect(QRectF(0, 0, size, size), size * 0.18, size * 0.18);
    // Three lines of "code", the middle one indented: a formatter's picture.
    painter.setBrush(QColor(0xf2, 0xf5, 0xf7));
    const double unit = size / 8.0;
    painter.drawRoundedRect(QRectF(unit * 1.5, unit * 2, unit * 4, unit * 0.8), unit * 0.3, unit * 0.3);
    painter.drawRoundedRect(QRectF(unit * 2.7, unit * 3.6, unit * 3.8, unit * 0.8), unit * 0.3, unit * 0.3);
    painter.drawRoundedRect(QRectF(unit * 1.5, unit * 5.2, unit * 2.6, unit * 0.8), unit * 0.3, unit * 0.3);
    return pixmap;
}

} // namespace

QIcon applicationIcon()
{
    QIcon icon;
    for (int size : {16, 32, 48, 64, 128})
        icon.addPixmap(applicationPixmap(size));
    return icon;
}

QPixmap idleLamp(bool lit, int size)
{
    return lamp(lit ? QColor(0x2e, 0xa0, 0x43) : QColor(0xb0, 0xb0, 0xb0), size);
}

QPixmap busyLamp(bool lit, int size)
{
    return lamp(lit ? QColor(0xd0, 0x3a, 0x2f) : QColor(0xb0, 0xb0, 0xb0), size);
}

} // namespace Gui
