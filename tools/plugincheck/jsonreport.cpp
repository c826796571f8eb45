#include "report.h"

#include "contract.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace PluginCheck
{

namespace
{

/// Raised when a program that reads the report would have to change.
constexpr int Format = 1;

QJsonValue textOrNull(const QString &text)
{
    return text.isEmpty() ? QJsonValue(QJsonValue::Null) : QJsonValue(text);
}

QJsonObject backendObject(const Backend &backend)
{
    return {
        {QStringLiteral("path"), textOrNull(backend.path)},
        {QStringLiteral("interface"), textOrNull(backend.interfaceId)},
        {QStringLiteral("class"), textOrNull(backend.className)},
        {QStringLiteral("qt"), textOrNull(backend.qtVersion)},
    };
}

QJsonArray interfaceArray(const Answers &answers)
{
    const int chosen = readInterface(answers);
    QJsonArray array;
    for (int i = 0; i < answers.interfaces.size(); ++i) {
        array.append(QJsonObject{
            {QStringLiteral("name"), answers.interfaces.at(i)},
            {QStringLiteral("usable"), answers.usable.value(i)},
            {QStringLiteral("chosen"), i == chosen},
        });
    }
    return array;
}

QJsonArray networkArray(const QList<ScanMap> &networks)
{
    QJsonArray array;
    for (const ScanMap &network : networks) {
        QJsonObject object;
        for (auto value = network.cbegin(); value != network.cend(); ++value)
            object.insert(value.key(), value.value());
        array.append(object);
    }
    return array;
}

QJsonValue timeOrNull(double time)
{
    return time < 0 ? QJsonValue(QJsonValue::Null) : QJsonValue(time);
}

QJsonObject timesObject(const Answers &answers)
{
    return {
        {QStringLiteral("getWiFiNicList"), timeOrNull(answers.listTime)},
        {QStringLiteral("isWiFiNicUsable"), timeOrNull(answers.usableTime)},
        {QStringLiteral("getVisiableNetworkMapList"), timeOrNull(answers.queryTime)},
    };
}

QJsonArray messageArray(const QVector<Message> &messages)
{
    QJsonArray array;
    for (const Message &message : messages) {
        array.append(QJsonObject{
            {QStringLiteral("level"), message.level},
            {QStringLiteral("text"), message.text},
        });
    }
    return array;
}

QJsonValue outputOrNull(const QByteArray &output)
{
    return textOrNull(QString::fromUtf8(output));
}

QJsonArray deviationArray(const Deviations &deviations)
{
    QJsonArray array;
    for (const Deviation &deviation : deviations.list()) {
        array.append(QJsonObject{
            {QStringLiteral("code"), deviation.code},
            {QStringLiteral("kind"), deviation.weight == Weight::Broken ? QStringLiteral("broken")
                                                                        : QStringLiteral("odd")},
            {QStringLiteral("rule"), deviation.rule},
            {QStringLiteral("count"), deviation.count},
            {QStringLiteral("examples"), QJsonArray::fromStringList(deviation.examples)},
        });
    }
    return array;
}

QString resultName(const Report &report)
{
    if (!report.backend.problem.code.isEmpty())
        return QStringLiteral("no-answers");
    switch (report.verdict.outcome) {
    case Outcome::Heard:
        return QStringLiteral("heard");
    case Outcome::NothingHeard:
        return QStringLiteral("nothing-heard");
    case Outcome::Broken:
        break;
    }
    return QStringLiteral("out-of-contract");
}

QString reasonName(const Report &report)
{
    return report.backend.problem.code.isEmpty() ? report.verdict.reason
                                                 : report.backend.problem.code;
}

/// Everything outside printable ASCII as \uNNNN. Such characters stand only inside the document's
/// strings, and JSON itself leaves DEL, C1 controls and bidirectional marks as they are.
QByteArray asciiJson(const QJsonObject &object)
{
    const QString json = QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
    QByteArray ascii;
    ascii.reserve(json.size());
    for (const QChar unit : json) {
        if (unit.unicode() < 0x7f) {
            ascii += unit.toLatin1();
        } else {
            ascii += "\\u" + QByteArray::number(unit.unicode(), 16).rightJustified(4, '0');
        }
    }
    return ascii;
}

} // namespace

QByteArray jsonReport(const Report &report)
{
    const Answers answers = report.answers.value_or(Answers());
    return asciiJson({
        {QStringLiteral("format"), Format},
        {QStringLiteral("round"), report.round},
        {QStringLiteral("time"), report.time.toString(Qt::ISODateWithMs)},
        {QStringLiteral("backend"), backendObject(report.backend)},
        {QStringLiteral("listed"), report.answers ? QJsonValue(answers.listed) : QJsonValue()},
        {QStringLiteral("interfaces"), interfaceArray(answers)},
        {QStringLiteral("queried"), answers.queried ? QJsonValue(*answers.queried) : QJsonValue()},
        {QStringLiteral("networks"), networkArray(answers.networks)},
        {QStringLiteral("times"), timesObject(answers)},
        {QStringLiteral("messages"), messageArray(report.heard.messages)},
        {QStringLiteral("stdout"), outputOrNull(report.heard.output)},
        {QStringLiteral("stderr"), outputOrNull(report.heard.errors)},
        {QStringLiteral("deviations"), deviationArray(report.deviations)},
        {QStringLiteral("result"), resultName(report)},
        {QStringLiteral("reason"), textOrNull(reasonName(report))},
        {QStringLiteral("text"), report.verdict.text},
        {QStringLiteral("advice"), QJsonArray::fromStringList(report.verdict.advice)},
        {QStringLiteral("status"), static_cast<int>(report.verdict.outcome)},
    });
}

} // namespace PluginCheck
