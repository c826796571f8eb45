#ifndef AIRLUME_CHANNELS_CHANNELINTERFACEWGT_H
#define AIRLUME_CHANNELS_CHANNELINTERFACEWGT_H

#include "channels/channelcensus.h"
#include "scan/wifiproperty.h"

#include <QList>
#include <QPointer>
#include <QVector>
#include <QWidget>

class QGridLayout;
class QHBoxLayout;
class QLabel;
class QProgressBar;
class QScrollArea;
class QVBoxLayout;

/// One row of the per-channel list.
struct _Channel_Property {
    int channel = 0;
    int networkCount = 0;
    QString clarity; ///< The rating word, in the language of its time.
};

/// The channel-interference tab: how crowded the joined network's channel is, how crowded every
/// other one, and which to prefer. Needs QtCommonTools::Init() before it. GUI thread only.
class ChannelInterfaceWgt : public QWidget
{
    Q_OBJECT

public:
    explicit ChannelInterfaceWgt(QWidget *parent = nullptr);

    /// Lays the widgets out; called by the constructor.
    void Init();
    /// Gives the rating word, in the current language, of a channel with `count` access points.
    void GetClarityFormNetworkConnCount(int count, QString &clarity);
    /// Shows the joined network's channel, or nothing when `channel` is -1.
    void SetCurrentNetworkChannel(
        int channel, int count, const QString &clarity, const QString &recommended);
    /// Builds the per-channel list anew.
    void CreateChannelLst();
    /// Sets the captions of the current channel's area again in the current language.
    void ChangeLanguage();
    /// No network is joined any more.
    void NetworkLeft();

    bool eventFilter(QObject *watched, QEvent *event) override;

public slots:
    /// Takes the access points of one scan; only every fifth vector is evaluated.
    void slotDataReturned(QVector<WifiProperty> networks);
    /// Takes the joined network's name; empty when there is none.
    void onNetworkReturned(QString name);
    /// The window has another size.
    void slotUpdateWindowSize();

private:
    void AddListHead(QGridLayout *grid, QWidget *sheet);
    void AddChannelRow(QGridLayout *grid, QWidget *sheet, const _Channel_Property &property);
    void FitListWidth();

    QString m_strNetworkName;
    /// No record is the joined network's then: not even one without a name.
    bool m_bHasLeft = false;
    int m_iCurrentChannel = -1;
    ChannelCensus m_census;
    QList<_Channel_Property> m_lstChannel;

    QPointer<QLabel> m_pChannelCaption;
    QPointer<QLabel> m_pChannelLabel;
    QPointer<QLabel> m_pCountCaption;
    QPointer<QProgressBar> m_pCountBar;
    QPointer<QLabel> m_pCountLabel;
    QPointer<QLabel> m_pClarityLabel;
    QPointer<QLabel> m_pRecommendedCaption;
    QPointer<QLabel> m_pRecommendedLabel;
    QPointer<QGridLayout> m_pSummaryLayout;
    QPointer<QWidget> m_pSummaryBox;
    QPointer<QVBoxLayout> m_pSummaryColumn;
    QPointer<QScrollArea> m_pListArea;
    QPointer<QHBoxLayout> m_pListLayout;
    QPointer<QWidget> m_pListHolder;
    QPointer<QHBoxLayout> m_pPanelLayout;
};

#endif
