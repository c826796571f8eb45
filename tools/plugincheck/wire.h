#ifndef AIRLUME_PLUGINCHECK_WIRE_H
#define AIRLUME_PLUGINCHECK_WIRE_H

#include "answers.h"
#include "backendloader.h"

#include <QByteArray>
#include <QDataStream>

/// How the process that runs the back end tells the one that judges it what it found.
namespace PluginCheck
{

/// What of the back end is being run.
enum class Call : quint8 {
    None,
    Loading,
    GetWiFiNicList,
    IsWiFiNicUsable,
    GetVisiableNetworkMapList,
    Ending, ///< Of the process, in order.
};

/// "getWiFiNicList()" and the like; "Loading it" and so on for the others.
QString nameOf(Call call);

/// One Qt message of the back end (or of Qt about it).
struct Message {
    QString level; ///< "debug", "info", "warning", "critical" or "fatal".
    QString text;
};

/// What a parcel holds.
enum class Parcel : quint8 { CallBegins, BackendKnown, Said, Answered, Thrown };

QDataStream &operator<<(QDataStream &stream, const Message &message);
QDataStream &operator>>(QDataStream &stream, Message &message);
QDataStream &operator<<(QDataStream &stream, const Backend &backend);
QDataStream &operator>>(QDataStream &stream, Backend &backend);
QDataStream &operator<<(QDataStream &stream, const Answers &answers);
QDataStream &operator>>(QDataStream &stream, Answers &answers);

/// The octets of a parcel. Its ends are marked, so that what the back end writes in between by
/// mistake is told apart.
QByteArray sealed(const QByteArray &content);

template <typename Value> QByteArray parcel(Parcel kind, const Value &value)
{
    QByteArray content;
    QDataStream stream(&content, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_15);
    stream << kind << value;
    return sealed(content);
}

/// Cuts what arrives into parcels.
class Unpacker
{
public:
    void add(const QByteArray &octets) { m_octets += octets; }
    /// The content of the next whole parcel, or nothing.
    std::optional<QByteArray> next();
    /// Something else than parcels arrived. No more of them come then.
    bool isSpoilt() const { return m_spoilt; }

private:
    QByteArray m_octets;
    bool m_spoilt = false;
};

/// Status of a process whose way to the judge was cut.
constexpr int CutOff = 93;

} // namespace PluginCheck

#endif
