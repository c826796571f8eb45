#include "backendloader.h"

#include "contract.h"
#include "scan/wifiapiinterface.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonObject>
#include <QLibraryInfo>
#include <QPluginLoader>
#include <QVersionNumber>

#include <cerrno>
#include <unistd.h>

namespace PluginCheck
{

namespace
{

QString interfaceId()
{
    return QStringLiteral(WiFiApiInterface_iid);
}

Problem notFound(const QString &path)
{
    return {QStringLiteral("not-found"), QStringLiteral("There is no file ") + quoted(path, 500),
        {QStringLiteral("Give the path of the library or of the folder that holds it. Its name is "
                        "usually ") +
            WiFiApiLibrary}};
}

Problem nowhereFound()
{
    QStringList folders;
    for (const QString &folder : QCoreApplication::libraryPaths())
        folders.append(QDir::toNativeSeparators(folder));
    return {QStringLiteral("not-found"),
        QStringLiteral("Airlume finds no back end: there is no ") + WiFiApiLibrary +
            QStringLiteral(" in ") + folders.join(QStringLiteral(", ")) +
            QStringLiteral(". It starts all the same, but its list stays empty."),
        {QStringLiteral(
             "Put the back end beside the program, or name its folder in the environment "
             "variable QT_PLUGIN_PATH."),
            QStringLiteral("If Airlume was built from source, see that the build did not end with "
                           "an error.")}};
}

Problem notReadable(const QString &path)
{
    return {QStringLiteral("not-readable"), QStringLiteral("The file may not be read: ") + path,
        {QStringLiteral("Make it readable for you, for example `chmod a+r FILE` (and a+x for the "
                        "folders above it).")}};
}

Problem notAPlugin(const QString &error)
{
    return {QStringLiteral("not-a-plugin"),
        QStringLiteral("The file is not a Qt plug-in. Qt says: ") + error,
        {QStringLiteral("Install or build the back end again: the file may be damaged, cut short, "
                        "made for another processor, or no library at all.")}};
}

Problem cannotLoad(const QString &error)
{
    return {QStringLiteral("cannot-load"),
        QStringLiteral("The file is a Qt plug-in, but the system cannot load it. Qt says: ") +
            error,
        {QStringLiteral("If the message names a missing library, install that library; if it names "
                        "an undefined symbol, the back end and a library do not go together: "
                        "install or build it again.")}};
}

Problem wrongInterface(const QString &found)
{
    return {QStringLiteral("wrong-interface"),
        QStringLiteral("The file is a plug-in for something else: Airlume needs ") +
            quoted(interfaceId()) + QStringLiteral(", this one is for ") + quoted(found, 120) +
            QStringLiteral(". Airlume takes it for no back end at all."),
        {QStringLiteral("Use a back end made for this version of Airlume.")}};
}

/// True when a folder on the way to `path` may not be searched: there may well be such a file.
bool isBehindLockedFolder(const QString &path)
{
    return ::access(QFile::encodeName(path).constData(), F_OK) != 0 && errno == EACCES;
}

int runningQt()
{
    const QVersionNumber version = QLibraryInfo::version();
    return QT_VERSION_CHECK(version.majorVersion(), version.minorVersion(), version.microVersion());
}

/// The file to load; with an empty path the one Airlume would find.
QString resolved(const QString &path)
{
    if (path.isEmpty()) {
        const QString found = QPluginLoader(WiFiApiLibrary).fileName();
        return found.isEmpty() ? found : QFileInfo(found).absoluteFilePath();
    }
    const QFileInfo given(path);
    if (given.isDir())
        return QDir(given.absoluteFilePath()).filePath(WiFiApiLibrary);
    return given.absoluteFilePath();
}

Backend broken(Backend backend, const Problem &problem)
{
    backend.problem = problem;
    backend.isWhole = true;
    return backend;
}

} // namespace

QString versionText(int version)
{
    return QVersionNumber((version >> 16) & 0xff, (version >> 8) & 0xff).toString();
}

Problem incompatibleQt(int version, int running)
{
    const bool sameMajor = (version >> 16) == (running >> 16);
    const bool newerMinor = ((version >> 8) & 0xff) > ((running >> 8) & 0xff);
    if (sameMajor && !newerMinor)
        return {};
    return {QStringLiteral("incompatible-qt"),
        QStringLiteral("The back end was built with Qt ") + versionText(version) +
            QStringLiteral(", which does not go together with Qt ") + versionText(running) +
            QStringLiteral(", the one in use here."),
        {QStringLiteral("Build the back end with the same Qt as Airlume, or install the one that "
                        "came with it.")}};
}

Backend loadBackend(const QString &path, const std::function<void(const Backend &)> &report)
{
    Backend backend;
    const QString file = resolved(path);
    if (file.isEmpty())
        return broken(backend, nowhereFound());
    const QFileInfo info(file);
    if (!info.isFile())
        return broken(backend, isBehindLockedFolder(file) ? notReadable(file) : notFound(file));
    backend.path = file;
    if (!info.isReadable())
        return broken(backend, notReadable(file));

    QPluginLoader loader(file);
    const QJsonObject metaData = loader.metaData();
    if (metaData.isEmpty()) {
        loader.load();
        return broken(backend, notAPlugin(loader.errorString()));
    }
    backend.interfaceId = metaData.value(QStringLiteral("IID")).toString();
    backend.className = metaData.value(QStringLiteral("className")).toString();
    const int version = metaData.value(QStringLiteral("version")).toInt();
    backend.qtVersion = versionText(version);
    if (report)
        report(backend);

    if (!loader.load()) {
        const Problem incompatible = incompatibleQt(version, runningQt());
        return broken(
            backend, incompatible.code.isEmpty() ? cannotLoad(loader.errorString()) : incompatible);
    }
    QObject *instance = loader.instance();
    if (!instance) {
        return broken(backend,
            {QStringLiteral("no-instance"),
                QStringLiteral("The library was loaded, but its plug-in object could not be made. "
                               "Qt says: ") +
                    loader.errorString(),
                {QStringLiteral("Install or build the back end again.")}});
    }
    backend.api = qobject_cast<WiFiApiInterface *>(instance);
    if (!backend.api)
        return broken(backend, wrongInterface(backend.interfaceId));
    if (backend.interfaceId != interfaceId()) {
        backend.deviations.add(Weight::Broken, QStringLiteral("wrong-interface-id"),
            QStringLiteral("The plug-in's metadata must name the interface ") +
                quoted(interfaceId()),
            QStringLiteral("they name ") + quoted(backend.interfaceId, 120));
    }
    backend.isWhole = true;
    return backend;
}

} // namespace PluginCheck
