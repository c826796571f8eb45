#include "flows/airlumeprocess.h"
#include "flows/desktop.h"

#include <QRegularExpression>
#include <QtTest>

Q_DECLARE_METATYPE(Desktop::Kind)

namespace
{
const QSize NormalSize(1100, 700);
const QSize SmallestSize(1100, 602);
const QSize ScreenSize(1400, 900);

QRect geometryIn(const QJsonObject &state)
{
    const QJsonArray numbers = state[QStringLiteral("geometry")].toArray();
    return QRect(
        numbers.at(0).toInt(), numbers.at(1).toInt(), numbers.at(2).toInt(), numbers.at(3).toInt());
}

/// The program on a desktop of that kind, which is there for it alone.
struct OnDesktop {
    explicit OnDesktop(Desktop::Kind kind, const QSize &size = ScreenSize, int scale = 1)
        : desktop(kind, size, scale)
        , airlume(QStringLiteral("plugins/simulated"))
    {
    }

    bool start()
    {
        if (!desktop.start())
            return false;
        desktop.show(&airlume);
        return airlume.start();
    }

    QString output() { return desktop.output() + airlume.output(); }

    /// Whether anybody reports one. Not counted is what X says of Qt's asking for the focus of a
    /// dialog that is not shown yet, where no window manager tells when it is.
    bool hasError()
    {
        const QStringList lines = output().split(QLatin1Char('\n'));
        return std::any_of(lines.cbegin(), lines.cend(), [](const QString &line) {
            return line.contains(QLatin1String("error")) &&
                   !line.contains(QLatin1String("(SetInputFocus)"));
        });
    }

    bool waitForSize(const QSize &size)
    {
        return airlume.waitFor(
            [&](const QJsonObject &state) { return geometryIn(state).size() == size; });
    }

    bool waitForOutput(const QString &pattern, int times = 1)
    {
        return airlume.waitFor([&](const QJsonObject &) { return count(pattern) >= times; });
    }

    int count(const QString &pattern)
    {
        return airlume.output().count(QRegularExpression(pattern));
    }

    /// Where the window is on the screen. On Wayland a program does not know: it only hears where
    /// in its window the mouse is.
    QPoint corner()
    {
        if (desktop.kind() == Desktop::X11)
            return geometryIn(airlume.state()).topLeft();
        static const QString entered = QStringLiteral(
            R"(wl_pointer[@#]\d+\.enter\(\d+, wl_surface[@#]\d+, (-?[\d.]+), (-?[\d.]+)\))");
        const int before = count(entered);
        // A normal window covers the middle, wherever it is put.
        const QPoint middle(ScreenSize.width() / 2, ScreenSize.height() / 2);
        if (!desktop.pointAt(QPoint(1, 1)) || !desktop.pointAt(middle) ||
            !waitForOutput(entered, before + 1))
            return QPoint(-1, -1);
        QRegularExpressionMatch last;
        QRegularExpressionMatchIterator matches =
            QRegularExpression(entered).globalMatch(airlume.output());
        while (matches.hasNext())
            last = matches.next();
        return middle - QPointF(last.captured(1).toDouble(), last.captured(2).toDouble()).toPoint();
    }

    /// Drags by the mouse, from one place of the screen to another.
    bool drag(const QPoint &from, const QPoint &to)
    {
        // The first step makes the desktop take over, the others are its own.
        return desktop.pointAt(from) && press() && desktop.pointAt((3 * from + to) / 4) &&
               waitUntilTakenOver() && desktop.pointAt((from + to) / 2) && desktop.pointAt(to) &&
               desktop.hand({QStringLiteral("mouseup"), QStringLiteral("1")});
    }

    /// Presses a key of the desktop's own, on Wayland, when the window is the one it works on.
    bool pressKey(const QString &key)
    {
        const bool isActive = airlume.waitFor([this](const QJsonObject &) {
            const QString said = airlume.output();
            return said.lastIndexOf(
                       QRegularExpression(QStringLiteral(R"(wl_keyboard[@#]\d+\.enter)"))) >
                   said.lastIndexOf(
                       QRegularExpression(QStringLiteral(R"(wl_keyboard[@#]\d+\.leave)")));
        });
        return isActive && desktop.hand({QStringLiteral("key"), key});
    }

