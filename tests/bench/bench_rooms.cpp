// What the rooms cost: opening their tab, and one change brought to the disk, beside the least that
// Qt needs for the same.

#include "bench/sidebyside.h"
#include "common/QtCommonTools.h"
#include "hometest/hometestvalue.h"
#include "hometest/signalhometestingwgt.h"
#include "support/messagelog.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QPushButton>
#include <QSaveFile>
#include <QSettings>
#include <QTabWidget>
#include <QTableWidget>

#include <memory>

namespace
{
const std::size_t MostRounds = 41;

QString roomFile()
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/WifiHomeTest.ini");
}

QString room(int number)
{
    return QStringLiteral("Room %1").arg(number, 3, 10, QLatin1Char('0'));
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// A table of as many rows, each with a hidden button.
std::unique_ptr<QTableWidget> bareTable(int rows)
{
    auto table = std::make_unique<QTableWidget>(rows, 2);
    for (int row = 0; row < rows; ++row) {
        table->setItem(row, 0, new QTableWidgetItem(room(row)));
        QPushButton *button = new QPushButton;
        button->hide();
        table->setCellWidget(row, 1, button);
    }
    return table;
}

/// The number in the line is that of the rooms, as `what` has to say.
void bench(const char *what, int rooms, const SideBySide::Extent &extent,
    const std::function<void()> &ours, const std::function<void()> &bare)
{
    SideBySide::report(
        what, rooms, SideBySide::compareProcessor(extent.rounds(MostRounds, rooms), ours, bare));
}

void buildAndOpen(int rooms, const SideBySide::Extent &extent)
{
    bench(
        "room tab built, of so many rooms", rooms, extent,
        [] { delete SignalHomeTestingWgt::Instance(nullptr); }, [rooms] { bareTable(rooms); });

    QTabWidget tabs;
    QTabWidget bareTabs;
    for (QTabWidget *widget : {&tabs, &bareTabs}) {
        widget->addTab(new QWidget, QString());
        widget->resize(1080, 330);
    }
    tabs.addTab(SignalHomeTestingWgt::Instance(nullptr), QString());
    bareTabs.addTab(bareTable(rooms).release(), QString());
    QObject::connect(&tabs, SIGNAL(currentChanged(int)), SignalHomeTestingWgt::Instance(nullptr),
        SLOT(ClickedTab()));
    tabs.show();
    bareTabs.show();
    const auto open = [](QTabWidget &widget) {
        widget.setCurrentIndex(0);
        widget.setCurrentIndex(1);
        QCoreApplication::processEvents();
        widget.grab();
    };
    bench(
        "room tab opened, of so many rooms", rooms, extent, [&] { open(tabs); },
        [&] { open(bareTabs); });
    delete SignalHomeTestingWgt::Instance(nullptr);
}

void changeOne(int rooms, const SideBySide::Extent &extent)
{
    const QString bareFile =
        QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("bench_rooms.bare"));
    int tests = 0;
    const auto test = [&] {
        ++tests;
        QtCommonTools::UpdateHomeValueToINI(
            room(tests % rooms), HomeTest_Value{tests % 101, 144, 40, 300});
    };
    const QByteArray content = contentOf(roomFile());
    bench("room written (QSaveFile), of so many rooms", rooms, extent, test, [&] {
        QSaveFile file(bareFile);
        if (file.open(QIODevice::WriteOnly)) {
            file.write(content);
            file.commit();
        }
    });

    QSettings settings(bareFile + QStringLiteral(".ini"), QSettings::IniFormat);
    for (int i = 0; i < rooms; ++i)
        settings.setValue(room(i) + QStringLiteral("/NowPercent"), QStringLiteral("62"));
    bench("room written (QSettings), of so many rooms", rooms, extent, test, [&] {
        ++tests;
        settings.setValue(
            room(tests % rooms) + QStringLiteral("/NowPercent"), QString::number(tests));
        settings.sync();
    });
    QFile::remove(bareFile);
    QFile::remove(bareFile + QStringLiteral(".ini"));
}

void writeRooms(int rooms)
{
    QFile::remove(roomFile());
    QSettings settings(roomFile(), QSettings::IniFormat);
    for (int i = 0; i < rooms; ++i) {
        settings.beginGroup(room(i));
        settings.setValue(QStringLiteral("NowPercent"), QStringLiteral("62"));
        settings.setValue(QStringLiteral("NowSpeed"), QStringLiteral("144"));
        settings.setValue(QStringLiteral("LastPercent"), QString());
        settings.setValue(QStringLiteral("LastSpeed"), QString());
        settings.endGroup();
    }
}
} // namespace

int main(int argc, char **argv)
{
    const SideBySide::Extent extent(argc, argv);
    QApplication app(argc, argv);
    const MessageLog quiet;
    for (int rooms : {5, 50, 201}) {
        writeRooms(rooms);
        QtCommonTools::Init();
        buildAndOpen(rooms, extent);
        changeOne(rooms, extent);
        QtCommonTools::Release();
    }
    QFile::remove(roomFile());
    return 0;
}
