#include "netlist/signalitems.h"

namespace
{
QString numberText(double value)
{
    return QString::number(value, 'g', 6);
}
} // namespace

BaseItem::BaseItem(const QString &text)
    : QStandardItem(text)
{
}

RssiChannelItem::RssiChannelItem(double value)
    : m_value(value)
{
    setTextAlignment(Qt::AlignCenter);
    setText(numberText(m_value));
}

void RssiChannelItem::setValue(double value)
{
    // Compared exactly: both are whole numbers.
    if (!(value < m_value) && !(value > m_value))
        return;
    m_value = value;
    setText(numberText(m_value));
}

StringItem::StringItem(const QString &value)
    : m_value(value)
{
    setTextAlignment(Qt::AlignCenter);
    setText(m_value);
}

void StringItem::setValue(const QString &value)
{
    m_value = value;
    setText(m_value);
}
