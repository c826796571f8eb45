#ifndef AIRLUME_TESTS_FLOWS_DESKTOPCOMMAND_H
#define AIRLUME_TESTS_FLOWS_DESKTOPCOMMAND_H

#include "flows/airlumeprocess.h"
#include "flows/sharedtemporaryfolder.h"

#include <memory>

#include <unistd.h>

/// The program as the command of the menu starts it, in a temporary folder that all users share.
/// With AIRLUME_INSTALLATION, a folder that `cmake --install` has filled, it is the installed
/// command.
class DesktopCommand
{
public:
    /// Makes a copy of the installation, in which others may look and the rooms may be stored.
    bool prepare();
    /// A new temporary folder.
    void renewFolder() { m_folder = std::make_unique<SharedTemporaryFolder>(); }
    void removeFolder() { m_folder.reset(); }

    /// The program in that locale, started by the command.
    std::unique_ptr<AirlumeProcess> program(const char *locale) const;
    /// The program, started by itself.
    std::unique_ptr<AirlumeProcess> bareProgram() const;

private:
    QTemporaryDir m_copy{QStringLiteral("/tmp/airlume-copy.XXXXXX")};
    QString m_private;
    std::unique_ptr<SharedTemporaryFolder> m_folder;
};

/// Processes of airlume-host that were started with the temporary folder of the test. What has
/// ended, and waits for init to notice, has no executable any more.
int hostCount();

/// Children of the process, zombies too.
int childCount(qint64 processId);

/// Host sockets below the temporary folder.
QStringList hostSockets();

/// The folder of that user alone, in the temporary folder.
QString ownFolder(uint userId = geteuid());

/// Ends with status 0, and never came as far as the window.
bool endsUnseen(AirlumeProcess &airlume);

bool endsByItsButton(AirlumeProcess &airlume);

#endif