    bool doubleClick()
    {
        return desktop.hand(
            {QStringLiteral("click"), QStringLiteral("--repeat"), QStringLiteral("2"),
                QStringLiteral("--delay"), QStringLiteral("50"), QStringLiteral("1")});
    }

    Desktop desktop;
    AirlumeProcess airlume;

private:
    bool press() { return desktop.hand({QStringLiteral("mousedown"), QStringLiteral("1")}); }

    bool waitUntilTakenOver()
    {
        return desktop.kind() == Desktop::X11 ||
               waitForOutput(QStringLiteral(R"(xdg_toplevel[@#]\d+\.move\()"), ++m_drags);
    }

    int m_drags = 0;
};
} // namespace

/// The program under the window systems it meets, with a real mouse: on X11 it places its window
/// itself, on Wayland the desktop does.
class TestDesktops : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void opensOneWindow_data() { kinds(); }
    void opensOneWindow();
    void maximisesAndRestoresTheExactSize_data() { kinds(); }
    void maximisesAndRestoresTheExactSize();
    void doubleClickInTheTitleMaximisesAndRestores_data() { kinds(); }
    void doubleClickInTheTitleMaximisesAndRestores();
    void titleDragsTheWindow_data() { kinds(); }
    void titleDragsTheWindow();
    void showsTabsAndDialogs_data() { kinds(); }
    void showsTabsAndDialogs();
    void secondCopyAndCloseButtonEndAtOnce_data() { kinds(); }
    void secondCopyAndCloseButtonEndAtOnce();
    void followsWhatTheDesktopDoesToTheWindow();
    void growsWhenTheDesktopMaximisesIt();
    void fillsTheScreenWhenTheDesktopWantsItTo();
    void asksTheDesktopToMinimise();
    void survivesAScreenSmallerThanItself();
    void paintsInFullDensity();

private:
    static void kinds();
};

void TestDesktops::kinds()
{
    QTest::addColumn<Desktop::Kind>("kind");
    QTest::newRow("X11") << Desktop::X11;
    QTest::newRow("Wayland") << Desktop::Wayland;
}

void TestDesktops::init()
{
    const bool isX11 = QString::fromLatin1(QTest::currentDataTag()) == QLatin1String("X11");
    const QString missing = Desktop::missing(isX11 ? Desktop::X11 : Desktop::Wayland);
    if (!missing.isEmpty())
        QSKIP(qPrintable(missing + QStringLiteral(" is not installed")));
}

void TestDesktops::opensOneWindow()
{
    QFETCH(Desktop::Kind, kind);
    OnDesktop room(kind);
    QVERIFY2(room.start(), qPrintable(room.output()));
    QVERIFY(room.waitForSize(NormalSize));
    if (kind == Desktop::X11) {
        QCOMPARE(geometryIn(room.airlume.state()).topLeft(), QPoint(150, 100));
        return;
    }
    QVERIFY(room.waitForOutput(QStringLiteral(R"(xdg_surface[@#]\d+\.ack_configure)")));
    // No button was a window for a moment before it found its place.
    QCOMPARE(room.count(QStringLiteral(R"(\.get_toplevel\()")), 1);
    QVERIFY2(!room.hasError(), qPrintable(room.output()));
}

void TestDesktops::maximisesAndRestoresTheExactSize()
{
    QFETCH(Desktop::Kind, kind);
    OnDesktop room(kind);
    QVERIFY2(room.start(), qPrintable(room.output()));
    QVERIFY(room.waitForSize(NormalSize));
    QVERIFY(room.airlume.command(QStringLiteral("tab 3")));
    const QRect before = geometryIn(room.airlume.state());
    for (int round = 0; round < 3; ++round) {
        QVERIFY(room.airlume.command(QStringLiteral("click maximize")));
        QVERIFY(room.airlume.waitFor([](const QJsonObject &state) {
            return geometryIn(state).width() == ScreenSize.width();
        }));
        const QRect maximised = geometryIn(room.airlume.state());
        QVERIFY(maximised.height() > NormalSize.height());
        // What else is on the screen is spared.
        QVERIFY(maximised.height() <= ScreenSize.height());
        if (kind == Desktop::X11)
            QCOMPARE(maximised, QRect(QPoint(0, 0), ScreenSize));
        QVERIFY(room.airlume.command(QStringLiteral("click restore")));
        QVERIFY2(room.waitForSize(NormalSize), qPrintable(room.output()));
        QCOMPARE(geometryIn(room.airlume.state()), before);
    }
    if (kind == Desktop::Wayland) {
        QVERIFY(room.waitForOutput(QStringLiteral(R"(xdg_toplevel[@#]\d+\.unset_maximized\()"), 3));
        QCOMPARE(room.count(QStringLiteral(R"(xdg_toplevel[@#]\d+\.set_maximized\()")), 3);
    }
    QVERIFY2(!room.hasError(), qPrintable(room.output()));
}

