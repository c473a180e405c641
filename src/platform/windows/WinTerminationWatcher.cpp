#include "platform/TerminationWatcher.h"

// Windows ends a GUI program's session with WM_QUERYENDSESSION and
// WM_ENDSESSION, which Qt itself turns into aboutToQuit: there are no signals
// to watch, so this watcher never reports.
std::unique_ptr<TerminationWatcher> TerminationWatcher::create()
{
    return std::make_unique<TerminationWatcher>();
}
