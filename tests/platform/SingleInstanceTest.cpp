#include "SingleInstance.h"

#include "BoundProcess.h"
#include "Printers.h"
#include "WaitFor.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <memory>
#include <string>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace ostrel::test {
namespace {

using namespace std::chrono_literals;
using Claim = SingleInstance::Claim;

/// Patience with a first program that answers.
constexpr auto ample = 60s;
/// Patience with one that doesn't.
constexpr auto brief = 300ms;

/// Another start of the program, in a process of its own.
class Start
{
public:
    explicit Start(const QString &folder, std::chrono::milliseconds patience = ample,
                   const QString &token = {}, const QString &request = {})
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove(u"DESKTOP_STARTUP_ID"_s);
        environment.insert(u"XDG_ACTIVATION_TOKEN"_s, token);
        m_process.setProcessEnvironment(environment);
        m_process.start(u"" OSTREL_INSTANCE_HELPER ""_s,
                        {folder, QString::number(patience.count()), request});
    }

    [[nodiscard]] QByteArray nextLine() { return m_process.nextLine(30s); }
    /// Asks it to renew its ownership; its next line is the answer.
    void renew()
    {
        m_process.write("\n");
        m_process.waitForBytesWritten();
    }
    void signal(int number) { ::kill(static_cast<pid_t>(m_process.processId()), number); }
    void killHard()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

private:
    BoundProcess m_process;
};

class SingleInstanceTest : public testing::Test
{
protected:
    [[nodiscard]] std::unique_ptr<Start> start(std::chrono::milliseconds patience = ample,
                                               const QString &token = {}) const
    {
        return std::make_unique<Start>(m_folder.path(), patience, token);
    }

    [[nodiscard]] QString path(const char *name) const
    {
        return m_folder.filePath(QString::fromUtf8(name));
    }

    QTemporaryDir m_folder;
};

TEST_F(SingleInstanceTest, TheSecondStartHandsOverWithItsToken)
{
    const auto first = start();
    ASSERT_EQ(first->nextLine(), "first");
    const auto second = start(ample, u"token-1 \u00fc"_s);
    EXPECT_EQ(second->nextLine(), "handedOver");
    EXPECT_EQ(first->nextLine(), "activated token-1 \xc3\xbc");

    const auto third = start();
    EXPECT_EQ(third->nextLine(), "handedOver");
    EXPECT_EQ(first->nextLine(), "activated");
}

TEST_F(SingleInstanceTest, TheSecondStartCanAskForANewMonitor)
{
    const auto first = start();
    ASSERT_EQ(first->nextLine(), "first");
    Start second(m_folder.path(), ample, u"token-2"_s, u"add-monitor"_s);
    EXPECT_EQ(second.nextLine(), "handedOver");
    EXPECT_EQ(first->nextLine(), "adds a monitor token-2");
}

TEST_F(SingleInstanceTest, TheSecondStartCanAskTheFirstToQuit)
{
    const auto first = start();
    ASSERT_EQ(first->nextLine(), "first");
    Start second(m_folder.path(), ample, {}, u"quit"_s);
    EXPECT_EQ(second.nextLine(), "handedOver");
    EXPECT_EQ(first->nextLine(), "quits");
}

TEST_F(SingleInstanceTest, ACommandGetsTheFirstsAnswer)
{
    const auto first = start();
    ASSERT_EQ(first->nextLine(), "first");
    Start command(m_folder.path(), ample, {}, u"ask"_s);
    EXPECT_EQ(command.nextLine(), "answered");
    EXPECT_EQ(command.nextLine(), "hello");
}

TEST_F(SingleInstanceTest, ACommandOwnsTheFolderIfNoneDoes)
{
    Start command(m_folder.path(), brief, {}, u"ask"_s);
    EXPECT_EQ(command.nextLine(), "ours");
}

