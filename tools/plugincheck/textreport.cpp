#include "report.h"

#include "contract.h"
#include "plaintext.h"

namespace PluginCheck
{

namespace
{

constexpr int MostRows = 200;
constexpr int MostMessages = 20;
constexpr int LongestMessage = 1000;
constexpr int LongestName = 64;
constexpr int LongestCell = 24;
constexpr int LineWidth = 80;

/// Takes one line after the other, each made safe.
class Lines
{
public:
    void add(const QString &line) { m_text += escaped(line) + QLatin1Char('\n'); }
    /// Broken between words, the later lines as far in as the first one's `prefix`. What stands in
    /// backticks is a command to copy, and stays whole.
    void addWrapped(const QString &prefix, const QString &text);
    void addGap()
    {
        if (!m_text.isEmpty())
            add(QString());
    }
    void addHeading(const QString &heading)
    {
        addGap();
        add(heading);
    }
    const QString &text() const { return m_text; }

private:
    QString m_text;
};

void Lines::addWrapped(const QString &prefix, const QString &text)
{
    QStringList words;
    const QStringList parts = text.split(QLatin1Char('`'));
    for (int i = 0; i < parts.size(); ++i) {
        const bool isCommand = i % 2 == 1;
        QStringList pieces{parts.at(i)};
        if (!isCommand)
            pieces = parts.at(i).split(QLatin1Char(' '));
        if (i > 0)
            words.last() += QLatin1Char('`') + pieces.takeFirst();
        words += pieces;
    }
    QString current = prefix + words.takeFirst();
    for (const QString &word : qAsConst(words)) {
        if (current.size() + 1 + word.size() > LineWidth) {
            add(current);
            current = QString(prefix.size(), QLatin1Char(' ')) + word;
        } else {
            current += QLatin1Char(' ') + word;
        }
    }
    add(current);
}

QString shortened(const QString &text, int longest)
{
    return text.size() <= longest ? text : text.left(longest - 3) + QStringLiteral("...");
}

void addBackend(Lines &lines, const Backend &backend)
{
    if (backend.path.isEmpty())
        return;
    lines.add(QStringLiteral("Back end: ") + backend.path);
    if (!backend.interfaceId.isEmpty()) {
        lines.add(QStringLiteral("          ") + shortened(backend.className, 80) +
                  QStringLiteral(" for ") + shortened(backend.interfaceId, 120) +
                  QStringLiteral(", built with Qt ") + backend.qtVersion);
    }
}

QString interfaceCell(const QString &name)
{
    return name.isEmpty() ? QStringLiteral("(no name)") : escaped(shortened(name, LongestCell));
}

void addInterfaces(Lines &lines, const Answers &answers)
{
    lines.addHeading(answers.interfaces.isEmpty() ? QStringLiteral("Interfaces: none")
                                                  : QStringLiteral("Interfaces"));
    if (!answers.listed)
        lines.add(QStringLiteral("  (listing them failed)"));
    int width = 0;
    for (const QString &name : answers.interfaces)
        width = qMax(width, interfaceCell(name).size());
    const int chosen = readInterface(answers);
    for (int i = 0; i < answers.interfaces.size() && i < MostRows; ++i) {
        const bool isChosen = i == chosen;
        lines.add((isChosen ? QStringLiteral("  > ") : QStringLiteral("    ")) +
                  interfaceCell(answers.interfaces.at(i)).leftJustified(width) +
                  (answers.usable.value(i) ? QStringLiteral("  usable")
                                           : QStringLiteral("  not usable")) +
                  (isChosen ? QStringLiteral("  (Airlume uses this one)") : QString()));
    }
    if (answers.interfaces.size() > MostRows) {
        lines.add(QStringLiteral("    and ") +
                  QString::number(answers.interfaces.size() - MostRows) +
                  QStringLiteral(" more; --json lists all"));
    }
}

struct Column {
    const char *title;
    bool isNumber;
};

constexpr Column Columns[] = {{"#", true}, {"Signal dBm", true}, {"Channel", true},
    {"Joined", false}, {"Rate Mbps", true}, {"Security", false}, {"BSSID", false}};

QString cell(const ScanMap &network, const QString &key)
{
    const QString value = network.value(key);
    return value.isEmpty() ? QStringLiteral("-") : shortened(value, LongestCell);
}

QString channelCell(const ScanMap &network)
{
    const int channel = network.value(ScanKey::Channel).toInt();
    if (channel <= ScanChannel6GHz || channel > 65535)
        return cell(network, ScanKey::Channel);
    return QString::number(channel - ScanChannel6GHz) + QStringLiteral(" (6 GHz)");
}

/// The cells of a row but the name, which has whatever is left of the line: it alone may hold
/// wide or right-to-left characters, which would push the columns behind it out of place.
QStringList rowOf(int index, const ScanMap &network)
{
    const QString joined = network.value(ScanKey::Connected);
    return {QString::number(index + 1), cell(network, ScanKey::Signal), channelCell(network),
        isJoined(network)              ? QStringLiteral("yes")
        : joined == QLatin1String("0") ? QString()
                                       : cell(network, ScanKey::Connected),
        cell(network, ScanKey::LinkRate), cell(network, ScanKey::Security),
        cell(network, ScanKey::Bssid)};
}

QString nameCell(const ScanMap &network)
{
    const QString name = network.value(ScanKey::Ssid);
    return name.isEmpty() ? QStringLiteral("(hidden: no name)") : quoted(name, LongestName);
}

void addNetworks(Lines &lines, const Answers &answers)
{
    if (!answers.queried)
        return;
    if (!*answers.queried) {
        lines.addHeading(QStringLiteral("Networks: the query failed"));
        return;
    }
    lines.addHeading(
        answers.networks.isEmpty() ? QStringLiteral("Networks: none") : QStringLiteral("Networks"));
    if (answers.networks.isEmpty())
        return;

    QStringList titles;
    for (const Column &column : Columns)
        titles.append(QLatin1String(column.title));
    QVector<QStringList> rows{titles};
    for (int i = 0; i < answers.networks.size() && i < MostRows; ++i)
        rows.append(rowOf(i, answers.networks.at(i)));

    QVector<int> widths(titles.size(), 0);
    for (QStringList &row : rows) {
        for (int column = 0; column < row.size(); ++column) {
            row[column] = escaped(row.at(column));
            widths[column] = qMax(widths.at(column), row.at(column).size());
        }
    }
    for (int i = 0; i < rows.size(); ++i) {
        QString line = QStringLiteral("  ");
        for (int column = 0; column < titles.size(); ++column) {
            const QString &text = rows.at(i).at(column);
            line += (Columns[column].isNumber ? text.rightJustified(widths.at(column))
                                              : text.leftJustified(widths.at(column))) +
                    QStringLiteral("  ");
        }
        lines.add(line + (i == 0 ? QStringLiteral("Name") : nameCell(answers.networks.at(i - 1))));
    }
    if (answers.networks.size() > MostRows) {
        lines.add(QStringLiteral("  and ") + QString::number(answers.networks.size() - MostRows) +
                  QStringLiteral(" more; --json lists all"));
    }
}

void addMessages(Lines &lines, const QVector<Message> &messages)
{
    if (messages.isEmpty())
        return;
    lines.addHeading(QStringLiteral("The back end's own messages"));
    for (int i = 0; i < messages.size() && i < MostMessages; ++i) {
        lines.addWrapped(QStringLiteral("  ") + messages.at(i).level + QStringLiteral(": "),
            shortened(messages.at(i).text, LongestMessage));
    }
    if (messages.size() > MostMessages) {
        lines.add(QStringLiteral("  and ") + QString::number(messages.size() - MostMessages) +
                  QStringLiteral(" more; --json lists all"));
    }
}

/// What the back end printed. It may be anything, so the first lines are enough.
void addOutput(Lines &lines, const QString &heading, const QByteArray &output)
{
    if (output.isEmpty())
        return;
    lines.addHeading(heading);
    QStringList printed = QString::fromUtf8(output).split(QLatin1Char('\n'));
    if (printed.last().isEmpty())
        printed.removeLast();
    for (int i = 0; i < printed.size() && i < MostMessages; ++i)
        lines.add(QStringLiteral("  ") + shortened(printed.at(i), LongestMessage));
    if (printed.size() > MostMessages)
        lines.add(QStringLiteral("  and more; --json lists it"));
}

void addDeviations(
    Lines &lines, const QString &heading, const Deviations &deviations, Weight weight)
{
    bool isFirst = true;
    for (const Deviation &deviation : deviations.list()) {
        if (deviation.weight != weight)
            continue;
        if (isFirst)
            lines.addHeading(heading);
        isFirst = false;
        lines.addWrapped(QStringLiteral("  - "), deviation.rule);
        for (const QString &example : deviation.examples)
            lines.add(QStringLiteral("      ") + example);
        const int more = deviation.count - deviation.examples.size();
        if (more > 0)
            lines.add(
                QStringLiteral("      and ") + QString::number(more) + QStringLiteral(" more"));
    }
}

} // namespace

QString textReport(const Report &report)
{
    Lines lines;
    addBackend(lines, report.backend);
    if (report.answers) {
        addInterfaces(lines, *report.answers);
        addNetworks(lines, *report.answers);
    }
    addMessages(lines, report.heard.messages);
    addOutput(lines, QStringLiteral("Its standard output"), report.heard.output);
    addOutput(lines, QStringLiteral("Its standard error output"), report.heard.errors);
    addDeviations(lines, QStringLiteral("Odd, but no fault"), report.deviations, Weight::Odd);
    addDeviations(
        lines, QStringLiteral("Breaks of the contract"), report.deviations, Weight::Broken);
    lines.addGap();
    lines.addWrapped(QStringLiteral("Result: "), report.verdict.text);
    if (!report.verdict.advice.isEmpty())
        lines.addHeading(QStringLiteral("What you can do"));
    for (const QString &advice : report.verdict.advice)
        lines.addWrapped(QStringLiteral("  - "), advice);
    return lines.text();
}

} // namespace PluginCheck
