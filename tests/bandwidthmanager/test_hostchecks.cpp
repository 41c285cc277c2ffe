#include "hostchecks.h"
#include "hostfixapplier.h"
#include "hostfixer.h"
#include "lossplace.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTranslator>

using namespace Plugin::BandwidthManager;
using HostFix::EKind;

namespace {

// Empty executables standing in for the privileged helpers.
void makeHelpers(const QTemporaryDir& dir, std::initializer_list<const char*> names)
{
    QDir(dir.path()).mkpath(QStringLiteral("helpers"));
    for (const char* name : names) {
        QFile helper(dir.filePath(QStringLiteral("helpers/") + name));
        helper.open(QIODevice::WriteOnly);
        helper.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    }
}

constexpr uint32_t Ip(int a, int b, int c, int d)
{
    return uint32_t(a) << 24 | uint32_t(b) << 16 | uint32_t(c) << 8 | uint32_t(d);
}

// A GigE adapter in good order: ring at its maximum, jumbo frames, loose filtering, adaptive moderation.
SHostInterface healthy()
{
    return {"eth1", 9000, 9216, true, {4096, 4096}, true, {true, 0}, 2, {{Ip(192, 168, 10, 1), 24}},
            80000, {Ip(192, 168, 10, 20)}, 9000};
}

struct SCheckCase { const char* name; std::function<void(SHostSnapshot&)> change; std::optional<EHostCheck> failing;
    std::optional<HostFix::SFix> fix; };

class HostCheck : public ::testing::TestWithParam<SCheckCase> {};

TEST_P(HostCheck, failsAloneAndOffersItsFix)
{
    SHostSnapshot snapshot{int64_t(64) << 20, int64_t(8) << 20, {healthy()}};
    GetParam().change(snapshot);
    std::vector<SHostCheck> failed;
    for (const SHostCheck& check : runHostChecks(snapshot)) {
        EXPECT_FALSE(check.text.isEmpty());
        EXPECT_NE(check.interfaceName, "eth0") << "an adapter without cameras is not checked";
        if (!check.passed)
            failed.push_back(check);
    }
    ASSERT_EQ(failed.size(), GetParam().failing ? 1u : 0u);
    if (failed.empty())
        return;
    EXPECT_EQ(failed[0].check, *GetParam().failing) << failed[0].text.toStdString();
    const auto fields = [](const std::optional<HostFix::SFix>& f) {
        return f ? std::make_tuple(int(f->kind), f->interfaceName, f->value)
                 : std::make_tuple(-1, std::string(), int64_t(0));
    };
    EXPECT_EQ(fields(failed[0].fix), fields(GetParam().fix));
}

INSTANTIATE_TEST_SUITE_P(Table, HostCheck, ::testing::Values(
        SCheckCase{"rmemMaxBelowTheStreams", [](SHostSnapshot& s) { s.rmemMax = 212992; }, EHostCheck::RmemMax,
                   HostFix::SFix{EKind::RmemMax, "", int64_t(64) << 20}},
        SCheckCase{"ringOneBelowItsMaximum", [](SHostSnapshot& s) { s.interfaces[0].ring.current = 4095; },
                   EHostCheck::RxRing, HostFix::SFix{EKind::RxRing, "eth1", 4096}},
        SCheckCase{"mtuBelowWhatTheCamerasSend", [](SHostSnapshot& s) { s.interfaces[0].mtu = 1500; },
                   EHostCheck::Mtu, HostFix::SFix{EKind::Mtu, "eth1", 9000}},
        SCheckCase{"jumboCappedByTheNic",
                   [](SHostSnapshot& s) { s.interfaces[0].mtu = 1500, s.interfaces[0].maxMtu = 4000; },
                   EHostCheck::Mtu, HostFix::SFix{EKind::Mtu, "eth1", 4000}},
        SCheckCase{"strictReversePath", [](SHostSnapshot& s) { s.interfaces[0].rpFilter = 1; }, EHostCheck::RpFilter,
                   HostFix::SFix{EKind::RpFilter, "eth1", 2}},
        SCheckCase{"moderationOffWhileBusy", [](SHostSnapshot& s) { s.interfaces[0].coalesce = {false, 0}; },
                   EHostCheck::Coalescing, HostFix::SFix{EKind::Coalescing, "eth1", HostFix::Adaptive}},
        SCheckCase{"cameraOutsideItsAdaptersSubnet",
                   [](SHostSnapshot& s) { s.interfaces[0].cameras.push_back(Ip(169, 254, 3, 4)); },
                   EHostCheck::CameraOutsideSubnet, std::nullopt},
        SCheckCase{"twoAdaptersInOneSubnet",
                   [](SHostSnapshot& s) {
                       s.interfaces.push_back(
                           {"eth2", 0, 0, false, {}, false, {}, -1, {{Ip(192, 168, 10, 2), 16}}, 0, {}, 0});
                   }, EHostCheck::SharedSubnet, std::nullopt},
        SCheckCase{"quietAdapterNeedsNoModerationNorJumboNorKnownRing",
                   [](SHostSnapshot& s) {
                       SHostInterface& eth = s.interfaces[0];
                       eth.coalesce.adaptive = eth.ringKnown = false;
                       eth.packetsPerSecond = 20000;
                       eth.mtu = eth.largestCameraPacket = 1500;
                   }, std::nullopt, std::nullopt},
        SCheckCase{"adapterWithoutCamerasIsNotChecked",
                   [](SHostSnapshot& s) {
                       s.interfaces.push_back(
                           {"eth0", 9000, 9216, true, {64, 4096}, true, {true, 0}, 1, {{Ip(10, 0, 0, 5), 8}}, 80000, {}, 9000});
                   }, std::nullopt, std::nullopt}),
    [](const ::testing::TestParamInfo<SCheckCase>& info) { return std::string(info.param.name); });

struct SArgumentsCase { EKind kind; std::vector<std::string> arguments; const char* refusal; };

TEST(HostFixArguments, takeOnlyTheHelpersOwnCommandAndCleanValues)
{
    const SArgumentsCase cases[] = {
        {EKind::Mtu, {"mtu", "eth1", "9000"}, ""},
        {EKind::Coalescing, {"coalescing", "eth1", "adaptive"}, ""},
        {EKind::RmemMax, {"rmem-max", "67108864"}, ""},
        {EKind::Mtu, {"rx-ring", "eth1", "9000"}, "usage: bwm-fix-mtu mtu INTERFACE VALUE"},
        {EKind::Mtu, {"mtu", "eth1", "9000", "extra"}, "usage:"},
        {EKind::Mtu, {"mtu", "../../etc", "9000"}, "not an interface name"},
        {EKind::RpFilter, {"rp-filter", "a/b", "2"}, "not an interface name"},
        {EKind::Mtu, {"mtu", "averyveryverylongname", "9000"}, "not an interface name"},
        {EKind::Mtu, {"mtu", "eth1", "9000;reboot"}, "not a decimal value"},
        {EKind::Mtu, {"mtu", "eth1", "-5"}, "not a decimal value"},
        {EKind::RmemMax, {"rmem-max", "adaptive"}, "not a decimal value"},
    };
    for (const SArgumentsCase& c : cases) {
        HostFix::SFix fix;
        std::string error;
        const bool parsed = HostFix::parseArguments(c.kind, c.arguments, fix, error);
        EXPECT_EQ(parsed, *c.refusal == '\0') << c.arguments[0] << ' ' << c.arguments[1];
        EXPECT_NE(error.find(c.refusal), std::string::npos) << error;
        if (parsed) {
            EXPECT_EQ(HostFix::helperArguments(fix), c.arguments);
        }
    }
}

// Without root: what the kernel's limits refuse before anything is written.
TEST(HostFixApplier, refusesWhatTheKernelWouldNot)
{
    const HostFix::CHostFixApplier applier;
    const std::pair<HostFix::SFix, const char*> cases[] = {
        {{EKind::RmemMax, "", 4096}, "must lie between"},
        {{EKind::RmemMax, "", int64_t(1) << 31}, "must lie between"},
        {{EKind::Mtu, "bwmnosuch0", 9000}, "no interface bwmnosuch0"},
        {{EKind::Mtu, "lo", 70000000}, "lo takes an MTU from"},
        {{EKind::RxRing, "lo", 256}, "lo has no receive ring"},
        {{EKind::RpFilter, "lo", 3}, "rp_filter is 0, 1 or 2"},
        {{EKind::Coalescing, "lo", 200000}, "receive coalescing is adaptive or"},
    };
    for (const auto& c : cases) {
        std::string error;
        EXPECT_FALSE(applier.apply(c.first, error)) << HostFix::rootCommand(c.first);
        EXPECT_NE(error.find(c.second), std::string::npos) << error;
    }
}

TEST(HostFixApplier, writesTheSysctlAndKeepsItBesideTheOthers)
{
    QTemporaryDir dir;
    ASSERT_TRUE(QDir(dir.path()).mkpath(QStringLiteral("proc/net/core")) && QDir(dir.path()).mkpath(QStringLiteral("etc")));
    QFile conf(dir.filePath("etc/90-zenta-bandwidthmanager.conf"));
    ASSERT_TRUE(conf.open(QIODevice::WriteOnly));
    conf.write("# mine\nnet.ipv4.conf.eth1.rp_filter = 2\nnet.core.rmem_max = 1048576\n");
    conf.close();
    const HostFix::CHostFixApplier applier(dir.filePath("proc").toStdString(), dir.filePath("etc").toStdString());
    const HostFix::SFix fix{EKind::RmemMax, "", int64_t(64) << 20};
    std::string error;
    ASSERT_TRUE(applier.apply(fix, error)) << error;
    ASSERT_TRUE(applier.persist(fix, error)) << error;
    QFile live(dir.filePath("proc/net/core/rmem_max"));
    ASSERT_TRUE(live.open(QIODevice::ReadOnly));
    EXPECT_EQ(live.readAll(), QByteArray("67108864\n"));
    ASSERT_TRUE(conf.open(QIODevice::ReadOnly));
    EXPECT_EQ(conf.readAll(), QByteArray("# mine\nnet.ipv4.conf.eth1.rp_filter = 2\nnet.core.rmem_max = 67108864\n"));
    EXPECT_FALSE(applier.persist({EKind::Mtu, "eth1", 9000}, error));
    EXPECT_EQ(error, "until the next restart");
}

// The three ways: directly with CAP_NET_ADMIN, through pkexec and the
// helper, or the command a user runs as root.
TEST(HostFixer, takesTheFirstWayOpenToIt)
{
    QTemporaryDir dir;
    ASSERT_TRUE(QDir(dir.path()).mkpath(QStringLiteral("proc/net/core")) && QDir(dir.path()).mkpath(QStringLiteral("etc")));
    makeHelpers(dir, {"bwm-fix-rmem-max"});
    const HostFix::CHostFixApplier applier(dir.filePath("proc").toStdString(), dir.filePath("etc").toStdString());
    const HostFix::SFix fix{EKind::RmemMax, "", int64_t(64) << 20};
    QStringList ran;
    int helperStatus = 0;
    const auto runner = [&](const QString& program, const QStringList& arguments, QString* output) {
        ran = QStringList{program} + arguments;
        *output = helperStatus == 0 ? QStringLiteral("kept for the next start") : QStringLiteral("refused");
        return helperStatus;
    };

    const auto direct = CHostFixer(true, {}, QString(), runner, applier).apply(fix);
    EXPECT_EQ(direct.path, CHostFixer::EPath::Direct);
    EXPECT_TRUE(direct.applied);
    EXPECT_EQ(direct.text, QStringLiteral("Done (sysctl -w net.core.rmem_max=67108864), and kept for the next start."));
    EXPECT_TRUE(ran.isEmpty());

    const CHostFixer viaHelper(false, {dir.filePath("missing"), dir.filePath("helpers")}, QStringLiteral("/usr/bin/pkexec"),
                               runner, applier);
    const auto helped = viaHelper.apply(fix);
    EXPECT_EQ(helped.path, CHostFixer::EPath::Helper);
    EXPECT_TRUE(helped.applied);
    EXPECT_EQ(ran, (QStringList{"/usr/bin/pkexec", dir.filePath("helpers/bwm-fix-rmem-max"), "rmem-max", "67108864"}));

    helperStatus = 2;
    EXPECT_EQ(viaHelper.apply(fix).text, QStringLiteral("Not changed: refused"));
    helperStatus = 126;
    EXPECT_EQ(viaHelper.apply(fix).path, CHostFixer::EPath::Command) << "the password was not given";

    const auto shown = CHostFixer(false, {dir.filePath("helpers")}, QString(), runner, applier).apply(fix);
    EXPECT_EQ(shown.path, CHostFixer::EPath::Command);
    EXPECT_FALSE(shown.applied);
    EXPECT_EQ(shown.text, QStringLiteral("This needs root. Run: sysctl -w net.core.rmem_max=67108864"));
}

// The helpers themselves, as pkexec would start them: bad use is refused before any change.
TEST(HostFixHelpers, refuseBadUseWithTwo)
{
    const std::pair<QStringList, const char*> cases[] = {
        {{"mtu", "bwmnosuch0", "9000"}, "no interface bwmnosuch0"},
        {{"mtu", "../lo", "9000"}, "not an interface name"},
        {{"mtu", "lo", "70000000"}, "lo takes an MTU from"},
        {{"rx-ring", "lo", "9000"}, "usage: bwm-fix-mtu"},
        {{}, "usage: bwm-fix-mtu"},
    };
    for (const auto& c : cases) {
        QProcess helper;
        helper.start(QStringLiteral(BWM_BINARY_DIR "/bin/bwm-fix-mtu"), c.first);
        ASSERT_TRUE(helper.waitForFinished(10000));
        EXPECT_EQ(helper.exitCode(), 2) << c.first.join(' ').toStdString();
        EXPECT_TRUE(helper.readAllStandardError().contains(c.second)) << c.first.join(' ').toStdString();
    }
}

// Where a link setting is kept: NetworkManager's connection (through nmcli),
// a drop-in of systemd-networkd's .network file, or nowhere.
TEST(HostFixPersistence, goesThroughWhoeverManagesTheLink)
{
    QTemporaryDir dir;
    QDir(dir.path()).mkpath(QStringLiteral("run/systemd/netif/links"));
    QDir(dir.path()).mkpath(QStringLiteral("network"));
    makeHelpers(dir, {"bwm-fix-mtu", "bwm-fix-rx-ring", "bwm-fix-coalescing"});
    const HostFix::CHostFixApplier applier("/proc/sys", dir.filePath("sysctl").toStdString(),
                                           dir.filePath("run").toStdString(), dir.filePath("network").toStdString());
    std::string error;

    // None: no manager keeps it.
    EXPECT_FALSE(applier.persist({EKind::Mtu, "lo", 9000}, error));
    EXPECT_EQ(error, "until the next restart");
    // systemd-networkd: the MTU in a drop-in of the link's .network file; rings and coalescing are .link settings.
    QFile state(dir.filePath("run/systemd/netif/links/1"));
    ASSERT_TRUE(state.open(QIODevice::WriteOnly));
    state.write("ADMIN_STATE=configured\nNETWORK_FILE=/etc/systemd/network/10-lo.network\n");
    state.close();
    ASSERT_TRUE(applier.persist({EKind::Mtu, "lo", 9000}, error)) << error;
    QFile dropIn(dir.filePath("network/10-lo.network.d/90-zenta-bandwidthmanager.conf"));
    ASSERT_TRUE(dropIn.open(QIODevice::ReadOnly));
    EXPECT_TRUE(dropIn.readAll().endsWith("[Link]\nMTUBytes=9000\n"));
    EXPECT_FALSE(applier.persist({EKind::RxRing, "lo", 4096}, error));
    EXPECT_NE(error.find(".link files"), std::string::npos) << error;

    // NetworkManager: one property of the link's connection, after the helper applied it live.
    const struct { HostFix::SFix fix; QString connection; int modifyStatus; QStringList modify; bool kept; } cases[] = {
        {{EKind::Mtu, "eth1", 9000}, "Wired 1", 0, {"connection", "modify", "Wired 1", "802-3-ethernet.mtu", "9000"}, true},
        {{EKind::RxRing, "eth1", 4096}, "Wired 1", 0, {"connection", "modify", "Wired 1", "ethtool.ring-rx", "4096"}, true},
        {{EKind::Coalescing, "eth1", HostFix::Adaptive}, "Wired 1", 0,
         {"connection", "modify", "Wired 1", "ethtool.coalesce-adaptive-rx", "on"}, true},
        {{EKind::Mtu, "eth1", 9000}, "Wired 1", 10, {"connection", "modify", "Wired 1", "802-3-ethernet.mtu", "9000"}, false},
        {{EKind::Mtu, "eth1", 9000}, "--", 0, {}, false},
    };
    for (const auto& c : cases) {
        QStringList modified;
        const auto runner = [&](const QString& program, const QStringList& arguments, QString* output) {
            if (program == QLatin1String("/usr/bin/pkexec")) {
                *output = QStringLiteral("until the next restart");
                return 0;
            }
            if (arguments.first() == QLatin1String("-g")) {
                *output = c.connection;
                return 0;
            }
            modified = arguments;
            return c.modifyStatus;
        };
        const CHostFixer fixer(false, {dir.filePath("helpers")}, QStringLiteral("/usr/bin/pkexec"), runner, applier,
                               QStringLiteral("/usr/bin/nmcli"));
        const CHostFixer::SOutcome outcome = fixer.apply(c.fix);
        SCOPED_TRACE(HostFix::rootCommand(c.fix) + " on " + c.connection.toStdString());
        EXPECT_TRUE(outcome.applied);
        EXPECT_EQ(modified, c.modify);
        EXPECT_EQ(outcome.text.endsWith(QLatin1String("kept for the next start.")), c.kept) << outcome.text.toStdString();
    }
}

// Each text is looked up at run time in the context the catalogs keep it under.
TEST(HostChecks, speakTheCatalogsLanguage)
{
    QTranslator japanese;
    ASSERT_TRUE(japanese.load(QStringLiteral(":/translation/BandwidthManager_ja.qm")));
    QCoreApplication::installTranslator(&japanese);
    const std::vector<SHostCheck> checks = runHostChecks({212992, int64_t(8) << 20, {}});
    const QString shown = CHostFixer(false, {}, QString()).apply({EKind::RmemMax, "", int64_t(64) << 20}).text;
    const QString advice = lossPlaceAdvice(ELossPlace::Link);
    QCoreApplication::removeTranslator(&japanese);
    ASSERT_FALSE(checks.empty());
    EXPECT_TRUE(checks.front().text.startsWith(QStringLiteral("net.core.rmem_max は"))) << checks.front().text.toStdString();
    EXPECT_TRUE(shown.startsWith(QStringLiteral("root 権限が必要です"))) << shown.toStdString();
    EXPECT_TRUE(advice.contains(QStringLiteral("リンクの容量"))) << advice.toStdString();
}

} // namespace
