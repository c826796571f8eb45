#ifndef AIRLUME_TOOLS_HOST_FOLDERS_H
#define AIRLUME_TOOLS_HOST_FOLDERS_H

#include <string>

namespace AirlumeHost
{

/// Where a host suite listens, and a copy of Airlume, by Qt's naming of local servers: a file of
/// this name in the temporary folder.
inline constexpr const char *HostName = "HarborWindowLocalProcess";
inline constexpr const char *CopyName = "Airlume_LocalServer";

/// The temporary folder as Qt finds it for the names of local servers: TMPDIR, otherwise /tmp.
std::string temporaryFolder();

/// The name, in the temporary folder, of a folder of this user alone.
std::string privateFolderName();

/// Whether the folder is this user's, and nobody else may look into it.
bool isPrivate(const std::string &folder);

/// Makes the folder where it is missing. Returns an empty text, or why it is not a private folder.
std::string makePrivate(const std::string &folder);

/// One after another: while one process, with those it forked, holds a folder's lock, others wait.
/// Nothing is written; the lock ends with its last holder at the latest.
class FolderLock
{
public:
    /// Waits up to a second, and does without the lock then.
    explicit FolderLock(const std::string &folder);
    ~FolderLock();
    FolderLock(const FolderLock &) = delete;
    FolderLock &operator=(const FolderLock &) = delete;

private:
    int m_handle;
};

} // namespace AirlumeHost

#endif
