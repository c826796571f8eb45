#ifndef AIRLUME_TESTS_SUPPORT_BACKENDS_OTHERPLUGIN_H
#define AIRLUME_TESTS_SUPPORT_BACKENDS_OTHERPLUGIN_H

#include <QObject>
#include <QtPlugin>

/// Any interface that is not Airlume's.
class OtherInterface
{
public:
    virtual ~OtherInterface() = default;
    virtual int answer() const = 0;
};

#define OtherInterface_iid "org.example.Other/1.0"
Q_DECLARE_INTERFACE(OtherInterface, OtherInterface_iid)

/// A faultless plug-in for another program.
class OtherPlugin : public QObject, public OtherInterface
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID OtherInterface_iid)
    Q_INTERFACES(OtherInterface)

public:
    int answer() const override;

protected:
    /// Never called by Qt here, and in the place where a back end lists its interfaces: whoever
    /// takes this for one without asking what it is comes here.
    void connectNotify(const QMetaMethod &signal) override;
};

#endif