TEST_F(SingleInstanceTest, ACommandOwnsTheFolderIfTheFirstEndsInsteadOfAnswering)
{
    const auto first = start();
    ASSERT_EQ(first->nextLine(), "first");
    first->signal(SIGSTOP);
    Start command(m_folder.path(), ample, {}, u"ask"_s);
    first->killHard();
    EXPECT_EQ(command.nextLine(), "ours");
}

TEST_F(SingleInstanceTest, ACommandFailsIfTheFirstHangs)
{
    const auto first = start();
    ASSERT_EQ(first->nextLine(), "first");
    first->signal(SIGSTOP);
    Start command(m_folder.path(), brief, {}, u"ask"_s);
    EXPECT_EQ(command.nextLine(), "silent");
    first->signal(SIGCONT);
}

TEST_F(SingleInstanceTest, AReleasedFolderHasANewOwnerAndIsAskedAgain)
{
    SingleInstance command(m_folder.path());
    ASSERT_EQ(command.ask("greet", brief).result, RequestChannel::Result::ours);
    command.release();
    EXPECT_FALSE(QFile::exists(path("ostrel.sock")));
    const auto first = start();
    ASSERT_EQ(first->nextLine(), "first");
    EXPECT_EQ(command.ask("greet", ample).line, "hello");
}

TEST_F(SingleInstanceTest, AStartWaitsForACommandToEnd)
{
    auto command = std::make_unique<SingleInstance>(m_folder.path());
    ASSERT_EQ(command->ask("greet", brief).result, RequestChannel::Result::ours);
    const auto first = start();
    QThread::msleep(100);
    command.reset();
    EXPECT_EQ(first->nextLine(), "first");
}

