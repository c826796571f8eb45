#include "graphs/signalstrengthdashboard.h"

#include "common/QtCommonTools.h"
#include "graphs/dashboardaccessible.h"
#include "graphs/dashboardgeometry.h"
#include "i18n/languagelabels.h"

#include <QAccessible>
#include <QPainter>

namespace
{
const int DefaultRadius = 120;
const int RimWidth = 7;
// Sixteenths of a degree, counter-clockwise from the right: all but the lowest 60°.
const int ArcStart = -960;
const int ArcSpan = 4800;
const QColor SlipColor(64, 48, 145);
const QColor FaceColor(215, 215, 215);
const QColor HubColor(240, 240, 240);
const int FirstShadowAlpha = 50;
const int WidestNumber = 32; // what the unit leaves

/// `font`, narrowed where `text` would be wider than `room` pixels.
QFont fitting(QFont font, const QString &text, int room)
{
    const int width = QFontMetrics(font).horizontalAdvance(text);
    if (width > room)
        font.setStretch(QFont::Unstretched * room / width);
    return font;
}

QColor shadowColor(int alpha)
{
    return {0, 0, 0, alpha};
}
} // namespace

// Never set back to null: there is no second gauge in a process.
SignalStrengthDashboard *SignalStrengthDashboard::m_pInstance = nullptr;

SignalStrengthDashboard *SignalStrengthDashboard::Instance(QWidget *parent)
{
    if (!m_pInstance)
        m_pInstance = new SignalStrengthDashboard(parent);
    return m_pInstance;
}

SignalStrengthDashboard::SignalStrengthDashboard(QWidget *parent)
    : QWidget(parent)
    , m_strUnit(QStringLiteral("dBm"))
    , m_iRadius(DefaultRadius)
{
    setAttribute(Qt::WA_StyledBackground);
    DashboardAccessible::install();
    setAccessibleName(LanguageLabels::m_strLangBoardSignalStrength);
    InitPaintValue();
    UpdateValueAccordingRadius();
}

void SignalStrengthDashboard::Init()
{
    m_iRadius = DefaultRadius;
    InitPaintValue();
    UpdateValueAccordingRadius();
}

void SignalStrengthDashboard::InitPaintValue()
{
    m_origin = QPoint(width() / 2 + 110, height() / 2 + 130);
    m_penRim.setWidth(RimWidth);
    m_penSlip.setWidth(4);
    m_penSlip.setColor(SlipColor);
    m_rectValue = QRect(m_origin.x() - 55, m_origin.y() + 22, 110, 30);
    m_iValue = 0;
    m_penTick.setColor(Qt::white);
    m_penTick.setWidth(7);
    m_penHand.setWidth(8);
    m_penLabel.setColor(Qt::black);
}

void SignalStrengthDashboard::SetOriginAndRadius(int r)
{
    m_iRadius = r;
    UpdateValueAccordingRadius();
}

void SignalStrengthDashboard::UpdateValueAccordingRadius()
{
    m_iDiameter = 2 * m_iRadius;
    m_iLeft = m_origin.x() - m_iRadius;
    m_iTop = m_origin.y() - m_iRadius;
}

void SignalStrengthDashboard::SetSignalValue(int v)
{
    m_iValue = m_bConnected ? v : 0;
    changed();
}

void SignalStrengthDashboard::onNetworkReturned(QString name)
{
    m_bConnected = !name.isEmpty();
    m_strNetwork = name;
    m_iValue = 0;
    changed();
}

void SignalStrengthDashboard::changed()
{
    update();
    // Like the picture, the spoken value waits for the event loop: a name is followed at once by
    // its signal, and the 0 between them is not worth telling.
    if (!m_bAnnouncePending) {
        m_bAnnouncePending = true;
        QMetaObject::invokeMethod(this, "announce", Qt::QueuedConnection);
    }
}

void SignalStrengthDashboard::announce()
{
    m_bAnnouncePending = false;
    if (m_strNetwork != m_strAnnouncedNetwork) {
        m_strAnnouncedNetwork = m_strNetwork;
        QAccessibleEvent event(this, QAccessible::DescriptionChanged);
        tell(event);
    }
    if (m_iValue != m_iAnnouncedValue) {
        m_iAnnouncedValue = m_iValue;
        QAccessibleValueChangeEvent event(this, m_iValue);
        tell(event);
    }
}

void SignalStrengthDashboard::tell(QAccessibleEvent &event)
{
    QAccessible::updateAccessibility(&event);
}

void SignalStrengthDashboard::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    DrawOutsideCircle(painter);
    DrawInsideCircle(painter);
    DrawContentInDashboard(painter);
}

void SignalStrengthDashboard::DrawOutsideCircle(QPainter &painter)
{
    DrawOutsideCircleShadow(painter);
    m_rect = QRect(m_iLeft, m_iTop, m_iDiameter, m_iDiameter);
    m_penRim.setColor(Qt::white);
    painter.setPen(m_penRim);
    painter.drawChord(m_rect, ArcStart, ArcSpan);
}

void SignalStrengthDashboard::DrawOutsideCircleShadow(QPainter &painter)
{
    int alpha = FirstShadowAlpha;
    for (int i = 0; i < 4; ++i) {
        m_rect = QRect(m_iLeft + i + 1, m_iTop + i + 1, m_iDiameter, m_iDiameter);
        m_penRim.setColor(shadowColor(alpha));
        painter.setPen(m_penRim);
        painter.drawChord(m_rect, ArcStart, ArcSpan);
        alpha = DashboardGeometry::shadowAlpha(100, i + 1);
    }
}

