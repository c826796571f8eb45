#include "flows/sharedtemporaryfolder.h"

#include <QFile>
#include <QProcess>

#include <sys/stat.h>
#include <unistd.h>

SharedTemporaryFolder::SharedTemporaryFolder()
    : m_folder(QStringLiteral("/tmp/airlume-users.XXXXXX"))
    , m_previous(qgetenv("TMPDIR"))
{
    if (chmod(QFile::encodeName(m_folder.path()).constData(), 01777) != 0)
        qWarning("Cannot share %s", qPrintable(m_folder.path()));
    qputenv("TMPDIR", QFile::encodeName(m_folder.path()));
}

SharedTemporaryFolder::~SharedTemporaryFolder()
{
    qputenv("TMPDIR", m_previous);
}

bool mayRunAsOthers()
{
    if (geteuid() != 0)
        return false;
    const QString nobody = QStringLiteral("65534");
    return QProcess::execute(QStringLiteral("setpriv"),
               {QStringLiteral("--reuid"), nobody, QStringLiteral("--regid"), nobody,
                   QStringLiteral("--clear-groups"), QStringLiteral("test"), QStringLiteral("-r"),
                   QStringLiteral(AIRLUME_BUILD_DIR "/bin/airlume")}) == 0;
}