TEST_F(SingleInstanceTest, ATokenThatDoesntFitALineIsLeftOut)
{
    const auto first = start();
    ASSERT_EQ(first->nextLine(), "first");
    for (const QString &token : {u"a\nb"_s, QString(100'000, u'x')}) {
        EXPECT_EQ(start(ample, token)->nextLine(), "handedOver");
        EXPECT_EQ(first->nextLine(), "activated");
    }
}

TEST_F(SingleInstanceTest, TheNextIsFirstAfterTheFirstWasKilled)
{
    const auto first = start();
    ASSERT_EQ(first->nextLine(), "first");
    first->killHard();
    const auto next = start(brief);
    EXPECT_EQ(next->nextLine(), "first");
    EXPECT_EQ(start()->nextLine(), "handedOver");
    EXPECT_EQ(next->nextLine(), "activated");
}

TEST_F(SingleInstanceTest, ASecondStartIsFirstIfTheFirstEndsInsteadOfAnswering)
{
    const auto first = start();
    ASSERT_EQ(first->nextLine(), "first");
    first->signal(SIGSTOP);
    const auto second = start(ample);
    // Not a wait for a condition: the earlier the first is killed, the less is tested.
    ::usleep(100'000);
    first->killHard();
    EXPECT_EQ(second->nextLine(), "first");
}

TEST_F(SingleInstanceTest, FoldersAreIndependent)
{
    const auto first = start();
    ASSERT_EQ(first->nextLine(), "first");
    const QTemporaryDir other;
    Start elsewhere(other.path(), brief);
    EXPECT_EQ(elsewhere.nextLine(), "first");
}

TEST_F(SingleInstanceTest, LongPathsWork)
{
    const QString folder = m_folder.filePath(QString(200, u'd') + u'/' + QString(200, u'e'));
    ASSERT_TRUE(QDir().mkpath(folder));
    Start first(folder, ample);
    ASSERT_EQ(first.nextLine(), "first");
    Start second(folder, ample);
    EXPECT_EQ(second.nextLine(), "handedOver");
    EXPECT_EQ(first.nextLine(), "activated");
}

TEST_F(SingleInstanceTest, OfManyStartsAtOnceExactlyOneIsFirst)
{
    std::vector<std::unique_ptr<Start>> starts;
    for (int i = 0; i < 12; ++i)
        starts.push_back(start());
    int firsts = 0;
    int handedOver = 0;
    for (const auto &each : starts) {
        const QByteArray line = each->nextLine();
        firsts += line == "first" ? 1 : 0;
        handedOver += line == "handedOver" ? 1 : 0;
    }
    EXPECT_EQ(firsts, 1);
    EXPECT_EQ(handedOver, 11);
}

TEST_F(SingleInstanceTest, TheClaimFailsIfTheFirstHangs)
{
    const auto first = start();
    ASSERT_EQ(first->nextLine(), "first");
    first->signal(SIGSTOP);
    EXPECT_EQ(start(brief)->nextLine(), "failed");
    first->signal(SIGCONT);
    EXPECT_EQ(start()->nextLine(), "handedOver");
}

TEST_F(SingleInstanceTest, APathThatIsNoFolderIsUnusable)
{
    Start start(u"/dev/null"_s, brief);
    EXPECT_EQ(start.nextLine(), "unusable");
    start.renew();
    EXPECT_EQ(start.nextLine(), "not owned");
    EXPECT_EQ(Start(u"/dev/null"_s, brief, {}, u"ask"_s).nextLine(), "unusable");
}

TEST_F(SingleInstanceTest, AFolderThatWasUnusableIsOwnedOnceItCanBe)
{
    const QString folder = path("data");
    ASSERT_TRUE(QFile(folder).open(QIODevice::WriteOnly));
    Start first(folder, brief);
    ASSERT_EQ(first.nextLine(), "unusable");
    ASSERT_TRUE(QFile::remove(folder));
    first.renew();
    EXPECT_EQ(first.nextLine(), "owned");
    Start second(folder, ample);
    EXPECT_EQ(second.nextLine(), "handedOver");
    EXPECT_EQ(first.nextLine(), "activated");
}

/// What users and their backups may do to a folder in use.
struct FolderFate
{
    const char *name;
    void (*befall)(const QString &folder);
};

TEST_F(SingleInstanceTest, TheFolderIsOwnedAgainWhateverHappenedToIt)
{
    const FolderFate fates[] = {
        {"nothing", [](const QString &) {}},
        {"deleted", [](const QString &folder) { QDir(folder).removeRecursively(); }},
        {"emptied",
         [](const QString &folder) {
             QDir(folder).removeRecursively();
             QDir().mkpath(folder);
         }},
        {"renamed", [](const QString &folder) { QDir().rename(folder, folder + u"-old"_s); }},
        {"replaced by another",
         [](const QString &folder) {
             QDir().rename(folder, folder + u"-older"_s);
             QDir().mkpath(folder);
         }},
    };
    const QString folder = path("data");
    ASSERT_TRUE(QDir().mkpath(folder));
    Start first(folder, ample);
    ASSERT_EQ(first.nextLine(), "first");
    for (const FolderFate &fate : fates) {
        fate.befall(folder);
        first.renew();
        EXPECT_EQ(first.nextLine(), "owned") << fate.name;
        Start second(folder, ample);
        EXPECT_EQ(second.nextLine(), "handedOver") << fate.name;
        EXPECT_EQ(first.nextLine(), "activated") << fate.name;
    }
}

TEST_F(SingleInstanceTest, AFolderThatAnotherProgramTookMeanwhileIsHandedOver)
{
    const QString folder = path("data");
    ASSERT_TRUE(QDir().mkpath(folder));
    Start first(folder, ample);
    ASSERT_EQ(first.nextLine(), "first");
    ASSERT_TRUE(QDir().rename(folder, path("away")));
    ASSERT_TRUE(QDir().mkpath(folder));
    Start other(folder, ample);
    ASSERT_EQ(other.nextLine(), "first");
    first.renew();
    EXPECT_EQ(first.nextLine(), "not owned");
    EXPECT_EQ(first.nextLine(), "lost");
    EXPECT_EQ(other.nextLine(), "activated");
    // The program that has lost the folder leaves the other's lock alone.
    other.renew();
    EXPECT_EQ(other.nextLine(), "owned");
    EXPECT_EQ(Start(folder, ample).nextLine(), "handedOver");
}

TEST_F(SingleInstanceTest, APipeInTheLocksPlaceDoesNotBlock)
{
    ASSERT_EQ(::mkfifo(QFile::encodeName(path("ostrel.lock")).constData(), 0600), 0);
    const auto first = start();
    EXPECT_EQ(first->nextLine(), "unusable");
    first->renew();
    EXPECT_EQ(first->nextLine(), "not owned");
}

TEST_F(SingleInstanceTest, TheFolderIsFreeAgainWhenTheObjectIsDestroyed)
{
    for (int i = 0; i < 2; ++i) {
        SingleInstance instance(m_folder.path());
        EXPECT_EQ(instance.claim(brief), Claim::first);
    }
}

/// A first program in this process, with peers that may break the protocol.
class SingleInstancePeersTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_EQ(m_first.claim(brief), Claim::first);
        QObject::connect(&m_first, &SingleInstance::activationRequested,
                         [this](const QByteArray &token) { m_tokens.append(token); });
        QObject::connect(&m_first, &SingleInstance::requested,
                         [this](const QByteArray &request, const SingleInstance::Reply &reply) {
                             m_requests.append(request);
                             m_replies.append(reply);
                         });
    }

    [[nodiscard]] QString path(const char *name) const
    {
        return m_folder.filePath(QString::fromUtf8(name));
    }
    [[nodiscard]] FileDescriptor connectPeer() const
    {
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        std::ranges::copy(QFile::encodeName(path("ostrel.sock")), address.sun_path);
        FileDescriptor peer(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
        EXPECT_EQ(
            ::connect(peer.number(), reinterpret_cast<const sockaddr *>(&address), sizeof(address)),
            0);
        return peer;
    }
    static void say(const FileDescriptor &peer, const QByteArray &text)
    {
        (void)::send(peer.number(), text.constData(), static_cast<std::size_t>(text.size()),
                     MSG_NOSIGNAL);
    }
    /// The bytes that the first program sends until it hangs up.
    static QByteArray answerTo(const FileDescriptor &peer)
    {
        QByteArray answer;
        EXPECT_TRUE(waitFor([&] {
            std::array<char, 4096> bytes = {};
            const auto count = ::recv(peer.number(), bytes.data(), bytes.size(), 0);
            if (count > 0)
                answer.append(bytes.data(), count);
            return count == 0 || (count < 0 && errno == ECONNRESET);
        }));
        return answer;
    }

    QTemporaryDir m_folder;
    SingleInstance m_first{m_folder.path()};
    QList<QByteArray> m_tokens;
    QList<QByteArray> m_requests;
    QList<SingleInstance::Reply> m_replies;
};

TEST_F(SingleInstancePeersTest, AnswersALineThatComesInPieces)
{
    const FileDescriptor peer = connectPeer();
    for (const char *piece : {"acti", "vate ", "to", "ken", "\nrest"}) {
        say(peer, piece);
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(answerTo(peer), "ok\n");
    EXPECT_EQ(m_tokens, QList<QByteArray>{"token"});
}

TEST_F(SingleInstancePeersTest, HangsUpOnPeersThatBreakTheProtocol)
{
    for (const QByteArray &line :
         {QByteArray("\n"), QByteArray("quit now\n"), QByteArray("activate"),
          QByteArray(100'000, 'x'), "activate " + QByteArray(1025, 'x') + '\n'}) {
        const FileDescriptor peer = connectPeer();
        say(peer, line);
        EXPECT_EQ(answerTo(peer), "");
    }
    EXPECT_TRUE(m_tokens.isEmpty());
}

TEST_F(SingleInstancePeersTest, ARequestIsAnsweredWhenItsReplyIsThere)
{
    const FileDescriptor peer = connectPeer();
    for (const char *piece : {"requ", "est {\"a\":", "1}", "\nrest"}) {
        say(peer, piece);
        QCoreApplication::processEvents();
    }
    ASSERT_TRUE(waitFor([&] { return m_requests.size() == 1; }));
    EXPECT_EQ(m_requests.constFirst(), "{\"a\":1}");
    m_replies.constFirst()("ok {}");
    m_replies.constFirst()("twice");
    EXPECT_EQ(answerTo(peer), "ok {}\n");
}

TEST_F(SingleInstancePeersTest, ALongRequestAndItsLongAnswerArriveWhole)
{
    const QByteArray longText(3'000'000, 'x');
    const FileDescriptor peer = connectPeer();
    const QByteArray line = "request " + longText + '\n';
    qsizetype sent = 0;
    ASSERT_TRUE(waitFor([&] {
        const auto size = static_cast<std::size_t>(line.size() - sent);
        const auto count = ::send(peer.number(), line.constData() + sent, size, MSG_NOSIGNAL);
        sent += std::max<qsizetype>(count, 0);
        return sent == line.size();
    }));
    ASSERT_TRUE(waitFor([&] { return m_requests.size() == 1; }));
    EXPECT_EQ(m_requests.constFirst().size(), longText.size());
    m_replies.constFirst()(longText);
    EXPECT_EQ(answerTo(peer).size(), longText.size() + 1);
}

TEST_F(SingleInstancePeersTest, AReplyToAPeerThatHasLeftDoesNoHarm)
{
    auto peer = std::make_unique<FileDescriptor>(connectPeer());
    say(*peer, "request x\n");
    ASSERT_TRUE(waitFor([&] { return m_requests.size() == 1; }));
    peer.reset();
    m_replies.constFirst()("ok {}");
    m_replies.constFirst()("ok {}");
}

TEST_F(SingleInstancePeersTest, TheRequestOfAPeerThatHasLeftIsDropped)
{
    say(connectPeer(), "request x\n");
    const FileDescriptor next = connectPeer();
    say(next, "request y\n");
    ASSERT_TRUE(waitFor([&] { return !m_requests.isEmpty(); }));
    EXPECT_EQ(m_requests, QList<QByteArray>{"y"});
}

TEST_F(SingleInstancePeersTest, WaitingPeersAreKeptUpToABound)
{
    std::vector<FileDescriptor> waiting;
    for (int i = 0; i < 64; ++i) {
        waiting.push_back(connectPeer());
        say(waiting.back(), "request x\n");
    }
    ASSERT_TRUE(waitFor([&] { return m_requests.size() == 64; }));
    const FileDescriptor excess = connectPeer();
    say(excess, "request x\n");
    EXPECT_EQ(answerTo(excess), "refused Too many other commands are waiting.\n");
    for (const auto &reply : m_replies)
        reply("ok");
    for (const FileDescriptor &peer : waiting)
        EXPECT_EQ(answerTo(peer), "ok\n");
}

TEST_F(SingleInstancePeersTest, SilentPeersTimeOut)
{
    std::vector<FileDescriptor> silent;
    for (int i = 0; i < 16; ++i)
        silent.push_back(connectPeer());
    for (const FileDescriptor &peer : silent)
        EXPECT_EQ(answerTo(peer), "");
}

TEST_F(SingleInstancePeersTest, ManySilentPeersDelayNoOneAndAreDropped)
{
    std::vector<FileDescriptor> silent;
    for (int i = 0; i < 300; ++i)
        silent.push_back(connectPeer());
    const FileDescriptor peer = connectPeer();
    say(peer, "activate \n");
    EXPECT_EQ(answerTo(peer), "ok\n");
    EXPECT_EQ(answerTo(silent.front()), "");
    // The last peers' time isn't over yet: nothing has waited for it.
    char byte = 0;
    EXPECT_EQ(::recv(silent.back().number(), &byte, 1, 0), -1);
    EXPECT_EQ(errno, EAGAIN);
}

TEST_F(SingleInstancePeersTest, DoesNotSpinWhileItHasNoDescriptors)
{
    rlimit usual = {};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &usual), 0);
    const FileDescriptor peer = connectPeer();
    say(peer, "activate \n");
    rlimit none = usual;
    none.rlim_cur = static_cast<rlim_t>(FileDescriptor(::dup(0)).number());
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &none), 0);
    int turns = 0;
    QElapsedTimer timer;
    timer.start();
    while (!timer.hasExpired(100)) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        ++turns;
    }
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &usual), 0);
    EXPECT_LE(turns, 5);
    EXPECT_EQ(answerTo(peer), "ok\n");
}

