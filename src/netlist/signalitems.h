#ifndef AIRLUME_NETLIST_SIGNALITEMS_H
#define AIRLUME_NETLIST_SIGNALITEMS_H

#include <QStandardItem>

/// Base of the cells that hold a typed value.
class BaseItem : public QStandardItem
{
public:
    BaseItem() = default;
    explicit BaseItem(const QString &text);
};

/// A cell that shows a number, centred: a signal in dBm or a channel.
class RssiChannelItem : public BaseItem
{
public:
    explicit RssiChannelItem(double value);
    /// Shows `value`; nothing happens when it is shown already.
    void setValue(double value);

private:
    double m_value;
};

/// A cell that shows a text, centred.
class StringItem : public BaseItem
{
public:
    explicit StringItem(const QString &value);
    /// Shows `value`.
    void setValue(const QString &value);

private:
    QString m_value;
};

#endif
