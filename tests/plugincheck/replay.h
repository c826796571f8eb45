#ifndef AIRLUME_TESTS_PLUGINCHECK_REPLAY_H
#define AIRLUME_TESTS_PLUGINCHECK_REPLAY_H

#include "plugincheck/answers.h"

#include <QByteArray>
#include <QVector>

/// The content of a file; empty when it cannot be read.
QByteArray readAll(const QString &path);

/// The record of such answers, one a second.
QByteArray recordOf(const QVector<PluginCheck::Answers> &rounds);

/// What the simulated back end makes of a record, asked every second. Ends the test when it does
/// not take the record.
QVector<PluginCheck::Answers> replayed(const QByteArray &record, int seconds);

#endif
