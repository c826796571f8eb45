#include "unmap.h"

#include <X11/Xlib.h>

void unmapWindow(unsigned long window)
{
    Display *display = XOpenDisplay(nullptr);
    if (!display)
        return;
    XUnmapWindow(display, window);
    XCloseDisplay(display);
}
