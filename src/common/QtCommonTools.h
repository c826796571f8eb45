#ifndef AIRLUME_COMMON_QTCOMMONTOOLS_H
#define AIRLUME_COMMON_QTCOMMONTOOLS_H

#include <QMap>
#include <QPalette>
#include <QString>

class IniFileOperate;
class IpcLocalSocket;
class LanguageFileOperate;
class QIODevice;
class QPainter;
class QWidget;
struct HomeTest_Value;

/// Holds the process-wide objects and the small helpers that every view shares.
///
/// GUI thread only. The objects exist between Init() and Release(); except where said otherwise,
/// the functions that use them must not be called outside that span.
class QtCommonTools
{
public:
    QtCommonTools() = delete;

    /// Creates the process-wide objects. Called once, by the main window; blocks for up to 1.1 s
    /// when a host suite listens but does not answer.
    static void Init();
    /// Frees what Init() created. Harmless when there is nothing to free.
    static void Release();

    /// Text of `key` in the current language; empty when the language has none.
    static QString tr(const QString &key);
    /// True when `code` is one of the languages Airlume knows ("enu", "deu", …; case-sensitive).
    static bool IsFindLang(QString &code);
    /// Code of the current language, as the host's channel holds it.
    static QString &GetLangNm();
    /// The channel to the host suite; null before Init(). Owned by this class.
    static IpcLocalSocket *GetIpcUdpClient();

    /// The rooms, by name, with their results; what the room file holds. Never null.
    static QMap<QString, HomeTest_Value> *GetHomeTestingIni();
    /// True when there is a room of exactly this name (case-sensitive).
    static bool HomeNameIsExisting(const QString &room);
    /// Adds a room to the map and to the file, or replaces it there.
    static void AddHomeTestToINI(const QString &room, const HomeTest_Value &value);
    /// Removes a room from the map and from the file.
    static void DelHomeValueFromINI(const QString &room);
    /// Renames a room in the map and in the file; its results stay.
    static void UpdateHomeNameToINI(const QString &oldName, const QString &newName);
    /// Replaces a room's results in the map and in the file.
    static void UpdateHomeValueToINI(const QString &room, const HomeTest_Value &value);

    /// Sets the colour of one palette role of `widget` in every colour group.
    static void SetPaletteColor(QWidget *widget, QPalette::ColorRole role, const QColor &color);
    /// Sets the brush of one palette role of `widget` in every colour group.
    static void SetPaletteBrush(QWidget *widget, QPalette::ColorRole role, const QBrush &brush);
    /// Sets the font size of `widget`, in points, and leaves the rest of its font alone.
    static void SetFontSize(QWidget *widget, int pointSize);
    /// Sets the font size of `painter`, in points, and leaves the rest of its font alone.
    static void SetFontSize(QPainter *painter, int pointSize);
    /// Colours the text of `widget` by a clarity word in the current language; an unknown word
    /// leaves the colour as it is.
    static void SetClarityColor(QWidget *widget, const QString &word);

    static IpcLocalSocket *m_pLocalSocket;
    static LanguageFileOperate *m_pLangFileOperate;
    static IniFileOperate *m_piniHomeTestInstance;
    static QMap<QString, HomeTest_Value> m_mapHomeTestValue;
    /// Where outputMessage() writes; not owned, null unless a log file was opened.
    static QIODevice *m_fileLog;
};

#endif
