#ifndef AIRLUME_TESTS_APP_LOOKPROBE_H
#define AIRLUME_TESTS_APP_LOOKPROBE_H

#include <QImage>

class QPushButton;
class QWidget;

/// What the tests of the look ask of a drawn widget. All points and rectangles are in logical
/// pixels, whatever the density.
namespace look
{
/// To be called before the application exists: sets the program's attributes and the density that
/// the variable AIRLUME_TEST_SCALE asks for.
void prepareApplication();

/// Gives the application the palette of a dark desktop: whatever the style sheet leaves to the
/// palette then shows.
void darkenDesktop();

/// The style sheet as the program applies it.
QString styleSheet();

/// A picture of `widget` as it is now.
QImage grab(QWidget *widget);

/// The picture of the bundle that fits the density of `widget`.
QImage image(const QWidget *widget, const QString &name);

/// True when all nearly opaque pixels of `picture` stand in `drawn`, from its physical pixel `at`
/// on.
bool shows(const QImage &drawn, const QImage &picture, const QPoint &at = QPoint());

/// Colour of the picture at a logical point.
QColor colorAt(const QImage &picture, const QPoint &point);

/// True when no channel of the two colours differs by more than `tolerance`.
bool same(const QColor &one, const QColor &other, int tolerance = 2);

/// Contrast ratio of two opaque colours, 1 to 21 (WCAG 2.1, relative luminance of sRGB).
double contrast(const QColor &one, const QColor &other);

/// Lowest contrast between a text and what is behind it. `blank` shows the widget without its
/// text, `block` shows it with full blocks (U+2588) for a text: where the two differ stands text.
/// 0 when they do not differ.
double textContrast(const QImage &blank, const QImage &block);

/// Colour of the text that `block` shows and `blank` does not; invalid when they do not differ.
QColor textColor(const QImage &blank, const QImage &block);

/// Three full blocks, for textContrast() and textColor().
QString blocks();

/// As if the mouse had come to `point` of a tab bar or of a view's viewport.
void hoverView(QWidget *widget, const QPoint &point);

/// As if the mouse had come to the middle of `button`.
void hoverButton(QPushButton *button);
} // namespace look

#endif