void SignalStrengthDashboard::DrawInsideCircle(QPainter &painter)
{
    const int size = m_iDiameter - 1 - 2 * RimWidth;
    m_rect = QRect(m_iLeft + RimWidth, m_iTop + RimWidth, size, size);
    m_penRim.setColor(Qt::black);
    painter.setPen(m_penRim);
    painter.setBrush(FaceColor);
    painter.drawChord(m_rect, ArcStart, ArcSpan);
}

void SignalStrengthDashboard::DrawContentInDashboard(QPainter &painter)
{
    const int angle = DashboardGeometry::handAngle(m_iValue);
    DrawPointerToTheSlip(painter, angle);
    DrawValueRect(painter);
    DrawScale(painter);
    DrawTxtFlagAndPercent(painter);
    DrawHandShadow(painter, angle);
    DrawHand(painter, angle);
}

void SignalStrengthDashboard::DrawPointerToTheSlip(QPainter &painter, int angle)
{
    const DashboardGeometry::Arc arc = DashboardGeometry::slipArc(m_iValue, angle);
    const int inset = 2 * RimWidth - 2;
    const int size = m_iDiameter + 4 - 4 * RimWidth;
    m_rect = QRect(m_iLeft + inset, m_iTop + inset, size, size);
    painter.setBrush(SlipColor);
    painter.setPen(m_penSlip);
    painter.drawPie(m_rect, arc.start * 16, arc.span * 16);
}

void SignalStrengthDashboard::DrawValueRect(QPainter &painter)
{
    painter.setBrush(Qt::black);
    painter.setPen(Qt::black);
    painter.drawRoundedRect(m_rectValue, 2., 2.);
    painter.setPen(Qt::white);
    QtCommonTools::SetFontSize(&painter, 12);
    const QFont font = painter.font();
    const QString number = DashboardGeometry::numberText(m_iValue);
    painter.setFont(fitting(font, number, WidestNumber));
    painter.drawText(m_rectValue.topLeft() + QPoint(25, 20), number);
    painter.setFont(font);
    painter.drawText(m_rectValue.topLeft() + QPoint(60, 20), m_strUnit);
}

void SignalStrengthDashboard::DrawScale(QPainter &painter)
{
    for (int tick = 0; tick < DashboardGeometry::TickCount; ++tick) {
        painter.setPen(m_penTick);
        painter.drawLine(DashboardGeometry::tickLine(m_origin, m_iRadius, tick));
        const auto texts = DashboardGeometry::scaleTexts(m_origin, m_iRadius, tick);
        for (const DashboardGeometry::ScaleText &text : texts) {
            m_penLabel.setColor(text.color);
            painter.setPen(m_penLabel);
            QtCommonTools::SetFontSize(&painter, text.pointSize);
            const QFont font = painter.font();
            painter.setFont(fitting(font, text.text, text.room));
            painter.drawText(text.position, text.text);
            painter.setFont(font);
        }
    }
}

void SignalStrengthDashboard::DrawTxtFlagAndPercent(QPainter &painter)
{
    const int bottom = m_rectValue.y() + m_rectValue.height();
    painter.setPen(Qt::black);
    QtCommonTools::SetFontSize(&painter, 11);
    painter.drawText(m_origin.x() - 55, bottom + 18, LanguageLabels::m_strLangBoardSignalStrength);
    painter.drawText(m_origin.x() - 10, bottom + 36, DashboardGeometry::percentText(m_iValue));
}

void SignalStrengthDashboard::DrawHandShadow(QPainter &painter, int angle)
{
    int alpha = FirstShadowAlpha;
    for (int i = 3; i <= 11 && alpha > 0; ++i) {
        m_rect = QRect(0, 0, 26, 26);
        m_rect.moveTopLeft(m_origin + DashboardGeometry::offsetAt(angle + 30, i) - QPoint(13, 13));
        painter.setPen(shadowColor(alpha));
        painter.setBrush(shadowColor(alpha));
        painter.drawEllipse(m_rect);
        alpha = DashboardGeometry::shadowAlpha(120, i);
    }

    alpha = FirstShadowAlpha;
    for (int width = 5; width < 15 && alpha > 0; ++width) {
        setHandPoints(angle, width, m_iRadius + 3);
        m_penHand.setColor(shadowColor(alpha));
        painter.setPen(m_penHand);
        painter.drawPolyline(m_handPoints, 3);
        alpha = DashboardGeometry::shadowAlpha(150, width);
    }
}

void SignalStrengthDashboard::DrawHand(QPainter &painter, int angle)
{
    setHandPoints(angle, 4., m_iRadius);
    m_penHand.setColor(Qt::white);
    painter.setPen(m_penHand);
    painter.drawPolyline(m_handPoints, 3);

    painter.setPen(HubColor);
    painter.setBrush(HubColor);
    m_rect = QRect(m_origin.x() - 14, m_origin.y() - 14, 28, 28);
    painter.drawEllipse(m_rect);
}

void SignalStrengthDashboard::setHandPoints(int angle, double width, int length)
{
    m_handPoints[0] = m_origin + DashboardGeometry::offsetAt(angle - 90, width);
    m_handPoints[1] = m_origin + DashboardGeometry::offsetAt(angle, length);
    m_handPoints[2] = m_origin + DashboardGeometry::offsetAt(angle + 90, width);
}
