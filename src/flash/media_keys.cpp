#include "flash/media_keys.h"

#include "core/product.h"

#include <QCoreApplication>
#include <QDBusAbstractAdaptor>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QMetaObject>

namespace quorvane {

namespace {

const QString kObjectPath = QStringLiteral("/org/mpris/MediaPlayer2");
const QString kServiceName = QStringLiteral("org.mpris.MediaPlayer2.quorvane");
const QString kPlayerInterface = QStringLiteral("org.mpris.MediaPlayer2.Player");
const QString kPropertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");
const QString kTrackPath = QStringLiteral("/org/quorvane/card/");

// org.mpris.MediaPlayer2: who the player is and what it can do as an application.
class RootAdaptor : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2")
    Q_PROPERTY(bool CanQuit READ yes)
    Q_PROPERTY(bool CanRaise READ yes)
    Q_PROPERTY(bool HasTrackList READ no)
    Q_PROPERTY(QString Identity READ identity)
    Q_PROPERTY(QStringList SupportedUriSchemes READ none)
    Q_PROPERTY(QStringList SupportedMimeTypes READ none)
public:
    explicit RootAdaptor(MediaKeys* keys) : QDBusAbstractAdaptor(keys), m_keys(keys) {}
    bool yes() const { return true; }
    bool no() const { return false; }
    QString identity() const { return QString::fromLatin1(product::kName); }
    QStringList none() const { return {}; }

public slots:
    void Raise() { m_keys->raise(); }
    void Quit() { m_keys->quit(); }

private:
    MediaKeys* m_keys;
};

// org.mpris.MediaPlayer2.Player: the cards as something that plays. There is no position to seek
// to, so Seek, SetPosition and OpenUri do nothing, as the interface allows.
class PlayerAdaptor : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2.Player")
    Q_PROPERTY(QString PlaybackStatus READ playbackStatus)
    Q_PROPERTY(double Rate READ one)
    Q_PROPERTY(double MinimumRate READ one)
    Q_PROPERTY(double MaximumRate READ one)
    Q_PROPERTY(double Volume READ one)
    Q_PROPERTY(qlonglong Position READ position)
    Q_PROPERTY(QVariantMap Metadata READ metadata)
    Q_PROPERTY(bool CanGoNext READ yes)
    Q_PROPERTY(bool CanGoPrevious READ yes)
    Q_PROPERTY(bool CanPlay READ yes)
    Q_PROPERTY(bool CanPause READ yes)
    Q_PROPERTY(bool CanControl READ yes)
    Q_PROPERTY(bool CanSeek READ no)
public:
    explicit PlayerAdaptor(MediaKeys* keys) : QDBusAbstractAdaptor(keys), m_keys(keys) {}
    QString playbackStatus() const { return m_keys->playbackStatus(); }
    QVariantMap metadata() const { return m_keys->metadata(); }
    double one() const { return 1.0; }
    qlonglong position() const { return 0; }
    bool yes() const { return true; }
    bool no() const { return false; }

public slots:
    void PlayPause() { m_keys->playPause(); }
    void Play() { m_keys->play(); }
    void Pause() { m_keys->pause(); }
    void Next() { m_keys->next(); }
    void Previous() { m_keys->previous(); }
    void Stop() { m_keys->stop(); }
    void Seek(qlonglong offset) { (void)offset; }
    void SetPosition(const QDBusObjectPath& track, qlonglong position)
    {
        (void)track;
        (void)position;
    }
    void OpenUri(const QString& uri) { (void)uri; }

signals:
    void Seeked(qlonglong position);

private:
    MediaKeys* m_keys;
};

} // namespace

