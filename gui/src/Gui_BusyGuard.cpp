// Setting and clearing the busy flag.
#include "Gui_BusyGuard.h"

namespace Gui {

BusyState::~BusyState() = default;

BusyGuard::BusyGuard(BusyState& state) : m_state(state)
{
    m_state.setBusyFlag(true);
}

BusyGuard::~BusyGuard()
{
    m_state.setBusyFlag(false);
    m_state.enterReadyState();
}

} // namespace Gui
