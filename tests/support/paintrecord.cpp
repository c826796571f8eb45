#include "support/paintrecord.h"

#include <QGuiApplication>
#include <QPaintEngine>
#include <QScreen>
#include <algorithm>
#include <iterator>

class PaintRecord::Engine : public QPaintEngine
{
public:
    // With all features Qt hands every call on as it comes.
    Engine()
        : QPaintEngine(AllFeatures)
    {
    }

    bool begin(QPaintDevice *) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState &) override {}
    Type type() const override { return User; }

    using QPaintEngine::drawEllipse;
    using QPaintEngine::drawLines;
    using QPaintEngine::drawPolygon;
    using QPaintEngine::drawRects;

    void drawPath(const QPainterPath &path) override { add(path, state->brush()); }
    void drawRects(const QRectF *rects, int count) override
    {
        for (int i = 0; i < count; ++i) {
            QPainterPath path;
            path.addRect(rects[i]);
            add(path, state->brush());
        }
    }
    void drawLines(const QLineF *lines, int count) override
    {
        for (int i = 0; i < count; ++i) {
            QPainterPath path(lines[i].p1());
            path.lineTo(lines[i].p2());
            add(path, Qt::NoBrush);
        }
    }
    void drawEllipse(const QRectF &rect) override
    {
        QPainterPath path;
        path.addEllipse(rect);
        add(path, state->brush());
    }
    void drawPolygon(const QPointF *points, int count, PolygonDrawMode mode) override
    {
        QPainterPath path(points[0]);
        for (int i = 1; i < count; ++i)
            path.lineTo(points[i]);
        if (mode != PolylineMode)
            path.closeSubpath();
        add(path, mode == PolylineMode ? QBrush(Qt::NoBrush) : state->brush());
    }
    void drawTextItem(const QPointF &position, const QTextItem &item) override
    {
        const QRectF bounds(position.x(), position.y() - item.ascent(), item.width(),
            item.ascent() + item.descent());
        const QTransform map = state->transform();
        m_steps.append({QPainterPath(), item.text(), map.map(position), map.mapRect(bounds),
            item.font(), state->pen(), Qt::NoBrush});
    }
    void drawPixmap(const QRectF &, const QPixmap &, const QRectF &) override {}

    QVector<PaintStep> m_steps;

private:
    void add(const QPainterPath &shape, const QBrush &brush)
    {
        m_steps.append({state->transform().map(shape), QString(), QPointF(), QRectF(), QFont(),
            state->pen(), brush});
    }
};

PaintRecord::PaintRecord(const QSize &size)
    : m_size(size)
    , m_engine(new Engine)
{
}

PaintRecord::~PaintRecord() = default;

QPaintEngine *PaintRecord::paintEngine() const
{
    return m_engine.get();
}

const QVector<PaintStep> &PaintRecord::steps() const
{
    return m_engine->m_steps;
}

QVector<PaintStep> PaintRecord::texts() const
{
    QVector<PaintStep> texts;
    std::copy_if(steps().begin(), steps().end(), std::back_inserter(texts),
        [](const PaintStep &step) { return !step.text.isEmpty(); });
    return texts;
}

int PaintRecord::metric(PaintDeviceMetric metric) const
{
    switch (metric) {
    case PdmWidth:
        return m_size.width();
    case PdmHeight:
        return m_size.height();
    case PdmDevicePixelRatio:
        return 1;
    case PdmDpiX:
    case PdmDpiY:
        // The same as a widget's, so that texts are as wide as in one.
        return qRound(QGuiApplication::primaryScreen()->logicalDotsPerInch());
    default:
        return QPaintDevice::metric(metric);
    }
}
