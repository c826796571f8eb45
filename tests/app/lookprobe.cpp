#include "lookprobe.h"

#include <QApplication>
#include <QColor>
#include <QFile>
#include <QHash>
#include <QHoverEvent>
#include <QMouseEvent>
#include <QPalette>
#include <QPixmap>
#include <QPushButton>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace look
{
void prepareApplication()
{
    if (qEnvironmentVariableIsSet("AIRLUME_TEST_SCALE"))
        qputenv("QT_SCALE_FACTOR", qgetenv("AIRLUME_TEST_SCALE"));
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
}

void darkenDesktop()
{
    QPalette palette(QColor(0x30, 0x30, 0x38));
    palette.setColor(QPalette::Base, QColor(0x18, 0x18, 0x20));
    palette.setColor(QPalette::Text, QColor(0xe8, 0xe8, 0xe8));
    palette.setColor(QPalette::WindowText, QColor(0xe8, 0xe8, 0xe8));
    palette.setColor(QPalette::ButtonText, QColor(0xe8, 0xe8, 0xe8));
    QApplication::setPalette(palette);
}

QString styleSheet()
{
    QFile file(QStringLiteral(":/qss/Airlume.qss"));
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    return QString::fromUtf8(file.readAll());
}

QImage grab(QWidget *widget)
{
    return widget->grab().toImage().convertToFormat(QImage::Format_ARGB32);
}

QImage image(const QWidget *widget, const QString &name)
{
    const QString suffix = widget->devicePixelRatio() == 2 ? QStringLiteral("@2x") : QString();
    return QImage(QStringLiteral(":/images/%1%2.png").arg(name, suffix))
        .convertToFormat(QImage::Format_ARGB32);
}

bool shows(const QImage &drawn, const QImage &picture, const QPoint &at)
{
    int compared = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QColor color = picture.pixelColor(x, y);
            if (color.alpha() < 220)
                continue;
            ++compared;
            // What lies below shines through as far as the pixel is not opaque.
            if (!same(drawn.pixelColor(at + QPoint(x, y)), color, 2 + 255 - color.alpha()))
                return false;
        }
    }
    return compared > 0;
}

QColor colorAt(const QImage &picture, const QPoint &point)
{
    const int ratio = qRound(picture.devicePixelRatio());
    return picture.pixelColor(point * ratio);
}

bool same(const QColor &one, const QColor &other, int tolerance)
{
    return std::abs(one.red() - other.red()) <= tolerance &&
           std::abs(one.green() - other.green()) <= tolerance &&
           std::abs(one.blue() - other.blue()) <= tolerance;
}

static double luminance(const QColor &color)
{
    const auto linear = [](double channel) {
        return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

double contrast(const QColor &one, const QColor &other)
{
    const double first = luminance(one);
    const double second = luminance(other);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

QColor textColor(const QImage &blank, const QImage &block)
{
    // The inside of a block: the colour that most of the changed pixels have.
    QHash<QRgb, int> changed;
    for (int y = 0; y < block.height(); ++y) {
        for (int x = 0; x < block.width(); ++x) {
            if (blank.pixel(x, y) != block.pixel(x, y))
                ++changed[block.pixel(x, y)];
        }
    }
    if (changed.isEmpty())
        return QColor();
    return QColor(std::max_element(changed.cbegin(), changed.cend()).key());
}

double textContrast(const QImage &blank, const QImage &block)
{
    const QColor text = textColor(blank, block);
    if (!text.isValid())
        return 0;
    double lowest = 21;
    for (int y = 0; y < block.height(); ++y) {
        for (int x = 0; x < block.width(); ++x) {
            if (blank.pixel(x, y) != block.pixel(x, y))
                lowest = std::min(lowest, contrast(text, QColor(blank.pixel(x, y))));
        }
    }
    return lowest;
}

QString blocks()
{
    return QString(3, QChar(0x2588));
}

void hoverView(QWidget *widget, const QPoint &point)
{
    QHoverEvent event(QEvent::HoverMove, point, QPoint(-1, -1));
    QCoreApplication::sendEvent(widget, &event);
}

void hoverButton(QPushButton *button)
{
    // A button looks at both: whether the mouse entered it and where it moved.
    button->setAttribute(Qt::WA_UnderMouse);
    QMouseEvent move(
        QEvent::MouseMove, button->rect().center(), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(button, &move);
}
} // namespace look
