#include "scenariopages.h"

#include <QFile>
#include <QRegularExpression>

namespace
{
/// The rows of the tables.
void addRows(ScenarioPage &page)
{
    QString title;
    for (const QString &line : page.text.split(QLatin1Char('\n'))) {
        if (line.startsWith(QLatin1Char('#')))
            title = line.section(QLatin1Char(' '), 1);
        const int second = line.indexOf(QLatin1String(" | "));
        const bool isHead = line.mid(second) == QLatin1String(" | |");
        if (line.startsWith(QLatin1String("| `")) && second > 0 && !isHead)
            page.sections[title].append(
                {Captures(line.left(second), "`(\\w+)`"), line.mid(second)});
    }
}

/// The items of the lists.
void addItems(ScenarioPage &page)
{
    const QLatin1String item(".It Li ");
    QString title;
    bool isInside = false;
    for (const QString &line : page.text.split(QLatin1Char('\n'))) {
        if (line.startsWith(QLatin1String(".S")))
            title = line.mid(4);
        if (line.startsWith(item))
            page.sections[title].append({Captures(line.mid(item.size()), "(\\w+)"), QString()});
        isInside = (isInside || line.startsWith(item)) && !line.startsWith(QLatin1String(".El"));
        if (isInside && !line.startsWith(item))
            page.sections[title].last().text += line + QLatin1Char('\n');
    }
}
} // namespace

ScenarioPage ReadDocument()
{
    ScenarioPage page;
    page.text = ReadSource(ScenarioDocument)
                    .replace(QChar(0x2212), QLatin1Char('-'))
                    .replace(QStringLiteral("⁵³"), QStringLiteral("^53"))
                    .replace(QStringLiteral("⁹"), QStringLiteral("^9"));
    addRows(page);
    return page;
}

ScenarioPage ReadManual()
{
    ScenarioPage page;
    page.text = ReadSource(ScenarioManual)
                    .replace(QLatin1String("\\-"), QLatin1String("-"))
                    .replace(QLatin1String("\\(ha"), QLatin1String("^"))
                    .remove(QLatin1String("\\e\n"))
                    .remove(QLatin1String("\\&"));
    addItems(page);
    return page;
}

QString ReadSource(const char *path)
{
    QFile file(QStringLiteral(AIRLUME_SOURCE_DIR "/") + QLatin1String(path));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", path);
    return QString::fromUtf8(file.readAll());
}

QStringList Captures(const QString &text, const char *pattern)
{
    QStringList found;
    auto all = QRegularExpression(QLatin1String(pattern)).globalMatch(text);
    while (all.hasNext())
        found.append(all.next().captured(1));
    return found;
}

QString TextOf(const QVector<ScenarioEntry> &entries, const QString &field)
{
    for (const ScenarioEntry &entry : entries) {
        if (entry.names.contains(field))
            return entry.text;
    }
    return QString();
}
