#include "i18n/languagelabels.h"

const QString LanguageLabels::m_strDefaultLang = QStringLiteral("enu");
const QString LanguageLabels::m_strLangFinleName = QStringLiteral("AirlumeLang.txt");
const QString LanguageLabels::m_strLangHeadSSID = QStringLiteral("L_HEADER_SSID");
const QString LanguageLabels::m_strLangHeadSignal = QStringLiteral("L_HEADER_SIGNAL");
const QString LanguageLabels::m_strLangHeadChannel = QStringLiteral("L_HEADER_CHANNEL");
const QString LanguageLabels::m_strLangHeadSecurity = QStringLiteral("L_HEADER_SECURITY");
const QString LanguageLabels::m_strLangHeadMac = QStringLiteral("L_HEADER_MAC_ADDRESS");
const QString LanguageLabels::m_strLangBoardPoor = QStringLiteral("Poor");
const QString LanguageLabels::m_strLangBoardGood = QStringLiteral("Good");
const QString LanguageLabels::m_strLangBoardBest = QStringLiteral("Best");
const QString LanguageLabels::m_strLangBoardSignalStrength = QStringLiteral("Signal Strength");
const QString LanguageLabels::m_strLangBoardConnectedNetwork =
    QStringLiteral("L_BOARD_CONNECTED_NETWORK");
const QString LanguageLabels::m_strLangBoardNoNetworkConn =
    QStringLiteral("L_BOARD_NO_NETWORK_CONN");
const QString LanguageLabels::m_strLangSignalGraph = QStringLiteral("L_SIGNAL_GRAPH_TAB_NAME");
const QString LanguageLabels::m_strLangChannelGraph = QStringLiteral("L_CHANNEL_GRAPH_TAB_NAME");
const QString LanguageLabels::m_strLangChannelInterface =
    QStringLiteral("L_CHANNEL_INTERFACE_TAB_NAME");
const QString LanguageLabels::m_strLangCurrentChannel =
    QStringLiteral("L_CHANNEL_INTERFACE_CURRENT_CHANNEL");
const QString LanguageLabels::m_strLangChannelConn =
    QStringLiteral("L_CHANNEL_INTERFACE_CURRENT_CHANNEL_CONN");
const QString LanguageLabels::m_strLangRecommendedTags =
    QStringLiteral("L_CHANNEL_INTERFACE_CURRENT_RECOMMENDED_TAGS");
const QString LanguageLabels::m_strLangStrengthPoor =
    QStringLiteral("L_CHANNEL_INTERFACE_CHANNEL_STRENGTH_POOR");
const QString LanguageLabels::m_strLangStrengthAverage =
    QStringLiteral("L_CHANNEL_INTERFACE_CHANNEL_STRENGTH_AVERAGE");
const QString LanguageLabels::m_strLangStrengthGreat =
    QStringLiteral("L_CHANNEL_INTERFACE_CHANNEL_STRENGTH_GREAT");
const QString LanguageLabels::m_strLangStrengthBest =
    QStringLiteral("L_CHANNEL_INTERFACE_CHANNEL_STRENGTH_BEST");
const QString LanguageLabels::m_strLstHeadChannel =
    QStringLiteral("L_CHANNEL_INTERFACE_LST_HEAD_CHANNEL");
const QString LanguageLabels::m_strLstHeadNetworkConnCount =
    QStringLiteral("L_CHANNEL_INTERFACE_LST_HEAD_NETWORK_CONN_COUNT");
const QString LanguageLabels::m_strLstHeadClarity =
    QStringLiteral("L_CHANNEL_INTERFACE_LST_HEAD_CLARITY");
const QString LanguageLabels::m_strHomeTestTitle = QStringLiteral("L_HOME_TESTING_TAB_NAME");
const QString LanguageLabels::m_strHomeTestNow = QStringLiteral("Now:");
const QString LanguageLabels::m_strHomeTestLast = QStringLiteral("Last:");
const QString LanguageLabels::m_strHomeTestSignalAnd = QStringLiteral(" signal and ");
const QString LanguageLabels::m_strHomeTestUnit = QStringLiteral(" Mbps");
const QString LanguageLabels::m_strHomeTestNull = QStringLiteral("N/A");
const QString LanguageLabels::m_strHomAddRoom = QStringLiteral("L_HOME_ADD_ROOM");
const QString LanguageLabels::m_strHomeEditRoom = QStringLiteral("L_HOME_EDIT_ROOM");
const QString LanguageLabels::m_strHomeDelRoom = QStringLiteral("L_HOME_DEL_ROOM");
const QString LanguageLabels::m_strHomeTest = QStringLiteral("L_HOME_TEST");
const QString LanguageLabels::m_strHomeTestININowPercent = QStringLiteral("NowPercent");
const QString LanguageLabels::m_strHomeTestININowSpeed = QStringLiteral("NowSpeed");
const QString LanguageLabels::m_strHomeTestINILastPercent = QStringLiteral("LastPercent");
const QString LanguageLabels::m_strHomeTestINILastSpeed = QStringLiteral("LastSpeed");
const QString LanguageLabels::m_strHomeDlgOk = QStringLiteral("L_HOME_DLG_OK");
const QString LanguageLabels::m_strHomeDlgCancel = QStringLiteral("L_HOME_DLG_CANCEL");
const QString LanguageLabels::m_strHomeDlgRoomName = QStringLiteral("L_HOME_DLG_ROOM_NAME");
const QString LanguageLabels::m_strHomeDlgRoomNameIsNull =
    QStringLiteral("L_HOME_DLG_ROOM_NAME_IS_NULL");
const QString LanguageLabels::m_strHomeDlgRoomNameIsRepeat =
    QStringLiteral("L_HOME_DLG_ROOM_NAME_IS_REPEAT");
const QString LanguageLabels::m_strEmpty;
const QString LanguageLabels::m_strColorRed =
    QStringLiteral("<html><font color=red>%1</font></html>");
