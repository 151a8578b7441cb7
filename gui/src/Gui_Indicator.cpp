// The indicator's two labels.
#include "Gui_Indicator.h"

#include <QHBoxLayout>
#include <QLabel>

namespace Gui {

Indicator::Indicator(const QString& text, QPixmap litLamp, QPixmap darkLamp, QWidget* parent)
    : QWidget(parent), m_litLamp(std::move(litLamp)), m_darkLamp(std::move(darkLamp))
{
    m_lamp = new QLabel(this);
    m_text = new QLabel(text, this);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 0, 4, 0);
    layout->setSpacing(4);
    layout->addWidget(m_lamp);
    layout->addWidget(m_text);
    setLit(false);
}

void Indicator::setLit(bool lit)
{
    m_lit = lit;
    m_lamp->setPixmap(lit ? m_litLamp : m_darkLamp);
    m_text->setEnabled(lit);
}

QString Indicator::text() const
{
    return m_text->text();
}

} // namespace Gui
