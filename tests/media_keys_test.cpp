#include "flash/ui/flash_window.h"
#include "flash/ui/small_flash_window.h"
#include "test_support.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
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

// A session bus of the test's own, announced to the program as its session bus, and a client on it
// that records every playback status the player announces. No bus fails the test: the set-up
// installs dbus.
class PrivateBus : public QObject
{
    Q_OBJECT
public:
    PrivateBus()
    {
        m_daemon.start("dbus-daemon", {"--session", "--print-address", "--nofork"});
        EXPECT_TRUE(m_daemon.waitForReadyRead(20000)) << "no private session bus could be started";
        const QByteArray address = m_daemon.readLine().trimmed();
        qputenv("DBUS_SESSION_BUS_ADDRESS", address);
        client = QDBusConnection::connectToBus(QString::fromUtf8(address), "client");
        client.connect(QString(), kPath, kProperties, "PropertiesChanged", this,
                       SLOT(changed(QString, QVariantMap, QStringList)));
    }
    ~PrivateBus() override
    {
        QDBusConnection::disconnectFromBus("client");
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
        m_daemon.kill();
        m_daemon.waitForFinished();
    }

    // Calls the player and waits for its answer, letting events through meanwhile.
    QVariant call(const QString& interface, const QString& method, const QVariantList& arguments = {})
    {
        QDBusMessage message = QDBusMessage::createMethodCall(kService, kPath, interface, method);
        message.setArguments(arguments);
        const QDBusMessage reply = client.call(message, QDBus::BlockWithGui, 10000);
        EXPECT_EQ(reply.type(), QDBusMessage::ReplyMessage) << method.toStdString();
        return reply.arguments().value(0);
    }
    QVariant property(const QString& name)
    {
        return call(kProperties, "Get", {kPlayer, name}).value<QDBusVariant>().variant();
    }
    bool registered() { return client.interface()->isServiceRegistered(kService); }

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

using Driver = std::function<void(const QString& action)>;

// Two runs of the cards: a skip, a replay and a pause in the first, a stop in the second, then
// the window closes. Returns what was played, below the languages folder.
QStringList drive(Program& p, FlashCardWindow* cards, const Driver& act)
{
    const QString name = cards->objectName();
    p.clock.at(2.5, [act] { act("skip"); });
    p.clock.at(6.5, [act] { act("replay"); });
    p.clock.at(11.0, [act] { act("pause"); });
    cards->playwords();
    p.clock.at(3.0, [act] { act("stop"); });
    act("resume");
    // A resume asked over the bus is answered first, then starts from the event loop.
    QCoreApplication::processEvents();
    act("close");
    EXPECT_EQ(window(name), nullptr);
    EXPECT_TRUE(p.main()->isVisible());
    return p.sound.played.replaceInStrings(p.session().languages_folder, QString());
}

// The cards of a course of twelve words, a button holding the focus: keys act all the same.
FlashCardWindow* openCards(Program& p, bool small)
{
    openCourse(p, 12);
    FlashCardWindow* cards = small ? static_cast<FlashCardWindow*>(new SmallFlashWindow(p.session(), p.main()))
                                   : new FlashWindow(p.session(), p.main());
    p.prompts.shown.clear();
    cards->show();
    QApplication::setActiveWindow(cards);
    cards->pause->setFocusPolicy(Qt::StrongFocus);
    cards->pause->setFocus();
    return cards;
}

// The handlers of the buttons (Skip, Pause, Resume, Exit) and the replay operation.
const QHash<QString, const char*> kHandlers = {{"skip", "next_word_click"}, {"replay", "replay"},
                                               {"pause", "pause_click"},    {"resume", "resume_click"},
                                               {"stop", "pause_click"},     {"close", "close"}};
const QHash<QString, Qt::Key> kKeys = {{"skip", Qt::Key_Right},   {"replay", Qt::Key_Left}, {"pause", Qt::Key_Space},
                                       {"resume", Qt::Key_Space}, {"stop", Qt::Key_Space},  {"close", Qt::Key_Escape}};

} // namespace

TEST(MediaKeys, CardsDrivenByKeysOrOverTheBusEndAsThoseDrivenByTheButtons)
{
    QStringList byButtons;
    for (const bool small : {false, true}) {
        Program clicked;
        FlashCardWindow* cards = openCards(clicked, small);
        const QStringList played = drive(
            clicked, cards, [cards](const QString& action) { QMetaObject::invokeMethod(cards, kHandlers[action]); });
        // With no session bus the cards run as before, and nothing is said about it.
        Program keyed;
        cards = openCards(keyed, small);
        EXPECT_EQ(drive(keyed, cards, [cards](const QString& action) { QTest::keyClick(cards, kKeys[action]); }),
                  played);
        EXPECT_EQ(keyed.prompts.boxes(), QStringList());
        if (!small)
            byButtons = played;
    }
    // Plays last 1.8 s: the skip cuts the first card's second play short, the replay comes in the
    // third play of the next card and brings the first back.
    ASSERT_GE(byButtons.size(), 6);
    EXPECT_NE(byButtons[0], byButtons[2]);
    EXPECT_EQ(byButtons.mid(0, 6),
              QStringList({byButtons[0], byButtons[0], byButtons[2], byButtons[2], byButtons[2], byButtons[0]}));

    PrivateBus bus;
    Program p;
    FlashCardWindow* cards = openCards(p, false);
    EXPECT_FALSE(bus.registered());
    // While a card shows, the player is registered, playing, and its metadata is the card.
    QStringList shown, announced;
    auto look = [&] {
        shown << cards->word_lbl->text() + "|" + cards->word_lbl2->text();
        const QVariantMap metadata = qdbus_cast<QVariantMap>(bus.property("Metadata"));
        announced << metadata["xesam:title"].toString() + "|" + metadata["xesam:artist"].toStringList().join(',');
        announced << metadata["mpris:trackid"].value<QDBusObjectPath>().path();
        EXPECT_EQ(bus.property("PlaybackStatus").toString(), "Playing");
        EXPECT_TRUE(bus.registered());
    };
    p.clock.at(1.5, look);
    p.clock.at(4.5, look);
    const QHash<QString, QString> methods = {
        {"skip", "Next"}, {"replay", "Previous"}, {"pause", "Pause"}, {"resume", "PlayPause"}, {"stop", "Stop"}};
    EXPECT_EQ(drive(p, cards,
                    [&bus, cards, methods](const QString& action) {
                        action == "close" ? QTest::keyClick(cards, Qt::Key_Escape)
                                          : void(bus.call(kPlayer, methods[action]));
                    }),
              byButtons);
    EXPECT_FALSE(bus.registered());
    ASSERT_EQ(announced.size(), 4);
    EXPECT_EQ(QStringList({announced[0], announced[2]}), shown);
    EXPECT_NE(shown[0], shown[1]);
    EXPECT_NE(announced[1], announced[3]);
    EXPECT_TRUE(QTest::qWaitFor([&bus] { return bus.statuses.size() >= 4; }, 10000));
    EXPECT_EQ(bus.statuses, QStringList({"Playing", "Paused", "Playing", "Stopped"}));
}

#include "media_keys_test.moc"
