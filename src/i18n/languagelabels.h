#ifndef AIRLUME_I18N_LANGUAGELABELS_H
#define AIRLUME_I18N_LANGUAGELABELS_H

#include <QString>

/// Names every label key, the fixed texts and the keys of the room file.
///
/// Members whose value begins with "L_" are keys: give them to QtCommonTools::tr(). The others are
/// used as they stand and stay English in every language. Constant; readable from any thread.
class LanguageLabels
{
public:
    LanguageLabels() = delete;

    static const QString m_strDefaultLang;
    static const QString m_strLangFinleName;

    static const QString m_strLangHeadSSID;
    static const QString m_strLangHeadSignal;
    static const QString m_strLangHeadChannel;
    static const QString m_strLangHeadSecurity;
    static const QString m_strLangHeadMac;

    static const QString m_strLangBoardPoor;
    static const QString m_strLangBoardGood;
    static const QString m_strLangBoardBest;
    static const QString m_strLangBoardSignalStrength;
    static const QString m_strLangBoardConnectedNetwork;
    static const QString m_strLangBoardNoNetworkConn;

    static const QString m_strLangSignalGraph;
    static const QString m_strLangChannelGraph;
    static const QString m_strLangChannelInterface;

    static const QString m_strLangCurrentChannel;
    static const QString m_strLangChannelConn;
    static const QString m_strLangRecommendedTags;
    static const QString m_strLangStrengthPoor;
    static const QString m_strLangStrengthAverage;
    static const QString m_strLangStrengthGreat;
    static const QString m_strLangStrengthBest;
    static const QString m_strLstHeadChannel;
    static const QString m_strLstHeadNetworkConnCount;
    static const QString m_strLstHeadClarity;

    static const QString m_strHomeTestTitle;
    static const QString m_strHomeTestNow;
    static const QString m_strHomeTestLast;
    static const QString m_strHomeTestSignalAnd;
    static const QString m_strHomeTestUnit;
    static const QString m_strHomeTestNull;
    static const QString m_strHomAddRoom;
    static const QString m_strHomeEditRoom;
    static const QString m_strHomeDelRoom;
    static const QString m_strHomeTest;
    static const QString m_strHomeTestININowPercent;
    static const QString m_strHomeTestININowSpeed;
    static const QString m_strHomeTestINILastPercent;
    static const QString m_strHomeTestINILastSpeed;
    static const QString m_strHomeDlgOk;
    static const QString m_strHomeDlgCancel;
    static const QString m_strHomeDlgRoomName;
    static const QString m_strHomeDlgRoomNameIsNull;
    static const QString m_strHomeDlgRoomNameIsRepeat;

    static const QString m_strEmpty;
    static const QString m_strColorRed;
};

#endif