void TestDesktops::doubleClickInTheTitleMaximisesAndRestores()
{
    QFETCH(Desktop::Kind, kind);
    OnDesktop room(kind);
    QVERIFY2(room.start(), qPrintable(room.output()));
    QVERIFY(room.waitForSize(NormalSize));
    const QPoint inTitle(400, 20);
    QVERIFY(room.desktop.pointAt(room.corner() + inTitle));
    QVERIFY(room.doubleClick());
    QVERIFY(room.airlume.waitFor(
        [](const QJsonObject &state) { return geometryIn(state).width() == ScreenSize.width(); }));
    const int above = ScreenSize.height() - geometryIn(room.airlume.state()).height();
    QVERIFY(room.desktop.pointAt(QPoint(0, above) + inTitle));
    QVERIFY(room.doubleClick());
    QVERIFY2(room.waitForSize(NormalSize), qPrintable(room.output()));
    QVERIFY(room.airlume.command(QStringLiteral("click maximize")));
    QVERIFY2(!room.hasError(), qPrintable(room.output()));
}

void TestDesktops::titleDragsTheWindow()
{
    QFETCH(Desktop::Kind, kind);
    OnDesktop room(kind);
    QVERIFY2(room.start(), qPrintable(room.output()));
    QVERIFY(room.waitForSize(NormalSize));
    for (const QPoint &way : {QPoint(-80, 60), QPoint(90, -40)}) {
        const QPoint before = room.corner();
        const QPoint from = before + QPoint(400, 20);
        QVERIFY2(room.drag(from, from + way), qPrintable(room.output()));
        // Let go, the window stays, and the next drag begins anew.
        QVERIFY(room.desktop.pointAt(from));
        QTRY_COMPARE_WITH_TIMEOUT(room.corner(), before + way, 60000);
    }
    QCOMPARE(geometryIn(room.airlume.state()).size(), NormalSize);
    QVERIFY2(!room.hasError(), qPrintable(room.output()));
}

void TestDesktops::showsTabsAndDialogs()
{
    QFETCH(Desktop::Kind, kind);
    OnDesktop room(kind);
    QVERIFY2(room.start(), qPrintable(room.output()));
    for (int tab = 0; tab < 4; ++tab)
        QVERIFY(room.airlume.command(QStringLiteral("tab %1").arg(tab)));
    QVERIFY(room.airlume.command(QStringLiteral("click HomeTesting_btn_Add")));
    QVERIFY(room.airlume.waitFor([](const QJsonObject &state) {
        return state[QStringLiteral("focus")].toString() == QLatin1String("QLineEdit");
    }));
    QVERIFY(room.airlume.command(QStringLiteral("type Attic")));
    QVERIFY(room.airlume.command(QStringLiteral("click HomeTestingPopup_btn_Ok")));
    QVERIFY2(room.airlume.waitFor([](const QJsonObject &state) {
        const QString last = state[QStringLiteral("rooms")].toArray().last().toString();
        return last.startsWith(QLatin1String("Attic")) &&
               state[QStringLiteral("modal")].toString().isEmpty();
    }),
        qPrintable(room.output()));
    QVERIFY2(!room.hasError(), qPrintable(room.output()));
}

void TestDesktops::secondCopyAndCloseButtonEndAtOnce()
{
    QFETCH(Desktop::Kind, kind);
    OnDesktop room(kind);
    QVERIFY2(room.start(), qPrintable(room.output()));
    AirlumeProcess second(QStringLiteral("plugins/simulated"));
    room.desktop.show(&second);
    second.launch();
    QVERIFY(second.waitForEnd());
    QVERIFY2(second.endedNormally() && second.exitCode() == 0, qPrintable(second.output()));
    QVERIFY(room.airlume.isRunning());

    QVERIFY(room.airlume.command(QStringLiteral("click close1")));
    QVERIFY(room.airlume.waitForEnd());
    QVERIFY2(
        room.airlume.endedNormally() && room.airlume.exitCode() == 0, qPrintable(room.output()));
}

