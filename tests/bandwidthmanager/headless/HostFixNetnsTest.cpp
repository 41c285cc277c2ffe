// A fix on a link that carries the default route: the MTU changes live, the
// route stays. In a network namespace of its own, through the privileged
// helper as pkexec would start it.
#include <gtest/gtest.h>

#include <QProcess>
#include <QStringList>

#include <unistd.h>

namespace {

QString run(const QStringList& command, int* status = nullptr)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(command.first(), command.mid(1));
    process.waitForFinished(20000);
    if (status)
        *status = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    return QString::fromLocal8Bit(process.readAll());
}

class HostFixOnALink : public ::testing::Test
{
protected:
    void SetUp() override
    {
        if (::geteuid() != 0)
            GTEST_SKIP() << "needs root to make a network namespace";
        int status = 0;
        run({"ip", "netns", "add", ns}, &status);
        if (status != 0)
            GTEST_SKIP() << "no network namespace can be made here";
        made = true;
        for (const QStringList& step : {QStringList{"link", "add", "bwfa", "type", "veth", "peer", "name", "bwfb"},
                                        QStringList{"addr", "add", "10.205.7.1/24", "dev", "bwfa"},
                                        QStringList{"link", "set", "bwfa", "up"}, QStringList{"link", "set", "bwfb", "up"},
                                        QStringList{"route", "add", "default", "via", "10.205.7.2", "dev", "bwfa"}}) {
            run(QStringList{"ip", "-n", ns} + step, &status);
            ASSERT_EQ(status, 0) << step.join(' ').toStdString();
        }
    }
    void TearDown() override
    {
        if (made)
            run({"ip", "netns", "del", ns});
    }

    const QString ns = QStringLiteral("bwmfix%1").arg(::getpid());
    bool made = false;
};

TEST_F(HostFixOnALink, changesTheMtuLiveAndKeepsTheDefaultRoute)
{
    int status = -1;
    const QString output =
        run({"ip", "netns", "exec", ns, BWM_BINARY_DIR "/bin/bwm-fix-mtu", "mtu", "bwfa", "9000"}, &status);
    EXPECT_EQ(status, 0) << output.toStdString();
    EXPECT_TRUE(output.contains(QLatin1String("until the next restart"))) << output.toStdString();
    EXPECT_TRUE(run({"ip", "-n", ns, "link", "show", "bwfa"}).contains(QLatin1String("mtu 9000")));
    EXPECT_TRUE(run({"ip", "-n", ns, "route", "show", "default"}).contains(QLatin1String("default via 10.205.7.2 dev bwfa")));

    // A value beyond the driver's range changes nothing.
    run({"ip", "netns", "exec", ns, BWM_BINARY_DIR "/bin/bwm-fix-mtu", "mtu", "bwfa", "70000"}, &status);
    EXPECT_EQ(status, 2);
    EXPECT_TRUE(run({"ip", "-n", ns, "link", "show", "bwfa"}).contains(QLatin1String("mtu 9000")));
}

} // namespace