MediaKeys::MediaKeys(QObject* parent) : QObject(parent)
{
    new RootAdaptor(this);
    new PlayerAdaptor(this);
    m_announcedStatus = playbackStatus();
    // Only a bus the desktop announces: never one started on demand for us.
    const QString address = QString::fromLocal8Bit(qgetenv("DBUS_SESSION_BUS_ADDRESS"));
    if (address.isEmpty())
        return;
    m_connectionName = QStringLiteral("quorvane-media-keys-%1").arg(quintptr(this), 0, 16);
    QDBusConnection bus = QDBusConnection::connectToBus(address, m_connectionName);
    if (!bus.isConnected() || !bus.registerObject(kObjectPath, this, QDBusConnection::ExportAdaptors)) {
        withdraw();
        return;
    }
    for (const QString& name : {kServiceName, kServiceName + QStringLiteral(".instance") +
                                                  QString::number(QCoreApplication::applicationPid())}) {
        if (bus.registerService(name)) {
            m_serviceName = name;
            return;
        }
    }
    withdraw();
}

MediaKeys::~MediaKeys()
{
    withdraw();
}

void MediaKeys::withdraw()
{
    if (m_connectionName.isEmpty())
        return;
    QDBusConnection bus(m_connectionName);
    if (!m_serviceName.isEmpty())
        bus.unregisterService(m_serviceName);
    bus.unregisterObject(kObjectPath);
    QDBusConnection::disconnectFromBus(m_connectionName);
    m_connectionName.clear();
    m_serviceName.clear();
}

QString MediaKeys::playbackStatus() const
{
    if (m_running)
        return QStringLiteral("Playing");
    return m_stopAsked ? QStringLiteral("Stopped") : QStringLiteral("Paused");
}

void MediaKeys::showCard(const QString& word, const QString& translation)
{
    ++m_cards;
    m_metadata = {
        {QStringLiteral("mpris:trackid"), QVariant::fromValue(QDBusObjectPath(kTrackPath + QString::number(m_cards)))},
        {QStringLiteral("xesam:title"), word},
        {QStringLiteral("xesam:artist"), QStringList{translation}},
    };
    announce({{QStringLiteral("Metadata"), m_metadata}});
}

void MediaKeys::setRunning(bool running)
{
    m_running = running;
    if (running)
        m_stopAsked = false;
    announce({});
}

void MediaKeys::playPause()
{
    later(m_running ? &MediaKeys::pauseRequested : &MediaKeys::resumeRequested);
}

void MediaKeys::play()
{
    if (!m_running)
        later(&MediaKeys::resumeRequested);
}

void MediaKeys::pause()
{
    if (m_running)
        later(&MediaKeys::pauseRequested);
}

void MediaKeys::next()
{
    later(&MediaKeys::skipRequested);
}

void MediaKeys::previous()
{
    later(&MediaKeys::replayRequested);
}

void MediaKeys::stop()
{
    m_stopAsked = true;
    // Stopped at once when nothing runs; otherwise once the run has ended.
    announce({});
    later(&MediaKeys::stopRequested);
}

void MediaKeys::raise()
{
    later(&MediaKeys::raiseRequested);
}

void MediaKeys::quit()
{
    later(&MediaKeys::quitRequested);
}

void MediaKeys::later(void (MediaKeys::*signal)())
{
    QMetaObject::invokeMethod(
        this, [this, signal] { emit(this->*signal)(); }, Qt::QueuedConnection);
}

void MediaKeys::announce(const QVariantMap& changed)
{
    QVariantMap properties = changed;
    if (const QString status = playbackStatus(); status != m_announcedStatus) {
        m_announcedStatus = status;
        properties.insert(QStringLiteral("PlaybackStatus"), status);
    }
    if (properties.isEmpty() || m_serviceName.isEmpty())
        return;
    QDBusMessage signal =
        QDBusMessage::createSignal(kObjectPath, kPropertiesInterface, QStringLiteral("PropertiesChanged"));
    signal << kPlayerInterface << properties << QStringList();
    QDBusConnection(m_connectionName).send(signal);
}

} // namespace quorvane

#include "media_keys.moc"
