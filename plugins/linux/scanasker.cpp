#include "linux/scanasker.h"

#include "linux/connman.h"
#include "linux/iwd.h"
#include "linux/networkmanager.h"
#include "linux/wpasupplicant.h"

namespace LinuxWifi
{

using Result = ScanAnswer::Result;

ScanAsker::ScanAsker(const Settings &settings, Answered answered, QObject *parent)
    : QObject(parent)
    , m_answered(std::move(answered))
    , m_bus(settings.addresses, settings.patience.callMs)
{
    // NetworkManager has one of the next two work for it, and both know the interface then.
    m_managers.push_back(std::make_unique<NetworkManager>(m_bus, settings.patience));
    m_managers.push_back(std::make_unique<Iwd>(m_bus, settings.patience));
    m_managers.push_back(std::make_unique<WpaSupplicant>(m_bus, settings.patience));
    m_managers.push_back(std::make_unique<ConnMan>(m_bus, settings.patience));
    for (const auto &manager : m_managers)
        m_bus.watch(manager->service());
    connect(&m_bus, &SystemBus::opened, this, &ScanAsker::onOpened);
    connect(&m_bus, &SystemBus::failed, this, [this](const QString &reason) {
        finish({Result::NoBus, reason, Manager::Nobody});
    });
    connect(&m_bus, &SystemBus::appeared, this, [this] {
        if (m_refused)
            m_settling.start();
    });
    m_settling.setSingleShot(true);
    m_settling.setInterval(settings.settleMs);
    connect(&m_settling, &QTimer::timeout, this, [this] { ask(m_interface); });
}

ScanAsker::~ScanAsker() = default;

void ScanAsker::ask(const QString &interface)
{
    if (m_asking)
        return;
    m_asking = true;
    m_settling.stop();
    m_interface = interface;
    m_bus.open();
}

void ScanAsker::onOpened()
{
    m_next = 0;
    m_first = Manager::Nobody;
    m_denial.reset();
    askNext();
}

void ScanAsker::askNext()
{
    while (m_next < m_managers.size()) {
        WifiManager &manager = *m_managers[m_next++];
        if (!m_bus.has(manager.service()))
            continue;
        if (m_first == Manager::Nobody)
            m_first = manager.manager();
        manager.find(m_interface, this,
            [this, &manager](const Finding &finding) { onFound(manager, finding); });
        return;
    }
    if (m_denial)
        finish(*m_denial);
    else
        finish({m_first == Manager::Nobody ? Result::NoService : Result::NoInterface, {}, m_first});
}

void ScanAsker::onFound(WifiManager &manager, const Finding &finding)
{
    switch (finding.state) {
    case Finding::State::Managed:
        manager.scan(finding.object, this, [this](const ScanAnswer &answer) { finish(answer); });
        break;
    case Finding::State::Unknown:
        askNext();
        break;
    case Finding::State::Refused:
        // Whom the bus keeps from asking, it also keeps from knowing whether to ask another one.
        if (finding.refusal.result == Result::NotPermitted) {
            if (!m_denial)
                m_denial = finding.refusal;
            askNext();
        } else {
            finish(finding.refusal);
        }
        break;
    }
}

void ScanAsker::finish(const ScanAnswer &answer)
{
    m_asking = false;
    m_refused = answer.result != Result::Accepted;
    m_answered(answer);
}

} // namespace LinuxWifi
