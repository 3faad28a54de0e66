#include "rendezvous.h"

#include <fstream>

#include <gmock/gmock.h>
#include <sys/stat.h>

#include "bound_name.h"
#include "linux_support.h"
#include "lock_file.h"
#include "names.h"

namespace platform::tests {
namespace {

namespace fs = std::filesystem;

/// A place for folders, and the environment as it was afterwards.
class RendezvousTest : public testing::Test
{
protected:
    RendezvousTest()
        : base(fs::path(m_former) / testing::UnitTest::GetInstance()->current_test_info()->name())
    {
        fs::create_directory(base);
    }

    ~RendezvousTest() override
    {
        ::setenv("TVO_RUNTIME_DIR", m_former.c_str(), 1);
        ::unsetenv("XDG_RUNTIME_DIR");
        fs::remove_all(base);
    }

    static int Open(const fs::path& path, Purpose purpose = Purpose::Create)
    {
        ::setenv("TVO_RUNTIME_DIR", path.c_str(), 1);
        Rendezvous rendezvous;
        return rendezvous.Open(Place::Servers, purpose);
    }

    const std::string m_former = std::getenv("TVO_RUNTIME_DIR");
    const fs::path base;
    LogLines log;
};

TEST_F(RendezvousTest, MakesWhatIsMissingForItsOwnerAlone)
{
    EXPECT_GE(Open(base / "new"), 0);
    struct stat status = {};
    ASSERT_EQ(::stat((base / "new/servers").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0700U);
    ASSERT_EQ(::stat((base / "new").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0700U);
    EXPECT_EQ(log.Count(), 0U);
}

TEST_F(RendezvousTest, RefusesAWrongFolderWithOneLine)
{
    const auto open = fs::perms::all;
    fs::create_directory(base / "good");
    fs::permissions(base / "good", fs::perms::owner_all);
    fs::create_directory_symlink(base / "good", base / "link");
    fs::create_directory(base / "open");
    fs::permissions(base / "open", open);
    std::ofstream(base / "file") << "x";
    fs::create_directories(base / "inside/servers");
    fs::permissions(base / "inside", fs::perms::owner_all);
    fs::permissions(base / "inside/servers", open);
    struct Row
    {
        std::string path;
        const char* reason;
    };
    for (const Row& row : {Row{"relative/path", "not absolute"},
                           Row{base / "link", "symbolic link"},
                           Row{base / "link/", "symbolic link"},
                           Row{base / "file", "no folder"},
                           Row{base / "open", "others have access"},
                           Row{base / "inside", "lets others in"},
                           Row{base / "a/b/c", "does not exist"}})
    {
        SCOPED_TRACE(row.path);
        ::setenv("TVO_RUNTIME_DIR", row.path.c_str(), 1);
        Rendezvous rendezvous;
        EXPECT_EQ(rendezvous.Open(Place::Servers, Purpose::Look), -1);
        EXPECT_EQ(rendezvous.Open(Place::Servers, Purpose::Look), -1);
        EXPECT_EQ(log.Count(row.reason), 1U);
        log.Clear();
    }
}

TEST_F(RendezvousTest, KnowsWhoseTheFolderIs)
{
    if (::geteuid() != 0)
    {
        GTEST_SKIP() << "needs root";
    }
    constexpr uid_t Nobody = 65534;
    fs::permissions(base, fs::perms::all);
    fs::create_directory(base / "roots");
    fs::permissions(base / "roots", fs::perms::owner_all);
    fs::create_directories(base / "users/servers");
    for (const char* folder : {"users", "users/servers"})
    {
        fs::permissions(base / folder, fs::perms::owner_all);
        ASSERT_EQ(::chown((base / folder).c_str(), Nobody, Nobody), 0);
    }
    EXPECT_GE(Open(base / "users", Purpose::Look), 0) << "root looks into a user's folder";
    EXPECT_EQ(Open(base / "users", Purpose::Create), -1) << "and creates nothing there";
    Child user(
        [&]
        {
            fs::permissions(m_former, fs::perms::all);
            return ::setuid(Nobody) == 0 && Open(base / "roots", Purpose::Look) == -1 ? 0 : 1;
        });
    EXPECT_EQ(user.Wait(), 0);
    fs::permissions(m_former, fs::perms::owner_all);
}

TEST_F(RendezvousTest, ANameIsHeldOnceAndLeavesNoSocketBehind)
{
    const Descriptor opened(::open(base.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const int folder = opened.Get();
    {
        std::ofstream(base / "name.lock") << "service left over\n";
        {
            const Descriptor successor(::open((base / "name.lock").c_str(), O_RDWR | O_CLOEXEC));
            struct flock firstByte = {};
            firstByte.l_type = F_WRLCK;
            firstByte.l_len = 1;
            ASSERT_EQ(::fcntl(successor.Get(), F_OFD_SETLK, &firstByte), 0);
            EXPECT_FALSE(ReadHeldLockFile(folder, "name")) << "held, but not emptied yet";
        }
        std::ofstream(base / "name.sock") << "stale";
        std::ofstream(base / "name.new") << "stale";
        const auto held = BoundName::Take(
            folder, "name", {{LockFileLine::Kind::Service, 0, "interface", "service"}});
        ASSERT_TRUE(held);
        EXPECT_FALSE(BoundName::Take(folder, "name", {}));
        EXPECT_EQ(log.Count("another process holds it"), 1U);
        struct stat status = {};
        ASSERT_EQ(::stat((base / "name.sock").c_str(), &status), 0);
        EXPECT_EQ(status.st_mode, static_cast<mode_t>(S_IFSOCK | 0600));
        EXPECT_FALSE(fs::exists(base / "name.new"));
        const auto lines = ReadHeldLockFile(folder, "name");
        ASSERT_TRUE(lines);
        ASSERT_EQ(lines->size(), 1U) << "what a former holder wrote is gone";
        EXPECT_EQ(lines->front().second, "service");
    }
    EXPECT_FALSE(fs::exists(base / "name.sock"));
    EXPECT_TRUE(fs::exists(base / "name.lock")) << "never removed";
    EXPECT_FALSE(ReadHeldLockFile(folder, "name")) << "nobody holds it";
    fs::remove(base / "name.lock");
    fs::create_symlink(base / "target", base / "name.lock");
    EXPECT_FALSE(BoundName::Take(folder, "name", {}));
    EXPECT_FALSE(fs::exists(base / "target"));
}

TEST(Names, AreEncodedForFiles)
{
    struct Row
    {
        std::string name;
        std::string encoded;
    };
    for (const Row& row : {Row{"vx.vdi.CertApprover", "vx.vdi.CertApprover"},
                           Row{"//cm:", "%2F%2Fcm%3A"},
                           Row{".", "%2E"},
                           Row{"..", "%2E."},
                           Row{"100%", "100%25"},
                           Row{"\xC3\xA9 \n", "%C3%A9%20%0A"}})
    {
        EXPECT_EQ(EncodeText(row.name), row.encoded);
        EXPECT_EQ(DecodeText(row.encoded), row.name);
    }
    for (const char* wrong : {"%", "%2", "%2f", "%GG", "a/b", "%41", ".hidden"})
    {
        EXPECT_FALSE(DecodeText(wrong)) << wrong;
    }
    EXPECT_TRUE(EncodeName(std::string(80, 'n').c_str()));
    EXPECT_FALSE(EncodeName(std::string(81, 'n').c_str()));
    EXPECT_FALSE(EncodeName((std::string(78, 'n') + ":").c_str()));
    EXPECT_FALSE(EncodeName(""));
    EXPECT_FALSE(EncodeName(nullptr));
}

}  // namespace
}  // namespace platform::tests
