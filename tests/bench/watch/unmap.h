#ifndef AIRLUME_TESTS_BENCH_UNMAP_H
#define AIRLUME_TESTS_BENCH_UNMAP_H

/// Takes a window of the X11 display off the screen, as a window manager does with one that asks to
/// be minimised. A virtual display has no window manager.
void unmapWindow(unsigned long window);

#endif
