#include "flows/screenreader.h"

#include "flows/airlumeprocess.h"
#include "flows/desktop.h"

#include <QJsonDocument>

#include <algorithm>

namespace
{
const int AnswerTimeoutMs = 60000;

SpokenNode nodeOf(const QJsonObject &json)
{
    SpokenNode node;
    node.role = json[QStringLiteral("role")].toString();
    node.name = json[QStringLiteral("name")].toString();
    node.description = json[QStringLiteral("description")].toString();
    node.value = json[QStringLiteral("value")].toDouble();
    node.states = json[QStringLiteral("states")].toVariant().toStringList();
    const QJsonArray children = json[QStringLiteral("children")].toArray();
    for (const QJsonValue &child : children)
        node.children.append(nodeOf(child.toObject()));
    return node;
}
} // namespace

QVector<const SpokenNode *> SpokenNode::all() const
{
    QVector<const SpokenNode *> found{this};
    for (const SpokenNode &child : children)
        found += child.all();
    return found;
}

const SpokenNode *SpokenNode::find(const QString &wanted, const QString &called) const
{
    const QVector<const SpokenNode *> nodes = all();
    const auto found = std::find_if(nodes.cbegin(), nodes.cend(), [&](const SpokenNode *node) {
        return node->role == wanted && (called.isEmpty() || node->name == called);
    });
    return found == nodes.cend() ? nullptr : *found;
}

ScreenReader::~ScreenReader()
{
    m_process.closeWriteChannel();
    if (m_process.state() != QProcess::NotRunning && !m_process.waitForFinished(AnswerTimeoutMs))
        m_process.kill();
    m_process.waitForFinished();
}

bool ScreenReader::start(const Desktop &desktop, QString *error)
{
    *error = QStringLiteral("dbus-daemon is not installed");
    if (!m_bus.start())
        return false;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), m_bus.address());
    environment.insert(QStringLiteral("DISPLAY"), desktop.display());
    // Always what the program says now, not what it said when it was asked first.
    environment.insert(QStringLiteral("ATSPI_NO_CACHE"), QStringLiteral("1"));
    m_process.setProcessEnvironment(environment);
    // Debian's own, for which the bindings are installed.
    m_process.start(QStringLiteral("/usr/bin/python3"),
        {QStringLiteral(AIRLUME_SOURCE_DIR "/tests/flows/screenreader.py")});
    const QJsonObject first = read("listening");
    *error = first[QStringLiteral("missing")].toString();
    if (first.isEmpty())
        *error = QStringLiteral("No accessibility bus: ") +
                 QString::fromUtf8(m_process.readAllStandardError());
    return first[QStringLiteral("listening")].toBool();
}

void ScreenReader::hear(AirlumeProcess *program) const
{
    program->setEnvironment(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), m_bus.address());
    program->setEnvironment(
        QStringLiteral("QT_LINUX_ACCESSIBILITY_ALWAYS_ON"), QStringLiteral("1"));
}

SpokenNode ScreenReader::tree()
{
    return nodeOf(ask({{QStringLiteral("tree"), true}}, "tree")[QStringLiteral("tree")].toObject());
}

bool ScreenReader::act(const QString &action, const QString &role, const QString &name)
{
    const QJsonObject question{{QStringLiteral("do"), action}, {QStringLiteral("role"), role},
        {QStringLiteral("name"), name}};
    return ask(question, "done")[QStringLiteral("done")].toBool();
}

int ScreenReader::events(const QString &type, const QString &role)
{
    // What came before the answer has been heard.
    tree();
    return static_cast<int>(
        std::count_if(m_events.cbegin(), m_events.cend(), [&](const QJsonObject &event) {
            return event[QStringLiteral("event")].toString().contains(type) &&
                   (role.isEmpty() || event[QStringLiteral("role")].toString() == role);
        }));
}

QJsonObject ScreenReader::ask(const QJsonObject &question, const char *answer)
{
    m_process.write(QJsonDocument(question).toJson(QJsonDocument::Compact) + '\n');
    return read(answer);
}

/// The next line that has `wanted`, or says what is missing; empty when there is none.
QJsonObject ScreenReader::read(const char *wanted)
{
    for (;;) {
        while (!m_process.canReadLine()) {
            if (!m_process.waitForReadyRead(AnswerTimeoutMs))
                return {};
        }
        const QJsonObject line = QJsonDocument::fromJson(m_process.readLine()).object();
        if (line.contains(QLatin1String(wanted)) || line.contains(QLatin1String("missing")))
            return line;
        if (line.contains(QLatin1String("event")))
            m_events.append(line);
    }
}
