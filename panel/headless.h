// Running without a display. GUI thread, before the QApplication.
#ifndef HEADLESS_H
#define HEADLESS_H

/// Qt draws in memory, and keeps to itself what it cannot do there.
void goHeadless();

#endif
