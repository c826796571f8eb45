#include "common/QtCommonTools.h"

#include "common/diagnostics.h"
#include "hometest/hometestvalue.h"
#include "hometest/inifileoperate.h"
#include "hometest/roomstorefile.h"
#include "i18n/ipclocalsocket.h"
#include "i18n/languagefileoperate.h"
#include "i18n/languagelabels.h"

#include <QCoreApplication>
#include <QFile>
#include <QFont>
#include <QIODevice>
#include <QPainter>
#include <QStandardPaths>
#include <QWidget>

IpcLocalSocket *QtCommonTools::m_pLocalSocket = nullptr;
LanguageFileOperate *QtCommonTools::m_pLangFileOperate = nullptr;
IniFileOperate *QtCommonTools::m_piniHomeTestInstance = nullptr;
QMap<QString, HomeTest_Value> QtCommonTools::m_mapHomeTestValue;
QIODevice *QtCommonTools::m_fileLog = nullptr;

void QtCommonTools::Init()
{
    m_pLocalSocket = new IpcLocalSocket(QStringLiteral("HarborWindowLocalProcess"));
    m_pLangFileOperate = new LanguageFileOperate;
    QString roomFile = RoomStoreFile::Locate(QCoreApplication::applicationDirPath(),
        QStandardPaths::writableLocation(QStandardPaths::AppDataLocation));
    m_piniHomeTestInstance = new IniFileOperate(roomFile);
    if (QFile::exists(roomFile))
        m_piniHomeTestInstance->GetWifiHomeTestIni(m_mapHomeTestValue);
    else
        m_piniHomeTestInstance->InitialHomeTestIni();
}

void QtCommonTools::Release()
{
    delete m_piniHomeTestInstance;
    m_piniHomeTestInstance = nullptr;
    delete m_pLocalSocket;
    m_pLocalSocket = nullptr;
    delete m_pLangFileOperate;
    m_pLangFileOperate = nullptr;
    if (m_fileLog)
        m_fileLog->close();
}

QString QtCommonTools::tr(const QString &key)
{
    return m_pLangFileOperate->tr(key);
}

bool QtCommonTools::IsFindLang(QString &code)
{
    return m_pLangFileOperate->IsFindLang(code);
}

QString &QtCommonTools::GetLangNm()
{
    return m_pLocalSocket->GetLang();
}

IpcLocalSocket *QtCommonTools::GetIpcUdpClient()
{
    return m_pLocalSocket;
}

QMap<QString, HomeTest_Value> *QtCommonTools::GetHomeTestingIni()
{
    return &m_mapHomeTestValue;
}

bool QtCommonTools::HomeNameIsExisting(const QString &room)
{
    return m_mapHomeTestValue.contains(room);
}

void QtCommonTools::AddHomeTestToINI(const QString &room, const HomeTest_Value &value)
{
    if (!m_piniHomeTestInstance) {
        AIRLUME_NULL_POINT();
        return;
    }
    m_piniHomeTestInstance->AddWifiHomeTestIni(m_mapHomeTestValue, room, value);
}

void QtCommonTools::DelHomeValueFromINI(const QString &room)
{
    if (!m_piniHomeTestInstance) {
        AIRLUME_NULL_POINT();
        return;
    }
    m_piniHomeTestInstance->DelHomeValueFromINI(m_mapHomeTestValue, room);
}

void QtCommonTools::UpdateHomeNameToINI(const QString &oldName, const QString &newName)
{
    if (!m_piniHomeTestInstance) {
        AIRLUME_NULL_POINT();
        return;
    }
    m_piniHomeTestInstance->UpdateHomeNameToINI(m_mapHomeTestValue, oldName, newName);
}

void QtCommonTools::UpdateHomeValueToINI(const QString &room, const HomeTest_Value &value)
{
    if (!m_piniHomeTestInstance) {
        AIRLUME_NULL_POINT();
        return;
    }
    m_piniHomeTestInstance->UpdateHomeValueToINI(m_mapHomeTestValue, room, value);
}

void QtCommonTools::SetPaletteColor(QWidget *widget, QPalette::ColorRole role, const QColor &color)
{
    if (!widget) {
        AIRLUME_NULL_POINT();
        return;
    }
    SetPaletteBrush(widget, role, QBrush(color));
}

void QtCommonTools::SetPaletteBrush(QWidget *widget, QPalette::ColorRole role, const QBrush &brush)
{
    if (!widget) {
        AIRLUME_NULL_POINT();
        return;
    }
    QPalette palette = widget->palette();
    palette.setBrush(QPalette::All, role, brush);
    widget->setPalette(palette);
}

void QtCommonTools::SetFontSize(QWidget *widget, int pointSize)
{
    if (!widget) {
        AIRLUME_NULL_POINT();
        return;
    }
    QFont font = widget->font();
    font.setPointSize(pointSize);
    widget->setFont(font);
}

void QtCommonTools::SetFontSize(QPainter *painter, int pointSize)
{
    if (!painter) {
        AIRLUME_NULL_POINT();
        return;
    }
    QFont font = painter->font();
    font.setPointSize(pointSize);
    painter->setFont(font);
}

void QtCommonTools::SetClarityColor(QWidget *widget, const QString &word)
{
    if (!widget) {
        AIRLUME_NULL_POINT();
        return;
    }
    struct ClarityColor {
        QString key;
        QColor color;
    };
    static const ClarityColor colors[] = {
        {LanguageLabels::m_strLangStrengthPoor, QColor(194, 9, 9)},
        {LanguageLabels::m_strLangStrengthAverage, QColor(255, 193, 4)},
        {LanguageLabels::m_strLangStrengthGreat, QColor(52, 204, 52)},
        {LanguageLabels::m_strLangStrengthBest, QColor(4, 177, 82)},
    };
    for (const ClarityColor &entry : colors) {
        if (word == tr(entry.key)) {
            SetPaletteColor(widget, QPalette::WindowText, entry.color);
            return;
        }
    }
}
