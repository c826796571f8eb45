#ifndef AIRLUME_TESTS_HOMETEST_TINYMOUNT_H
#define AIRLUME_TESTS_HOMETEST_TINYMOUNT_H

#include <QString>

/// A file system of the test's own, for disks that are full or cannot be written. It needs the
/// right to mount (root on Linux) and is gone when the object, or the process, is.
class TinyMount
{
public:
    enum View { ReadOnlyView };

    /// Keeps the mounts of this process to itself. Once, before the first mount.
    static void enterPrivateNamespace();

    /// An empty file system in memory at `folder`, which is created; `options` as mount(8) has
    /// them.
    TinyMount(const QString &folder, const char *options);
    /// The folder itself once more, read-only.
    TinyMount(const QString &folder, View);
    ~TinyMount();
    TinyMount(const TinyMount &) = delete;
    TinyMount &operator=(const TinyMount &) = delete;

    bool isMounted() const { return m_mounted; }
    QString path() const { return m_folder; }

    bool makeReadOnly();
    /// Writes until nothing fits any more.
    void fill();
    /// Removes what fill() wrote.
    void empty();

private:
    QString m_folder;
    bool m_mounted = false;

    static bool s_private;
};

#endif
