// The busy flag of the main window for the length of one command: set when
// the guard is made, cleared (and the window back in its ready state) when it
// goes, however the command ends.
#ifndef GUI_BUSYGUARD_H
#define GUI_BUSYGUARD_H

namespace Gui {

class BusyState {
public:
    virtual ~BusyState();
    virtual bool isBusy() const = 0;
    virtual void setBusyFlag(bool busy) = 0;
    virtual void enterReadyState() = 0;
};

class BusyGuard {
public:
    explicit BusyGuard(BusyState& state);
    ~BusyGuard();
    BusyGuard(const BusyGuard&) = delete;
    BusyGuard& operator=(const BusyGuard&) = delete;

private:
    BusyState& m_state;
};

} // namespace Gui

#endif
