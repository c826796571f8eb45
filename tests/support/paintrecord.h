#ifndef AIRLUME_TESTS_SUPPORT_PAINTRECORD_H
#define AIRLUME_TESTS_SUPPORT_PAINTRECORD_H

#include <QBrush>
#include <QFont>
#include <QPaintDevice>
#include <QPainterPath>
#include <QPen>
#include <QVector>
#include <memory>

/// What one call of a painter drew: a shape or a text, in device coordinates.
struct PaintStep {
    QPainterPath shape;
    QString text;
    QPointF position;  ///< Left end of the text's base line.
    QRectF textBounds; ///< From the top of the tallest letter to the bottom of the deepest.
    QFont font;
    QPen pen;
    QBrush brush; ///< None for what cannot be filled.
};

/// A paint device that writes down what is drawn on it instead of drawing it. Unlike in a picture,
/// nothing in the record depends on which fonts there are but the width of the texts.
class PaintRecord : public QPaintDevice
{
public:
    explicit PaintRecord(const QSize &size);
    ~PaintRecord() override;

    QPaintEngine *paintEngine() const override;

    /// What was drawn, first things first.
    const QVector<PaintStep> &steps() const;
    /// Only the texts of it.
    QVector<PaintStep> texts() const;

protected:
    int metric(PaintDeviceMetric metric) const override;

private:
    class Engine;

    QSize m_size;
    std::unique_ptr<Engine> m_engine;
};

#endif
