#ifndef AIRLUME_TESTS_SIMULATED_SCENARIOPAGES_H
#define AIRLUME_TESTS_SIMULATED_SCENARIOPAGES_H

#include <QMap>
#include <QStringList>
#include <QVector>

/// The two pages that describe scenario files.
inline const char *const ScenarioDocument = "docs/plugins.md";
inline const char *const ScenarioManual = "packaging/airlume-scenario.5.in";

/// The fields, or the things that may happen, that a page tells of together.
struct ScenarioEntry {
    QStringList names;
    QString text;
};

/// A page with plain signs and powers ("-60", "2^53"), and what it tells of each kind of object.
struct ScenarioPage {
    QString text;
    /// By the title of the section: the rows of its tables, or the items of its lists.
    QMap<QString, QVector<ScenarioEntry>> sections;
};

ScenarioPage ReadDocument();
ScenarioPage ReadManual();

/// A file of the repository.
QString ReadSource(const char *path);

/// What the pattern's group captures, over and over.
QStringList Captures(const QString &text, const char *pattern);

/// What the entries tell of `field`; empty when they do not.
QString TextOf(const QVector<ScenarioEntry> &entries, const QString &field);

#endif