void TestDesktops::followsWhatTheDesktopDoesToTheWindow()
{
    OnDesktop room(Desktop::Wayland);
    QVERIFY2(room.start(), qPrintable(room.output()));
    QVERIFY(room.waitForSize(NormalSize));
    QVERIFY(room.airlume.command(QStringLiteral("click maximize")));
    QVERIFY(room.waitForOutput(QStringLiteral("set_window_geometry\\(0, 0, 1400")));
    // The compositor's own key for it: the button that is shown follows.
    QVERIFY(room.pressKey(QStringLiteral("super+shift+m")));
    QVERIFY2(room.waitForSize(NormalSize), qPrintable(room.output()));
    QVERIFY(room.airlume.command(QStringLiteral("click maximize")));
    QVERIFY(room.waitForOutput(QStringLiteral("set_window_geometry\\(0, 0, 1400"), 2));
    QVERIFY2(!room.hasError(), qPrintable(room.output()));
}

void TestDesktops::growsWhenTheDesktopMaximisesIt()
{
    OnDesktop room(Desktop::Wayland);
    QVERIFY2(room.start(), qPrintable(room.output()));
    QVERIFY(room.waitForSize(NormalSize));
    for (int round = 0; round < 3; ++round) {
        QVERIFY(room.pressKey(QStringLiteral("super+shift+m")));
        QVERIFY2(room.airlume.waitFor([](const QJsonObject &state) {
            return geometryIn(state).width() == ScreenSize.width();
        }),
            qPrintable(room.output().right(2000)));
        QVERIFY(room.pressKey(QStringLiteral("super+shift+m")));
        QVERIFY2(room.waitForSize(NormalSize), qPrintable(room.output().right(2000)));
    }
}

void TestDesktops::fillsTheScreenWhenTheDesktopWantsItTo()
{
    OnDesktop room(Desktop::Wayland);
    QVERIFY2(room.start(), qPrintable(room.output()));
    QVERIFY(room.waitForSize(NormalSize));
    QVERIFY(room.pressKey(QStringLiteral("super+shift+f")));
    QVERIFY2(room.waitForSize(ScreenSize), qPrintable(room.output().right(2000)));
    QVERIFY(room.pressKey(QStringLiteral("super+shift+f")));
    QVERIFY2(room.waitForSize(NormalSize), qPrintable(room.output().right(2000)));
    QVERIFY2(!room.hasError(), qPrintable(room.output()));
}

void TestDesktops::asksTheDesktopToMinimise()
{
    OnDesktop room(Desktop::Wayland);
    QVERIFY2(room.start(), qPrintable(room.output()));
    QVERIFY(room.airlume.command(QStringLiteral("click minimize")));
    QVERIFY(room.waitForOutput(QStringLiteral(R"(xdg_toplevel[@#]\d+\.set_minimized\()")));
    QVERIFY2(!room.hasError(), qPrintable(room.output()));
}

void TestDesktops::survivesAScreenSmallerThanItself()
{
    OnDesktop room(Desktop::Wayland, QSize(900, 600));
    QVERIFY2(room.start(), qPrintable(room.output()));
    QVERIFY(room.waitForSize(SmallestSize));
    // It cannot take the size that a maximised window has there.
    QVERIFY(room.airlume.command(QStringLiteral("click maximize")));
    QVERIFY(room.waitForOutput(QStringLiteral("show max window")));
    QVERIFY2(room.airlume.command(QStringLiteral("click restore")), qPrintable(room.output()));
    QVERIFY2(room.waitForSize(SmallestSize), qPrintable(room.output()));
    QVERIFY(room.airlume.command(QStringLiteral("click maximize")));
    QVERIFY2(!room.hasError(), qPrintable(room.output()));
}

void TestDesktops::paintsInFullDensity()
{
    OnDesktop room(Desktop::Wayland, ScreenSize, 2);
    QVERIFY2(room.start(), qPrintable(room.output()));
    QVERIFY(room.waitForSize(NormalSize));
    QVERIFY(room.waitForOutput(QStringLiteral(R"(create_buffer\(.*, 0, 2200, 1400,)")));
    QVERIFY2(!room.hasError(), qPrintable(room.output()));
}

QTEST_GUILESS_MAIN(TestDesktops)
#include "tst_desktops.moc"
