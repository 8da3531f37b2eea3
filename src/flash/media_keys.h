#pragma once

#include <QObject>
#include <QString>
#include <QVariantMap>

namespace quorvane {

// The running flash cards as a media player on the session bus (MPRIS: the interfaces
// org.mpris.MediaPlayer2 and org.mpris.MediaPlayer2.Player at /org/mpris/MediaPlayer2, service
// org.mpris.MediaPlayer2.quorvane, or that name with ".instance<pid>" when another copy holds it),
// so that the desktop's media keys and a headset's buttons reach them. Registered from
// construction until withdraw() or destruction. With no session bus (DBUS_SESSION_BUS_ADDRESS
// unset, as in a terminal without a desktop) or a bus that refuses, nothing is registered and
// nothing is said: the cards run as before. No bus is ever started for it.
//
// It knows the cards only through what the card loop shows (showCard, setRunning) and asks for
// actions through its signals, which are emitted from the event loop after the bus call that
// asked has been answered, so a slot may start a run of the cards.
class MediaKeys : public QObject
{
    Q_OBJECT
public:
    explicit MediaKeys(QObject* parent = nullptr);
    ~MediaKeys() override;
    MediaKeys(const MediaKeys&) = delete;
    MediaKeys& operator=(const MediaKeys&) = delete;

    // The name held on the bus; empty when nothing is registered.
    QString serviceName() const { return m_serviceName; }
    void withdraw();

    // What the card loop shows: the current card, and whether a run is going on.
    void showCard(const QString& word, const QString& translation);
    void setRunning(bool running);

    // "Playing" while a run goes on; once it ends, "Stopped" when Stop asked for the end, else
    // "Paused".
    QString playbackStatus() const;
    // xesam:title the word, xesam:artist the translation, mpris:trackid one path per card shown.
    QVariantMap metadata() const { return m_metadata; }

    // The player's commands as the bus delivers them.
    void playPause();
    void play();
    void pause();
    void next();
    void previous();
    void stop();
    void raise();
    void quit();

signals:
    void pauseRequested();
    void resumeRequested();
    void skipRequested();
    void replayRequested();
    void stopRequested();
    void raiseRequested();
    void quitRequested();

private:
    // Emits the signal from the event loop, once the bus call has returned.
    void later(void (MediaKeys::*signal)());
    void announce(const QVariantMap& changed);

    QString m_connectionName;
    QString m_serviceName;
    bool m_running = false;
    bool m_stopAsked = false;
    QString m_announcedStatus;
    QVariantMap m_metadata;
    int m_cards = 0;
};

} // namespace quorvane
