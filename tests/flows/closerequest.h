#ifndef AIRLUME_TESTS_FLOWS_CLOSEREQUEST_H
#define AIRLUME_TESTS_FLOWS_CLOSEREQUEST_H

#include <QString>

/// Asks the window of that number on an X server to close, as window managers do for Alt+F4 or from
/// a taskbar: by the message WM_DELETE_WINDOW of the Inter-Client Communication Conventions. False
/// when it could not be sent.
bool SendCloseRequest(const QString &display, quint32 window);

#endif
