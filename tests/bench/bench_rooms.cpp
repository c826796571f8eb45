// What the rooms cost: opening their tab, and one change brought to the disk, beside the least that
// Qt needs for the same. The disk is the one the benchmark lies on.

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
const std::size_t Rounds = 41;

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

void buildAndOpen(int rooms)
{
    const QString what = QStringLiteral("build the panel with %1 rooms").arg(rooms);
    SideBySide::report(
        qPrintable(what), SideBySide::compare(
                              11, [] { delete SignalHomeTestingWgt::Instance(nullptr); },
                              [rooms] { bareTable(rooms); }));

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
    const QString opening = QStringLiteral("open the tab with %1 rooms").arg(rooms);
    SideBySide::report(
        qPrintable(opening), SideBySide::compare(
                                 Rounds, [&] { open(tabs); }, [&] { open(bareTabs); }));
    delete SignalHomeTestingWgt::Instance(nullptr);
}

void changeOne(int rooms)
{
    const QString what = QStringLiteral("test one of %1 rooms, beside QSaveFile").arg(rooms);
    const QString bareFile =
        QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("bench_rooms.bare"));
    int tests = 0;
    const QByteArray content = contentOf(roomFile());
    const auto save = [&] {
        QSaveFile file(bareFile);
        if (file.open(QIODevice::WriteOnly)) {
            file.write(content);
            file.commit();
        }
    };
    SideBySide::report(qPrintable(what), SideBySide::compare(
                                             Rounds,
                                             [&] {
                                                 ++tests;
                                                 QtCommonTools::UpdateHomeValueToINI(
                                                     room(tests % rooms),
                                                     HomeTest_Value{tests % 101, 144, 40, 300});
                                             },
                                             save));

    const QString againstSettings =
        QStringLiteral("test one of %1 rooms, beside QSettings").arg(rooms);
    QSettings settings(bareFile + QStringLiteral(".ini"), QSettings::IniFormat);
    for (int i = 0; i < rooms; ++i)
        settings.setValue(room(i) + QStringLiteral("/NowPercent"), QStringLiteral("62"));
    SideBySide::report(qPrintable(againstSettings),
        SideBySide::compare(
            Rounds,
            [&] {
                ++tests;
                QtCommonTools::UpdateHomeValueToINI(
                    room(tests % rooms), HomeTest_Value{tests % 101, 144, 40, 300});
            },
            [&] {
                ++tests;
                settings.setValue(
                    room(tests % rooms) + QStringLiteral("/NowPercent"), QString::number(tests));
                settings.sync();
            }));
    QFile::remove(bareFile);
    QFile::remove(bareFile + QStringLiteral(".ini"));
}
} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    const MessageLog quiet;
    std::printf("%-52s %13s  %13s  %6s\n", "", "ours", "bare", "ratio");
    for (int rooms : {5, 201}) {
        QFile::remove(roomFile());
        {
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
        QtCommonTools::Init();
        buildAndOpen(rooms);
        changeOne(rooms);
        QtCommonTools::Release();
    }
    QFile::remove(roomFile());
    return 0;
}
