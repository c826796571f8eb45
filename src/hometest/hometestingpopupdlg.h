#ifndef AIRLUME_HOMETEST_HOMETESTINGPOPUPDLG_H
#define AIRLUME_HOMETEST_HOMETESTINGPOPUPDLG_H

#include <QDialog>
#include <QPointer>

class QLabel;
class QLineEdit;
class QPushButton;
class QVBoxLayout;

/// The small frameless dialog that asks for a room's name or for a yes to deleting one.
///
/// The title key decides at construction: LanguageLabels::m_strHomeDelRoom makes the question,
/// every other key the name form. Made once, shown often. Room names are plain text of any kind and
/// length. GUI thread only.
class HomeTestingPopupDlg : public QDialog
{
    Q_OBJECT

public:
    explicit HomeTestingPopupDlg(const QString &titleKey, QWidget *parent = nullptr);

    /// Fills the dialog; called by the constructor.
    void Init();
    /// Puts `text` into the name field; nothing when the dialog only asks whether to delete.
    void SetText(QString &text);
    /// Gives the keyboard to the name field or, before deleting, to Cancel: Return then cancels.
    void SetCurrentFocus();
    /// Sets every text again in the current language, a shown error included.
    void ChangeLanguage();

public slots:
    /// Escape is Cancel.
    void reject() override;

signals:
    /// A name that is not empty and not taken was confirmed; trimmed.
    void SendHomeName(QString name);
    /// Deleting was confirmed.
    void SendDelConfirm();

protected slots:
    void ClickedOK();
    void ClickedCancel();

protected:
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    bool IsDeleteMode() const;
    void InitNameRow(QVBoxLayout *rows);
    void FitNameFont();
    void ShowError(const QString &key);
    void CloseWithoutError();

    QString m_strTitleKey;
    QString m_strErrorKey;
    QPointer<QLabel> m_pTitleLabel;
    QPointer<QLabel> m_pMessageLabel;
    QPointer<QLabel> m_pNameLabel;
    QPointer<QLineEdit> m_pNameEdit;
    QPointer<QPushButton> m_pOkBtn;
    QPointer<QPushButton> m_pCancelBtn;
};

#endif
