#ifndef AIRLUME_APP_WINDOWACCESSIBLE_H
#define AIRLUME_APP_WINDOWACCESSIBLE_H

/// Lets assistive technology know the main window for a window: by Qt it would be a mere container,
/// as it is none of the classes that Qt knows for windows. May be called more than once. GUI
/// thread only.
void installWindowAccessible();

#endif
