// A state indicator of the status bar: a lamp and a word ("Idle", "Busy").
// A lit indicator shows its lamp in colour and its word in the normal text
// colour; a dark one both greyed.
#ifndef GUI_INDICATOR_H
#define GUI_INDICATOR_H

#include <QPixmap>
#include <QWidget>

class QLabel;

namespace Gui {

class Indicator : public QWidget {
public:
    Indicator(const QString& text, QPixmap litLamp, QPixmap darkLamp, QWidget* parent = nullptr);

    void setLit(bool lit);
    bool isLit() const { return m_lit; }
    QString text() const;

private:
    QLabel* m_lamp;
    QLabel* m_text;
    QPixmap m_litLamp;
    QPixmap m_darkLamp;
    bool m_lit = false;
};

} // namespace Gui

#endif
