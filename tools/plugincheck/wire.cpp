#include "wire.h"

#include <QtEndian>

namespace PluginCheck
{

namespace
{

constexpr char Mark[] = "\xf5"
                        "Airlume";
constexpr int MarkLength = sizeof Mark - 1;
constexpr int HeadLength = MarkLength + 4;

/// Enum values travel as numbers, anything else as Qt sends it.
QDataStream &operator<<(QDataStream &stream, const Deviations &deviations)
{
    stream << deviations.list().size();
    for (const Deviation &each : deviations.list())
        stream << static_cast<quint8>(each.weight) << each.code << each.rule
               << each.examples.value(0);
    return stream;
}

QDataStream &operator>>(QDataStream &stream, Deviations &deviations)
{
    int size = 0;
    stream >> size;
    for (int i = 0; i < size && stream.status() == QDataStream::Ok; ++i) {
        quint8 weight = 0;
        QString code;
        QString rule;
        QString example;
        stream >> weight >> code >> rule >> example;
        deviations.add(static_cast<Weight>(weight), code, rule, example);
    }
    return stream;
}

template <typename Value>
QDataStream &operator<<(QDataStream &stream, const std::optional<Value> &value)
{
    stream << value.has_value();
    return value ? stream << *value : stream;
}

template <typename Value> QDataStream &operator>>(QDataStream &stream, std::optional<Value> &value)
{
    bool has = false;
    stream >> has;
    if (has)
        stream >> value.emplace();
    return stream;
}

} // namespace

QString nameOf(Call call)
{
    switch (call) {
    case Call::GetWiFiNicList:
        return QStringLiteral("getWiFiNicList()");
    case Call::IsWiFiNicUsable:
        return QStringLiteral("isWiFiNicUsable()");
    case Call::GetVisiableNetworkMapList:
        return QStringLiteral("getVisiableNetworkMapList()");
    case Call::Ending:
        return QStringLiteral("Its end");
    case Call::Loading:
        return QStringLiteral("Loading it");
    case Call::None:
        break;
    }
    return QStringLiteral("It, between two calls,");
}

QDataStream &operator<<(QDataStream &stream, const Message &message)
{
    return stream << message.level << message.text;
}

QDataStream &operator>>(QDataStream &stream, Message &message)
{
    return stream >> message.level >> message.text;
}

QDataStream &operator<<(QDataStream &stream, const Backend &backend)
{
    return stream << backend.path << backend.interfaceId << backend.className << backend.qtVersion
                  << backend.isWhole << backend.deviations << backend.problem.code
                  << backend.problem.text << backend.problem.advice;
}

QDataStream &operator>>(QDataStream &stream, Backend &backend)
{
    return stream >> backend.path >> backend.interfaceId >> backend.className >>
           backend.qtVersion >> backend.isWhole >> backend.deviations >> backend.problem.code >>
           backend.problem.text >> backend.problem.advice;
}

QDataStream &operator<<(QDataStream &stream, const Answers &answers)
{
    return stream << answers.at << answers.listed << answers.interfaces << answers.usable
                  << answers.queried << answers.networks << answers.networksAgain
                  << answers.interfacesAgain << answers.needsName << answers.alike
                  << answers.listTime << answers.usableTime << answers.queryTime;
}

QDataStream &operator>>(QDataStream &stream, Answers &answers)
{
    return stream >> answers.at >> answers.listed >> answers.interfaces >> answers.usable >>
           answers.queried >> answers.networks >> answers.networksAgain >>
           answers.interfacesAgain >> answers.needsName >> answers.alike >> answers.listTime >>
           answers.usableTime >> answers.queryTime;
}

QByteArray sealed(const QByteArray &content)
{
    char length[4];
    qToBigEndian(static_cast<quint32>(content.size()), length);
    return QByteArray(Mark, MarkLength) + QByteArray(length, 4) + content +
           QByteArray(Mark, MarkLength);
}

std::optional<QByteArray> Unpacker::next()
{
    const QByteArray mark = QByteArray::fromRawData(Mark, MarkLength);
    m_spoilt = m_spoilt || !mark.startsWith(m_octets.left(MarkLength));
    if (m_spoilt || m_octets.size() < HeadLength)
        return std::nullopt;
    const qint64 length = qFromBigEndian<quint32>(m_octets.constData() + MarkLength);
    const qint64 whole = HeadLength + length + MarkLength;
    // More than a byte array can hold: nobody sent that.
    m_spoilt = whole > std::numeric_limits<int>::max() / 2;
    if (m_spoilt || m_octets.size() < whole)
        return std::nullopt;
    m_spoilt = m_octets.mid(HeadLength + static_cast<int>(length), MarkLength) != mark;
    if (m_spoilt)
        return std::nullopt;
    const QByteArray content = m_octets.mid(HeadLength, static_cast<int>(length));
    m_octets.remove(0, static_cast<int>(whole));
    return content;
}

} // namespace PluginCheck
