#include "common/diagnostics.h"

#include <QDebug>
#include <QFileInfo>

namespace Diagnostics
{

const QString NullPointText = QStringLiteral("NUll point");

QString SourceLocation(const char *file, const char *function, int line)
{
    return QStringLiteral("file:%1 function:%2 line:%3 ")
        .arg(QFileInfo(QString::fromUtf8(file)).completeBaseName(), QString::fromUtf8(function),
            QString::number(line));
}

void ReportCritical(const QString &text, const char *file, const char *function, int line)
{
    qCritical().noquote().nospace() << text << SourceLocation(file, function, line);
}

void ReportDebug(const QString &text, const char *file, const char *function, int line)
{
    qDebug().noquote().nospace() << text << SourceLocation(file, function, line);
}

} // namespace Diagnostics
