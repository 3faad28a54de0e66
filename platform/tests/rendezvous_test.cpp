#include "rendezvous.h"

#include <fstream>

#include <gmock/gmock.h>

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
        const int folder = rendezvous.Open(Place::Servers, purpose);
        EXPECT_TRUE(folder >= 0 || rendezvous.Open(Place::Servers, purpose) == -1);
        return folder;
    }

    void MakeFolder(const fs::path& path, fs::perms permissions = fs::perms::owner_all) const
    {
        fs::create_directory(base / path);
        fs::permissions(base / path, permissions);
    }

    const std::string m_former = std::getenv("TVO_RUNTIME_DIR");
    const fs::path base;
};

TEST_F(RendezvousTest, MakesWhatIsMissingForItsOwnerAlone)
{
    EXPECT_EQ(LogOf([&] { EXPECT_GE(Open(base / "new"), 0); }), "");
    for (const char* folder : {"new", "new/servers"})
    {
        EXPECT_EQ(fs::status(base / folder).permissions(), fs::perms::owner_all) << folder;
    }
}

TEST_F(RendezvousTest, RefusesAWrongFolderWithOneLine)
{
    MakeFolder("good");
    MakeFolder("open", fs::perms::all);
    MakeFolder("inside");
    MakeFolder("inside/servers", fs::perms::all);
    fs::create_directory_symlink(base / "good", base / "link");
    std::ofstream(base / "file") << "x";
    const std::pair<std::string, std::string> rows[] = {{"relative/path", "not absolute"},
                                                        {base / "link", "symbolic link"},
                                                        {base / "link/", "symbolic link"},
                                                        {base / "file", "no folder"},
                                                        {base / "open", "others have access"},
                                                        {base / "inside", "lets others in"},
                                                        {base / "a/b/c", "does not exist"}};
    for (const auto& [path, reason] : rows)
    {
        EXPECT_THAT(LogOf([&path = path] { EXPECT_EQ(Open(path, Purpose::Look), -1); }),
                    testing::MatchesRegex("[^\n]*" + reason + "[^\n]*\n"));
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
    MakeFolder("roots");
    for (const char* folder : {"users", "users/servers"})
    {
        MakeFolder(folder);
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
        EXPECT_THAT(LogOf([&] { EXPECT_FALSE(BoundName::Take(folder, "name", {})); }),
                    testing::HasSubstr("another process holds it"));
        const auto socket = fs::status(base / "name.sock");
        EXPECT_EQ(socket.type(), fs::file_type::socket);
        EXPECT_EQ(socket.permissions(), fs::perms::owner_read | fs::perms::owner_write);
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
    const std::pair<std::string, std::string> rows[] = {
        {"vx.vdi.CertApprover", "vx.vdi.CertApprover"},
        {"//cm:", "%2F%2Fcm%3A"},
        {"..", "%2E."},
        {"100%", "100%25"},
        {"\xC3\xA9 \n", "%C3%A9%20%0A"},
    };
    for (const auto& [name, encoded] : rows)
    {
        EXPECT_EQ(EncodeText(name), encoded);
        EXPECT_EQ(DecodeText(encoded), name);
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
