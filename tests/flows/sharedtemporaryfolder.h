#ifndef AIRLUME_TESTS_FLOWS_SHAREDTEMPORARYFOLDER_H
#define AIRLUME_TESTS_FLOWS_SHAREDTEMPORARYFOLDER_H

#include <QByteArray>
#include <QTemporaryDir>

/// A temporary folder that all users share, as they do /tmp: everybody may write in it and nobody
/// may remove what is another's. While it lives it is the test's own, and that of the programs it
/// starts.
class SharedTemporaryFolder
{
public:
    SharedTemporaryFolder();
    ~SharedTemporaryFolder();
    SharedTemporaryFolder(const SharedTemporaryFolder &) = delete;
    SharedTemporaryFolder &operator=(const SharedTemporaryFolder &) = delete;

    QString filePath(const QString &name) const { return m_folder.filePath(name); }

private:
    QTemporaryDir m_folder;
    QByteArray m_previous;
};

/// True when the test may start programs as other users, who can read the build tree.
bool mayRunAsOthers();

#endif
