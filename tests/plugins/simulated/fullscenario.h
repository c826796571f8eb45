#ifndef AIRLUME_TESTS_SIMULATED_FULLSCENARIO_H
#define AIRLUME_TESTS_SIMULATED_FULLSCENARIO_H

#include <QByteArray>

/// A scenario file with every field there is.
inline const QByteArray fullFile = R"({
    "seed": 42, "time_scale": 60, "repeat": 120.5,
    "interfaces": [ { "name": "wlan0", "usable": false, "address": "02:00:00:00:00:aa" },
                    { "name": "wlan1" } ],
    "networks": [
        { "ssid": "Home", "bssid": "02:00:00:00:01:01", "channel": 44, "security": "WPA3-SAE",
          "walk": [ [0, -40], [10.5, -70], [20, -40] ], "wander": 1.5, "joined": true,
          "link_rate": 866, "from": 5, "until": 60, "raw": { "channel": "x", "extra": "", "ssid": null } },
        { "ssid": "", "bssid": "02:00:00:00:01:02", "channel": 233, "signal": -71.5 } ],
    "generate": { "count": 2, "prefix": "Net ", "security": "Open", "wander": 0, "from": 1, "until": 9 },
    "events": [ { "at": 30, "do": "fail", "query": "networks" },
                { "at": 10, "do": "join", "bssid": "02:00:00:00:01:02" },
                { "at": 11, "do": "attach", "interface": "wlan2" },
                { "at": 12, "do": "hear", "bssid": "02:00:00:00:01:03", "ssid": "New", "channel": 6005,
                  "security": "Open", "signal": -61, "raw": { "link_rate": "6", "ssid": null } },
                { "at": 13, "do": "order", "networks": ["02:00:00:00:01:03"], "interfaces": ["wlan2"] },
                { "at": 14, "do": "lose", "bssid": "02:00:00:00:01:03" } ] })";

#endif
