#include "hometest/tinymount.h"

#include <QDir>
#include <QFile>

#ifdef Q_OS_LINUX
#include <sched.h>
#include <sys/mount.h>
#endif

bool TinyMount::s_private = false;

#ifdef Q_OS_LINUX

void TinyMount::enterPrivateNamespace()
{
    s_private =
        unshare(CLONE_NEWNS) == 0 && mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

TinyMount::TinyMount(const QString &folder, const char *options)
    : m_folder(folder)
{
    QDir().mkpath(folder);
    const bool readOnly = qstrcmp(options, "ro") == 0;
    m_mounted = s_private && mount("tmpfs", QFile::encodeName(folder).constData(), "tmpfs",
                                 readOnly ? MS_RDONLY : 0, readOnly ? nullptr : options) == 0;
}

TinyMount::TinyMount(const QString &folder, View)
    : m_folder(folder)
{
    const QByteArray name = QFile::encodeName(folder);
    m_mounted =
        s_private && mount(name.constData(), name.constData(), nullptr, MS_BIND, nullptr) == 0;
    if (m_mounted && !makeReadOnly()) {
        umount2(name.constData(), MNT_DETACH);
        m_mounted = false;
    }
}

TinyMount::~TinyMount()
{
    if (m_mounted)
        umount2(QFile::encodeName(m_folder).constData(), MNT_DETACH);
}

bool TinyMount::makeReadOnly()
{
    return mount(nullptr, QFile::encodeName(m_folder).constData(), nullptr,
               MS_REMOUNT | MS_BIND | MS_RDONLY, nullptr) == 0;
}

#else

void TinyMount::enterPrivateNamespace() {}

TinyMount::TinyMount(const QString &folder, const char *)
    : m_folder(folder)
{
}

TinyMount::TinyMount(const QString &folder, View)
    : m_folder(folder)
{
}

TinyMount::~TinyMount() = default;

bool TinyMount::makeReadOnly()
{
    return false;
}

#endif

void TinyMount::fill()
{
    QFile filler(m_folder + QStringLiteral("/filler"));
    if (!filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return;
    while (filler.write("x", 1) == 1) {
    }
}

void TinyMount::empty()
{
    QFile::remove(m_folder + QStringLiteral("/filler"));
}
