#include "linux/scanlistener.h"

#include <QSocketNotifier>

#include <cerrno>

namespace LinuxWifi
{

ScanListener::ScanListener(WifiKernel &kernel, ScanLog &log, Clock clock, QObject *parent)
    : QObject(parent)
    , m_kernel(kernel)
    , m_log(log)
    , m_clock(std::move(clock))
    , m_group("nl80211", "scan")
{
}

ScanListener::~ScanListener() = default;

bool ScanListener::open()
{
    if (m_group.open() != 0)
        return false;
    m_notifier = new QSocketNotifier(m_group.descriptor(), QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &ScanListener::receive);
    return true;
}

void ScanListener::receive()
{
    const int error = m_group.receive([this](nlmsghdr *message) {
        if (const std::optional<ScanNotice> notice = parseScanNotice(message))
            this->notice(*notice);
    });
    if (error)
        lost();
    if (error && error != ENOBUFS) {
        m_notifier->setEnabled(false);
        m_group.close();
        emit failed();
    }
}

void ScanListener::notice(const ScanNotice &notice)
{
    switch (notice.kind) {
    case ScanNotice::Kind::Started:
        m_log.started(notice.index, m_clock());
        break;
    case ScanNotice::Kind::Aborted:
        m_log.aborted(notice.index);
        break;
    case ScanNotice::Kind::Finished:
        m_log.finished(notice, readList(notice.index), m_clock());
        break;
    }
}

void ScanListener::lost()
{
    m_log.lost(readList(m_log.watched()), m_clock());
}

std::optional<QVector<AccessPoint>> ScanListener::readList(int index)
{
    QVector<AccessPoint> list;
    if (index == 0 || index != m_log.watched() || m_kernel.accessPoints(index, list) != 0)
        return std::nullopt;
    return list;
}

} // namespace LinuxWifi
