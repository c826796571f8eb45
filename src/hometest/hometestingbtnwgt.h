#ifndef AIRLUME_HOMETEST_HOMETESTINGBTNWGT_H
#define AIRLUME_HOMETEST_HOMETESTINGBTNWGT_H

#include <QPointer>
#include <QWidget>

class QHBoxLayout;
class QPushButton;

/// The right half of a room's row: its "Test" button, hidden until the row is clicked.
/// GUI thread only.
class HomeTestingBtnWgt : public QWidget
{
    Q_OBJECT

public:
    explicit HomeTestingBtnWgt(QWidget *parent = nullptr);

    /// Puts the button into the layout; called by the constructor.
    void Init();
    /// Shows or hides the button.
    void SetCurrentBtnVisible(bool visible);
    /// Sets the button's text in the current language.
    void ChangeLanguage();

signals:
    /// The button was clicked.
    void ClickedCurrentBtn();

private:
    QPointer<QHBoxLayout> m_pLayout;
    QPointer<QPushButton> m_pTestBtn;
};

#endif
