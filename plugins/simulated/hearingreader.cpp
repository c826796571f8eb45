#include "simulated/hearingreader.h"

namespace
{
const QLatin1String ssidKey("ssid");
const QLatin1String securityKey("security");
const QLatin1String channelKey("channel");
const QLatin1String signalKey("signal");
const QLatin1String rawKey("raw");
} // namespace

ScenarioHearing ReadHearing(const JsonFields &fields, ScenarioError *error)
{
    ScenarioHearing hearing;
    if (fields.has(ssidKey))
        hearing.ssid = fields.text(ssidKey);
    if (fields.has(securityKey))
        hearing.security = fields.text(securityKey);
    if (fields.has(channelKey)) {
        const int channel = static_cast<int>(fields.whole(channelKey, 1, 6233, 1));
        if (channel > 233 && channel <= 6000)
            fields.report(channelKey, QStringLiteral("must be 1 to 233, or 6001 to 6233"));
        hearing.channel = channel;
    }
    if (fields.has(signalKey))
        hearing.signal = fields.number(signalKey, -100.0, 0.0, 0.0);
    hearing.hasRaw = fields.has(rawKey);
    ReadRawTexts(fields, &hearing.raw, &hearing.missing, error);
    return hearing;
}

void ReadRawTexts(const JsonFields &fields, QMap<QString, QString> *texts, QStringList *missing,
    ScenarioError *error)
{
    const QJsonObject raw = fields.object(rawKey);
    for (auto it = raw.begin(); it != raw.end(); ++it) {
        if (!it.value().isString() && !it.value().isNull()) {
            error->report(fields.path(QStringLiteral("raw.") + it.key().left(40)),
                QStringLiteral("must be a text, or null to leave the key out, not ") +
                    ValueText(it.value()));
            return;
        }
        if (it.value().isNull())
            missing->append(it.key());
        else
            texts->insert(it.key(), it.value().toString());
    }
}
