#include "common/QtCommonTools.h"
#include "fuzz/languageresource.h"
#include "fuzz/require.h"
#include "i18n/ipclocalsocket.h"
#include "i18n/languagefileoperate.h"

#include <QBuffer>
#include <QFile>
#include <QTextStream>

namespace
{
const QChar Quote = QLatin1Char('"');

void dropMessage(QtMsgType, const QMessageLogContext &, const QString &) {}

void checkLine(const QString &line, const LanguageEntry &entry)
{
    const bool comment = line.startsWith(QLatin1Char('#')) || line.startsWith(QLatin1Char('/'));
    require(entry.valid == (!comment && line.contains(QLatin1Char('='))));
    if (!entry.valid) {
        require(entry.key.isEmpty() && entry.text.isEmpty());
        return;
    }
    require(!entry.key.contains(QLatin1Char('=')));
    const QString start = entry.key + QLatin1Char('=');
    require(line.startsWith(start));
    // Put together again, the line is the same, but for one quote at each end of the text.
    const QStringList forms{start + entry.text, start + Quote + entry.text,
        start + entry.text + Quote, start + Quote + entry.text + Quote};
    require(forms.contains(line));
}

/// The file's entries as its lines give them, the last one of a key counting.
QMap<QString, QString> entriesOf(QByteArray content)
{
    QMap<QString, QString> entries;
    QBuffer file(&content);
    require(file.open(QIODevice::ReadOnly | QIODevice::Text));
    QTextStream stream(&file);
    stream.setCodec("UTF-8");
    for (QString line = stream.readLine(); !line.isNull(); line = stream.readLine()) {
        const LanguageEntry entry = ParseLanguageLine(line);
        checkLine(line, entry);
        if (entry.valid)
            entries.insert(entry.key, entry.text);
    }
    return entries;
}
} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    // The other languages are missing, and each input would say so.
    qInstallMessageHandler(dropMessage);
    QtCommonTools::m_pLocalSocket = new IpcLocalSocket(QStringLiteral("NobodyListensHere"));
    return 0;
}

/// Any octets as the English language file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray content(reinterpret_cast<const char *>(data), static_cast<int>(size));
    const LanguageResource resource(content);
    const QMap<QString, QString> entries = entriesOf(content);
    LanguageFileOperate languages;
    for (auto it = entries.cbegin(); it != entries.cend(); ++it)
        require(languages.tr(it.key()) == it.value());
    require(languages.tr(QStringLiteral("no=key")).isEmpty());
    languages.ReadAllLang();
    for (auto it = entries.cbegin(); it != entries.cend(); ++it)
        require(languages.tr(it.key()) == it.value());
    return 0;
}
