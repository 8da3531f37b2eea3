#include "flash/flash_window.h"
#include "flash/media_keys.h"
#include "flash/small_flash_window.h"
#include "test_support.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QLabel>
#include <QProcess>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

using namespace quorvane;
using namespace quorvane::test;

namespace {

const QString kService = "org.mpris.MediaPlayer2.quorvane";
const QString kPath = "/org/mpris/MediaPlayer2";
const QString kPlayer = "org.mpris.MediaPlayer2.Player";
const QString kProperties = "org.freedesktop.DBus.Properties";

// A session bus of the test's own (a desktop's bus is never touched), announced to the program as
// the session bus, and a client on it that records every playback status the player announces.
// No bus is a failure: the dbus package is part of the set-up.
class PrivateBus : public QObject
{
    Q_OBJECT
public:
    PrivateBus()
    {
        m_daemon.start("dbus-daemon", {"--session", "--print-address", "--nofork"});
        if (m_daemon.waitForReadyRead(20000))
            address = QString::fromUtf8(m_daemon.readLine()).trimmed();
        qputenv("DBUS_SESSION_BUS_ADDRESS", address.toUtf8());
        client = QDBusConnection::connectToBus(address, "media-keys-test-client");
        client.connect(QString(), kPath, kProperties, "PropertiesChanged", this,
                       SLOT(changed(QString, QVariantMap, QStringList)));
    }
    ~PrivateBus() override
    {
        QDBusConnection::disconnectFromBus("media-keys-test-client");
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
        m_daemon.kill();
        m_daemon.waitForFinished();
    }

    // Calls a method of the player and waits for its answer, letting events through meanwhile.
    QDBusMessage call(const QString& interface, const QString& method, const QVariantList& arguments = {})
    {
        QDBusMessage message = QDBusMessage::createMethodCall(kService, kPath, interface, method);
        message.setArguments(arguments);
        const QDBusMessage reply = client.call(message, QDBus::BlockWithGui, 10000);
        EXPECT_EQ(reply.type(), QDBusMessage::ReplyMessage)
            << method.toStdString() << ": " << reply.errorMessage().toStdString();
        return reply;
    }
    QVariant property(const QString& name)
    {
        return call(kProperties, "Get", {kPlayer, name}).arguments().value(0).value<QDBusVariant>().variant();
    }
    bool registered() { return client.interface()->isServiceRegistered(kService); }

    QString address;
    QDBusConnection client{QString()};
    QStringList statuses;

public slots:
    void changed(const QString& interface, const QVariantMap& properties, const QStringList&)
    {
        if (interface == kPlayer && properties.contains("PlaybackStatus"))
            statuses << properties["PlaybackStatus"].toString();
    }

private:
    QProcess m_daemon;
};

// The ways of driving the cards: the buttons, the bus, the keys.
struct Controls
{
    std::function<void()> skip, replay, pause, resume, stop, close;
};

Controls buttons(FlashCardWindow* cards)
{
    return {[=] { cards->next_word->click(); }, [=] { cards->replay(); }, [=] { cards->pause->click(); },
            [=] { cards->resume->click(); }, [=] { cards->pause->click(); },
            // The large window's Exit; the small one has only its frame.
            [=] {
                if (auto* exit = cards->findChild<QPushButton*>("exit_btn"))
                    exit->click();
                else
                    cards->close();
            }};
}

Controls keys(FlashCardWindow* cards)
{
    auto key = [cards](Qt::Key key) { return [cards, key] { QTest::keyClick(cards, key); }; };
    return {key(Qt::Key_Right), key(Qt::Key_Left),  key(Qt::Key_Space),
            key(Qt::Key_Space), key(Qt::Key_Space), key(Qt::Key_Escape)};
}

Controls overBus(FlashCardWindow* cards, PrivateBus& bus)
{
    auto command = [&bus](const char* method) { return [&bus, method] { bus.call(kPlayer, method); }; };
    // A command that starts a run answers first; the run starts from the event loop.
    return {command("Next"),
            command("Previous"),
            command("Pause"),
            [&bus] {
                bus.call(kPlayer, "PlayPause");
                QCoreApplication::processEvents();
            },
            command("Stop"),
            keys(cards).close};
}

// Two runs of the cards: a skip, a replay and a pause in the first, a stop in the second, then
// the window closes. Returns what was played, below the languages folder.
QStringList drive(Program& p, FlashCardWindow* cards, const Controls& controls)
{
    p.clock.at(2.5, controls.skip);
    p.clock.at(6.5, controls.replay);
    p.clock.at(11.0, controls.pause);
    cards->playwords();
    p.clock.at(3.0, controls.stop);
    controls.resume();
    EXPECT_EQ(p.session().stop_flag, "yes");
    controls.close();
    EXPECT_EQ(window(cards->objectName()), nullptr);
    EXPECT_TRUE(p.main()->isVisible());
    return p.sound.played.replaceInStrings(p.session().languages_folder, QString());
}

template <typename Window> Window* openWindow(Program& p)
{
    openCourse(p, 12);
    auto* cards = new Window(p.session(), p.main());
    p.prompts.shown.clear();
    // Keys act wherever the focus is, a button included.
    cards->show();
    QApplication::setActiveWindow(cards);
    cards->pause->setFocusPolicy(Qt::StrongFocus);
    cards->pause->setFocus();
    return cards;
}

} // namespace

