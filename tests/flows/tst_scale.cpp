#include "flows/airlumeprocess.h"
#include "flows/desktop.h"

#include <QDir>
#include <QRect>
#include <QStandardPaths>
#include <QtTest>

namespace
{
const QSize NormalSize(1100, 700);
const int SmallestHeight = 602;

QRect rectIn(const QJsonValue &value)
{
    const QJsonArray numbers = value.toArray();
    return QRect(
        numbers.at(0).toInt(), numbers.at(1).toInt(), numbers.at(2).toInt(), numbers.at(3).toInt());
}

/// The program on a desktop whose font is that many points high. It asks Plasma's settings, as it
/// does there.
class OnScaledDesktop : public AirlumeProcess
{
public:
    explicit OnScaledDesktop(int pointSize)
        : AirlumeProcess(QStringLiteral("plugins/simulated"))
    {
        const QString font = QStringLiteral("Noto Sans,%1,-1,5,50,0,0,0,0,0\n").arg(pointSize);
        QFile settings(folder() + QStringLiteral("/kdeglobals"));
        if (settings.open(QIODevice::WriteOnly))
            settings.write("[General]\nfont=" + font.toUtf8());
        setEnvironment(QStringLiteral("XDG_CONFIG_HOME"), folder());
        setEnvironment(QStringLiteral("XDG_CURRENT_DESKTOP"), QStringLiteral("KDE"));
        setEnvironment(QStringLiteral("KDE_FULL_SESSION"), QStringLiteral("true"));
        setEnvironment(QStringLiteral("KDE_SESSION_VERSION"), QStringLiteral("5"));
    }

    /// What is wrong with the window as it stands there; empty: nothing.
    QString faults(const QRect &expected)
    {
        QStringList found;
        const QJsonObject fit = this->fit();
        const QRect window = rectIn(fit[QStringLiteral("window")]);
        if (window != expected)
            found.append(QStringLiteral("the window is at %1").arg(inWords(window)));
        const QRect screen = rectIn(fit[QStringLiteral("screen")]);
        const QJsonObject parts = fit[QStringLiteral("parts")].toObject();
        if (parts.size() != 4)
            found.append(QStringLiteral("title bar and buttons are not there"));
        QSet<int> tops;
        for (auto part = parts.begin(); part != parts.end(); ++part) {
            const QRect rect = rectIn(part.value());
            if (!screen.contains(rect))
                found.append(part.key() + QStringLiteral(" is off the screen at ") + inWords(rect));
            if (part.key() != QLatin1String("title"))
                tops.insert(rect.top());
        }
        if (tops.size() != 1)
            found.append(QStringLiteral("the buttons are not in line"));
        const QJsonArray cut = fit[QStringLiteral("cut")].toArray();
        for (const QJsonValue &text : cut)
            found.append(text.toString());
        if (fit[QStringLiteral("dark")].toInt() > 0)
            found.append(QStringLiteral("the graph is not painted up to its edges"));
        return found.join(QLatin1Char('\n'));
    }

    /// The same on every tab.
    QString faultsOnAllTabs(const QRect &expected)
    {
        QString found;
        for (const int tab : {1, 2, 3, 0}) {
            command(QStringLiteral("tab %1").arg(tab));
            const QString onTab = faults(expected);
            if (!onTab.isEmpty())
                found += QStringLiteral("tab %1: %2\n").arg(tab).arg(onTab);
        }
        return found;
    }

    bool waitForWindow(const QRect &expected)
    {
        return waitFor([&](const QJsonObject &) {
            return rectIn(fit()[QStringLiteral("window")]) == expected;
        });
    }

private:
    static QString inWords(const QRect &rect)
    {
        return QStringLiteral("%1, %2: %3 x %4")
            .arg(rect.x())
            .arg(rect.y())
            .arg(rect.width())
            .arg(rect.height());
    }
};
} // namespace

/// The window on screens and at scales of every kind, with the desktop's font small and large. With
/// AIRLUME_TEST_PICTURES it leaves a picture of each screen in that folder.
class TestScale : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void fitsTheScreen_data();
    void fitsTheScreen();
};

void TestScale::initTestCase()
{
    const QString missing = Desktop::missing(Desktop::X11);
    if (!missing.isEmpty() || QStandardPaths::findExecutable(QStringLiteral("xprop")).isEmpty())
        QSKIP(qPrintable((missing.isEmpty() ? QStringLiteral("xprop") : missing) +
                         QStringLiteral(" is not installed")));
}

void TestScale::fitsTheScreen_data()
{
    QTest::addColumn<QSize>("pixels");
    QTest::addColumn<int>("dpi");
    QTest::addColumn<double>("scale");

    // The last scale at which the smallest window fits, where the desktop's is larger.
    const struct {
        QSize pixels;
        double most;
    } screens[] = {{{1920, 1080}, 1.74}, {{1366, 768}, 1.24}, {{1280, 800}, 1.16}};
    for (const auto &screen : screens) {
        for (const int dpi : {96, 120, 144, 168, 192})
            QTest::addRow("%d x %d, %d dpi", screen.pixels.width(), screen.pixels.height(), dpi)
                << screen.pixels << dpi << qMin(dpi / 96., screen.most);
    }
}

void TestScale::fitsTheScreen()
{
    QFETCH(QSize, pixels);
    QFETCH(int, dpi);
    QFETCH(double, scale);
    Desktop desktop(Desktop::X11, pixels);
    QVERIFY2(desktop.start() && desktop.setDpi(dpi), qPrintable(desktop.output()));
    for (const int pointSize : {10, 14}) {
        OnScaledDesktop airlume(pointSize);
        desktop.show(&airlume);
        QVERIFY2(airlume.start(), qPrintable(airlume.output()));
        QVERIFY(airlume.waitFor(hasRows));

        const QJsonObject fit = airlume.fit();
        QVERIFY2(qAbs(fit[QStringLiteral("scale")].toDouble() - scale) < 1e-6,
            qPrintable(QString::number(fit[QStringLiteral("scale")].toDouble())));
        const QRect screen = rectIn(fit[QStringLiteral("screen")]);
        const QRect normal = rectIn(fit[QStringLiteral("window")]);
        QCOMPARE(normal.width(), NormalSize.width());
        QCOMPARE(normal.height(), qMin(NormalSize.height(), screen.height()));
        QVERIFY(normal.height() >= SmallestHeight);
        // In the middle.
        QVERIFY(qAbs((screen.width() - normal.width()) / 2 - normal.x()) <= 1);
        QVERIFY(qAbs((screen.height() - normal.height()) / 2 - normal.y()) <= 1);
        QCOMPARE(airlume.faultsOnAllTabs(normal), QString());

        const QString pictures = qEnvironmentVariable("AIRLUME_TEST_PICTURES");
        if (!pictures.isEmpty()) {
            const QString name = QStringLiteral("%1x%2-%3dpi-%4pt.png")
                                     .arg(pixels.width())
                                     .arg(pixels.height())
                                     .arg(dpi)
                                     .arg(pointSize);
            QVERIFY(airlume.command(QStringLiteral("picture ") + QDir(pictures).filePath(name)));
        }

        QVERIFY(airlume.command(QStringLiteral("click maximize")));
        QVERIFY(airlume.waitForWindow(screen));
        QCOMPARE(airlume.faultsOnAllTabs(screen), QString());
        QVERIFY(airlume.command(QStringLiteral("click restore")));
        QVERIFY(airlume.waitForWindow(normal));
        QCOMPARE(airlume.faults(normal), QString());
    }
}

QTEST_GUILESS_MAIN(TestScale)
#include "tst_scale.moc"
