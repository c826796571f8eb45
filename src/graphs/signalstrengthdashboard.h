#ifndef AIRLUME_GRAPHS_SIGNALSTRENGTHDASHBOARD_H
#define AIRLUME_GRAPHS_SIGNALSTRENGTHDASHBOARD_H

#include <QPen>
#include <QPoint>
#include <QRect>
#include <QString>
#include <QWidget>

class QAccessibleEvent;

/// The gauge: a speedometer that shows the signal of the joined network.
///
/// There is one in a process, made by the first Instance(). Its dial stands where the widget's size
/// at construction puts it and does not follow later sizes. GUI thread only.
class SignalStrengthDashboard : public QWidget
{
    Q_OBJECT

public:
    /// The gauge; the first call creates it as a child of `parent`, later calls ignore `parent`.
    /// Must not be called after the gauge was deleted: the process ends with its window.
    static SignalStrengthDashboard *Instance(QWidget *parent);

    /// Sets everything back to the start, for the widget's current size.
    void Init();
    /// Sets everything but the radius and what follows from it, for the widget's current size.
    void InitPaintValue();
    /// Sets the radius in pixels. Leaves the origin alone in spite of its name.
    void SetOriginAndRadius(int r);
    /// Computes what follows from origin and radius.
    void UpdateValueAccordingRadius();

    /// The signal shown, in dBm; 0 when there is none.
    int SignalValue() const { return m_iValue; }
    /// True while the computer is joined to a network.
    bool IsConnected() const { return m_bConnected; }
    /// Name of the joined network; empty when there is none.
    const QString &NetworkName() const { return m_strNetwork; }

public slots:
    /// Shows `v` dBm; without a joined network, 0.
    void SetSignalValue(int v);
    /// Takes the name of the joined network, empty for none; the signal becomes 0 until the next
    /// SetSignalValue().
    void onNetworkReturned(QString name);

protected:
    explicit SignalStrengthDashboard(QWidget *parent);

    void paintEvent(QPaintEvent *event) override;
    /// Hands `event` to assistive technology.
    virtual void tell(QAccessibleEvent &event);

private slots:
    void announce();

private:
    void DrawOutsideCircle(QPainter &painter);
    void DrawOutsideCircleShadow(QPainter &painter);
    void DrawInsideCircle(QPainter &painter);
    void DrawContentInDashboard(QPainter &painter);
    void DrawPointerToTheSlip(QPainter &painter, int angle);
    void DrawValueRect(QPainter &painter);
    void DrawScale(QPainter &painter);
    void DrawTxtFlagAndPercent(QPainter &painter);
    void DrawHandShadow(QPainter &painter, int angle);
    void DrawHand(QPainter &painter, int angle);

    void setHandPoints(int angle, double width, int length);
    void changed();

    static SignalStrengthDashboard *m_pInstance;

    QString m_strUnit;
    QPen m_penRim;
    QPen m_penSlip;
    QPen m_penHand;
    QPen m_penTick;
    QPen m_penLabel;
    QRect m_rect; ///< Work area of the drawing steps.
    QPoint m_origin;
    int m_iRadius;
    int m_iDiameter = 0;
    int m_iLeft = 0;
    int m_iTop = 0;
    QRect m_rectValue;
    int m_iValue = 0;
    QPoint m_handPoints[3];
    bool m_bConnected = false;

    QString m_strNetwork;
    // What assistive technology was last told.
    bool m_bAnnouncePending = false;
    int m_iAnnouncedValue = 0;
    QString m_strAnnouncedNetwork;
};

#endif