TEST(MediaKeys, CardsDrivenOverTheBusOrByKeysEndAsThoseDrivenByTheButtons)
{
    QStringList byButtons;
    QStringList byKeys;
    QStringList byBus;
    {
        Program p;
        FlashWindow* cards = openWindow<FlashWindow>(p);
        byButtons = drive(p, cards, buttons(cards));
    }
    {
        // With no session bus the cards run as before, and nothing is said about it.
        Program p;
        FlashWindow* cards = openWindow<FlashWindow>(p);
        p.clock.at(1.0, [cards] { EXPECT_EQ(cards->mediaKeys()->serviceName(), QString()); });
        byKeys = drive(p, cards, keys(cards));
        EXPECT_EQ(boxes(p.prompts), QStringList());
    }
    {
        PrivateBus bus;
        ASSERT_FALSE(bus.address.isEmpty()) << "no private session bus could be started";
        Program p;
        FlashWindow* cards = openWindow<FlashWindow>(p);
        EXPECT_FALSE(bus.registered());
        // The metadata follows the card shown.
        QList<QStringList> shown;
        QList<QStringList> announced;
        auto look = [&] {
            shown << QStringList{cards->word_lbl->text(), cards->word_lbl2->text()};
            const QVariantMap metadata = qdbus_cast<QVariantMap>(bus.property("Metadata"));
            announced << QStringList{metadata["xesam:title"].toString(),
                                     metadata["xesam:artist"].toStringList().join('|'),
                                     metadata["mpris:trackid"].value<QDBusObjectPath>().path()};
            EXPECT_EQ(bus.property("PlaybackStatus").toString(), "Playing");
            EXPECT_TRUE(bus.registered());
        };
        p.clock.at(1.5, look);
        p.clock.at(4.5, look);
        byBus = drive(p, cards, overBus(cards, bus));
        EXPECT_FALSE(bus.registered());
        ASSERT_EQ(announced.size(), 2);
        for (int i = 0; i < 2; ++i)
            EXPECT_EQ(announced[i].mid(0, 2), shown[i]);
        EXPECT_NE(shown[0], shown[1]);
        EXPECT_NE(announced[0][2], announced[1][2]);
        EXPECT_TRUE(QTest::qWaitFor([&bus] { return bus.statuses.size() >= 4; }, 10000));
        EXPECT_EQ(bus.statuses, QStringList({"Playing", "Paused", "Playing", "Stopped"}));
    }
    // Plays last 1.8 s: the skip cuts the first card's second play short, the replay comes in the
    // third play of the next card and brings the first back.
    ASSERT_GE(byButtons.size(), 6);
    const QString first = byButtons[0];
    const QString second = byButtons[2];
    EXPECT_NE(first, second);
    EXPECT_EQ(byButtons.mid(0, 6), QStringList({first, first, second, second, second, first}));
    EXPECT_EQ(byKeys, byButtons);
    EXPECT_EQ(byBus, byButtons);
}

TEST(MediaKeys, TheSmallCardAnswersTheSameKeys)
{
    QStringList byButtons;
    {
        Program p;
        SmallFlashWindow* cards = openWindow<SmallFlashWindow>(p);
        byButtons = drive(p, cards, buttons(cards));
    }
    Program p;
    SmallFlashWindow* cards = openWindow<SmallFlashWindow>(p);
    EXPECT_EQ(drive(p, cards, keys(cards)), byButtons);
}

#include "media_keys_test.moc"
