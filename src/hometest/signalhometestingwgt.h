#ifndef AIRLUME_HOMETEST_SIGNALHOMETESTINGWGT_H
#define AIRLUME_HOMETEST_SIGNALHOMETESTINGWGT_H

#include <QPixmap>
#include <QPointer>
#include <QWidget>

class HomeTestingBtnWgt;
class HomeTestingPopupDlg;
class LineTableWidget;
class QLabel;
class QPushButton;

/// The home-testing tab: a table of rooms, each with the results of its last two tests.
///
/// Measures nothing itself: it keeps the latest values it was sent and records them when "Test" is
/// pressed. A singleton; whoever called Instance() first deletes it. Needs
/// QtCommonTools::Init() before it. GUI thread only.
class SignalHomeTestingWgt : public QWidget
{
    Q_OBJECT

public:
    /// The one panel. Made, as a child of `parent`, on the first call; later ones ignore `parent`.
    static SignalHomeTestingWgt *Instance(QWidget *parent = nullptr);
    ~SignalHomeTestingWgt() override;

    /// Builds the panel; called by the constructor.
    void Init();
    /// Sets the table up and fills it.
    void InitLst();
    /// Fills the table with every room, in order of their names.
    void InitLstData();
    /// Appends one row without text, its "Test" button hidden.
    void AddEmptyRowToTabwgt();
    /// Sets the texts of buttons and dialogs again in the current language.
    void ChangeLanguage();

    /// Leaves the picture out: it follows the panel's height and must not hold the window open.
    QSize minimumSizeHint() const override;

    static SignalHomeTestingWgt *m_pInstance;

public slots:
    /// Takes the joined network's signal in dBm; 0 when there is none.
    void SetSignalValue(int rssi);
    /// Takes the joined network's link speed in Mbps.
    void SetSignalSpeedValue(int speed);
    /// The window was maximised: fits the picture.
    void ResMaxWindow();
    /// The window is back to its normal size: fits the picture.
    void ResRestoreWindow();
    /// Takes the joined network's name; empty when there is none.
    void onNetworkReturned(QString name);
    /// A row was clicked: moves the "Test" button there.
    void SetTestBtnVisible(int row, int column);
    /// "Test" was pressed: records the latest values for the current row's room.
    void ClickedTestBtn();
    /// Another tab was chosen: fits the picture.
    void ClickedTab();
    /// Asks whether to delete the current row's room.
    void DelHome();
    /// Asks for a new name of the current row's room.
    void EditHome();
    /// Asks for the name of a new room.
    void AddHome();
    /// Adds the room that the add dialog confirmed.
    void AddHomeName(QString name);
    /// Gives the edited room the name that the edit dialog confirmed.
    void UpdateHomeName(QString name);
    /// Deletes the current row's room.
    void DelHomeName();

private:
    explicit SignalHomeTestingWgt(QWidget *parent);

    QWidget *CreateButtonColumn();
    HomeTestingBtnWgt *TestBtnWgt(int row) const;
    void FitPicture();

    int m_iRowCount = 0;
    int m_iCurrentRow = 0;
    int m_iPreviousRow = -1;
    int m_iImageSide = 0;
    bool m_bIsMax = false;
    const int m_iBtnColumnWidth = 100;
    int m_iCurrentPercent = 0;
    int m_iCurrentSpeed = 0;
    bool m_bIsConnected = false;
    QString m_strEditedName;

    QPixmap m_picture;
    QPointer<QLabel> m_pPictureLabel;
    QPointer<LineTableWidget> m_pTable;
    QPointer<QWidget> m_pTableWgt;
    QPointer<QPushButton> m_pAddBtn;
    QPointer<QPushButton> m_pEditBtn;
    QPointer<QPushButton> m_pDelBtn;
    QPointer<QWidget> m_pBtnWgt;
    QPointer<HomeTestingPopupDlg> m_pAddDlg;
    QPointer<HomeTestingPopupDlg> m_pEditDlg;
    QPointer<HomeTestingPopupDlg> m_pDelDlg;
};

#endif
