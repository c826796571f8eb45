#ifndef AIRLUME_I18N_IPCLOCALSOCKET_H
#define AIRLUME_I18N_IPCLOCALSOCKET_H

#include <QObject>
#include <QString>

class QLocalSocket;

/// The channel to the host suite, and the holder of the current language code.
///
/// Asks the host once, at construction, which language to use; afterwards the host may send a
/// language or ask Airlume to quit. Without a host the language stays English. GUI thread only.
class IpcLocalSocket : public QObject
{
    Q_OBJECT

public:
    /// Connects to the local server `name` and sends the request; blocks for up to 1.1 s.
    explicit IpcLocalSocket(const QString &name);
    ~IpcLocalSocket() override;

    /// Sends the language request and waits up to 100 ms for it to be written.
    void RequestLanguage();
    /// Takes the language code out of a host's answer and makes it the current one.
    void DealResponseLanguage(QString &text);
    /// The current language code.
    QString &GetLang() { return m_strLang; }
    /// Closes the channel. Harmless when it is closed already.
    void Release();

signals:
    /// The current language code has changed: labels must be set again.
    void ChangeLanguage();

public slots:
    /// Reads and obeys what the host sent.
    void slotReadyRead();

private:
    QLocalSocket *m_pSocket;
    QString m_strLang;
    QString m_strServerName;
};

#endif
