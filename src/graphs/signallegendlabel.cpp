#include "graphs/signallegendlabel.h"

#include "common/QtCommonTools.h"
#include "common/airtext.h"
#include "graphs/networkname.h"
#include "i18n/languagelabels.h"

#include <QFontMetrics>
#include <QHelpEvent>
#include <QToolTip>

namespace
{
const int WidestName = 32; // average characters; the length of the longest ordinary name
} // namespace

SignalLegendLabel::SignalLegendLabel(QWidget *parent)
    : QwtLegendLabel(parent)
{
}

void SignalLegendLabel::setAccessPoint(const QString &bssid, int channel)
{
    m_bssid = bssid;
    m_channel = channel;
}

void SignalLegendLabel::setText(const QwtText &text)
{
    m_name = text.text();
    QwtText shown = text;
    shown.setText(displayName(text.text()), QwtText::PlainText);
    QwtLegendLabel::setText(shown);
}

QSize SignalLegendLabel::sizeHint() const
{
    return bounded(QwtLegendLabel::sizeHint());
}

QSize SignalLegendLabel::minimumSizeHint() const
{
    return bounded(QwtLegendLabel::minimumSizeHint());
}

bool SignalLegendLabel::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QwtLegendLabel::event(event);
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), toolTipText(), this);
    return true;
}

/// In the language of the moment, under the names of the list's columns.
QString SignalLegendLabel::toolTipText() const
{
    const QString entry = QStringLiteral("%1: %2");
    return AirText::ForToolTip(
        {m_name, entry.arg(QtCommonTools::tr(LanguageLabels::m_strLangHeadMac), m_bssid),
            entry.arg(QtCommonTools::tr(LanguageLabels::m_strLangHeadChannel),
                QString::number(m_channel))});
}

QSize SignalLegendLabel::bounded(const QSize &size) const
{
    return {qMin(size.width(), WidestName * fontMetrics().averageCharWidth()), size.height()};
}

void SignalLegendLabel::drawText(QPainter *painter, const QRectF &rect)
{
    QwtText shown = text();
    shown.setText(
        fontMetrics().elidedText(shown.text(), Qt::ElideRight, static_cast<int>(rect.width()) + 1),
        QwtText::PlainText);
    shown.draw(painter, rect);
}