TEST_F(SingleInstancePeersTest, AnEndlessLineIsNotReadToItsEnd)
{
    const FileDescriptor peer = connectPeer();
    const QByteArray piece(4096, 'x');
    qint64 sent = 0;
    ASSERT_TRUE(waitFor([&] {
        const auto count = ::send(peer.number(), piece.constData(), 4096, MSG_NOSIGNAL);
        sent += std::max<qint64>(count, 0);
        return count < 0 && errno != EAGAIN;
    }));
    // What the kernel buffers for the two sockets, and no more.
    EXPECT_LT(sent, 1'000'000);
}

TEST_F(SingleInstancePeersTest, APeerThatLeavesAtOnceDoesNoHarm)
{
    for (int i = 0; i < 100; ++i) {
        say(connectPeer(), "activate token\n");
        QCoreApplication::processEvents();
    }
    EXPECT_TRUE(waitFor([&] { return m_tokens.size() == 100; }));
}

TEST_F(SingleInstancePeersTest, ItsFilesArePrivateToItsUser)
{
    for (const char *name : {"ostrel.lock", "ostrel.sock"}) {
        struct stat status = {};
        ASSERT_EQ(::stat(QFile::encodeName(path(name)).constData(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777U, 0600U) << name;
    }
}

TEST_F(SingleInstancePeersTest, ServesNoOtherUser)
{
    if (::getuid() != 0)
        GTEST_SKIP() << "only root can be another user";
    ASSERT_EQ(::chmod(QFile::encodeName(m_folder.path()).constData(), 0777), 0);
    ASSERT_EQ(::chmod(QFile::encodeName(path("ostrel.sock")).constData(), 0666), 0);
    constexpr uid_t nobody = 65534;
    ASSERT_EQ(::seteuid(nobody), 0);
    const FileDescriptor peer = connectPeer();
    ASSERT_EQ(::seteuid(0), 0);
    say(peer, "activate token\n");
    EXPECT_EQ(answerTo(peer), "");
    EXPECT_TRUE(m_tokens.isEmpty());
}

TEST_F(SingleInstancePeersTest, ItsLockIsNotInheritedByChildren)
{
    BoundProcess child;
    child.start(u"sh"_s, {u"-c"_s, u"ls -l /proc/self/fd; echo end"_s});
    QByteArray line;
    while (line != "end") {
        line = child.nextLine();
        ASSERT_FALSE(line.isEmpty());
        EXPECT_FALSE(line.contains(QFile::encodeName(m_folder.path()))) << line.toStdString();
        EXPECT_FALSE(line.contains("socket:")) << line.toStdString();
    }
}

TEST(SingleInstanceFilesTest, ALockFileThatIsALinkIsUnusable)
{
    const QTemporaryDir folder;
    QFile::link(folder.filePath(u"elsewhere"_s), folder.filePath(u"ostrel.lock"_s));
    SingleInstance instance(folder.path());
    EXPECT_EQ(instance.claim(brief), Claim::unusable);
}

TEST(SingleInstanceFilesTest, IsFirstEvenIfItsSocketCantBeMade)
{
    const QTemporaryDir folder;
    QDir().mkpath(folder.filePath(u"ostrel.sock/full"_s));
    SingleInstance first(folder.path());
    EXPECT_EQ(first.claim(brief), Claim::first);
    SingleInstance second(folder.path());
    EXPECT_EQ(second.claim(brief), Claim::failed);
}

} // namespace
} // namespace ostrel::test
