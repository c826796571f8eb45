#include "linux/problemreporter.h"

namespace LinuxWifi
{

ProblemReporter::ProblemReporter(Sink sink)
    : m_sink(std::move(sink))
{
}

void ProblemReporter::report(Topic topic, const QString &text)
{
    if (m_reported.value(topic) == text)
        return;
    m_reported.insert(topic, text);
    m_sink(text);
}

void ProblemReporter::resolved(Topic topic)
{
    m_reported.remove(topic);
}

} // namespace LinuxWifi
