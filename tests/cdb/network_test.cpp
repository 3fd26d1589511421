#include "hostlib/data/cdb/sqlite/network.h"

#include "cdb/fixture.h"

using mrl::cdb::isShared;

TEST(NetworkFolders, AreToldFromDisks)
{
    for (const std::uint64_t network : {0x6969UL, 0xFF534D42UL, 0xFE534D42UL, 0x01021997UL, 0x786F4256UL}) {
        EXPECT_TRUE(isShared(network, "")) << std::hex << network;
    }
    // ext4, tmpfs, XFS, Btrfs, overlay
    for (const std::uint64_t disk : {0xEF53UL, 0x01021994UL, 0x58465342UL, 0x9123683EUL, 0x794C7630UL}) {
        EXPECT_FALSE(isShared(disk, "")) << std::hex << disk;
    }
}

TEST(NetworkFolders, BehindFuseAreToldByTheKindOfMount)
{
    constexpr std::uint64_t FUSE = 0x65735546;
    EXPECT_TRUE(isShared(FUSE, "fuse.sshfs"));
    EXPECT_TRUE(isShared(FUSE, "virtiofs"));
    EXPECT_TRUE(isShared(FUSE, ""));
    EXPECT_FALSE(isShared(FUSE, "fuseblk"));
}

TEST(NetworkFolders, TheDiskOfThisMachineIsNone)
{
    const Folder folder;
    EXPECT_TRUE(mrl::cdb::onThisMachine("a.cdb", folder.name()));
}
