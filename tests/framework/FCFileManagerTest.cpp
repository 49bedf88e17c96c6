#include "FCFileManager.h"
#include "DOptions.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <QTemporaryDir>

namespace {

// Points both data roots at temporary folders and puts the old ones back afterwards.
class FCFileManagerTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(mApp.isValid());
        ASSERT_TRUE(mUser.isValid());
        mOldAppPath = DOptions::mAppPath;
        // An unset user folder must stay unset, so that it keeps following the environment.
        mOldUserPath = DOptions::GetUserDataPath();
        DOptions::SetUserDataPath(FCString());
        if (DOptions::GetUserDataPath() == mOldUserPath)
            mOldUserPath.clear();
        DOptions::mAppPath = mApp.path();
        DOptions::SetUserDataPath(mUser.path());
    }
    void TearDown() override {
        DOptions::mAppPath = mOldAppPath;
        DOptions::SetUserDataPath(mOldUserPath);
    }

    void touch(const QString& root, const QString& relative) {
        const QString full = root + "/" + relative;
        ASSERT_TRUE(QDir().mkpath(QFileInfo(full).absolutePath()));
        ASSERT_TRUE(hoardtest::writeFile(full, "x"));
    }

    QTemporaryDir mApp;
    QTemporaryDir mUser;
    FCString mOldAppPath;
    FCString mOldUserPath;
};

} // namespace

TEST_F(FCFileManagerTest, ResolvePathMapsWindowsPathsOntoTheDataRoots) {
    DOptions::mAppPath = "/opt/hoard/data";
    DOptions::SetUserDataPath("/home/gm/.local/share/hoard");
    struct Case {
        const char* path;
        const char* expected;
    };
    const Case cases[] = {
        {"Core\\Races\\Elf.rac", "/opt/hoard/data/Core/Races/Elf.rac"},
        {"Core/Races/Elf.rac", "/opt/hoard/data/Core/Races/Elf.rac"},
        {"rules.db", "/opt/hoard/data/rules.db"},
        {"User\\Characters\\Thorin.chr", "/home/gm/.local/share/hoard/Characters/Thorin.chr"},
        {"User/Tables/Loot.tbl", "/home/gm/.local/share/hoard/Tables/Loot.tbl"},
        {"Users\\x.chr", "/opt/hoard/data/Users/x.chr"},
        {"UserData\\x.chr", "/opt/hoard/data/UserData/x.chr"},
        {"Core\\User\\x.chr", "/opt/hoard/data/Core/User/x.chr"},
        {"/srv/files/a.rac", "/srv/files/a.rac"},
        {"/srv/files\\b.rac", "/srv/files/b.rac"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.path);
        EXPECT_EQ(FCFileManager::ResolvePath(c.path), QString(c.expected));
    }
}

TEST_F(FCFileManagerTest, FileInfoListMatchesThePatternWithoutRegardToCase) {
    for (const char* name : {"Elf.rac", "Dwarf.RAC", "Human.rac", "notes.txt", "Elf.rac.bak"})
        touch(mApp.path(), QString("Core/Races/") + name);
    ASSERT_TRUE(QDir().mkpath(mApp.path() + "/Core/Races/Drafts.rac"));
    touch(mApp.path(), "Core/Monsters/Orc.rac");

    // A second entry that differs only in case exists only where the file system tells them
    // apart.
    const bool caseSensitive = hoardtest::writeFile(mApp.path() + "/Core/Races/elf.rac", "y") &&
                               hoardtest::readFile(mApp.path() + "/Core/Races/Elf.rac") == "x";
    QSet<QString> expectedFiles = {"Elf.rac", "Dwarf.RAC", "Human.rac"};
    if (caseSensitive)
        expectedFiles.insert("elf.rac");

    FCFileInfoList list;
    FCFileManager::CreateFileInfoList("Core\\Races\\*.rac", list);
    ASSERT_EQ(list.mCount, expectedFiles.size() + 1);
    QSet<QString> files;
    QSet<QString> others;
    for (int i = 0; i < list.mCount; ++i)
        (FCFileManager::IsFile(list, i) ? files : others).insert(list.mNames[i]);
    EXPECT_EQ(files, expectedFiles);
    EXPECT_EQ(others, QSet<QString>{"Drafts.rac"});
    EXPECT_FALSE(FCFileManager::IsFile(list, -1));
    EXPECT_FALSE(FCFileManager::IsFile(list, list.mCount));

    // Filling again replaces the entries instead of appending to them.
    FCFileManager::CreateFileInfoList("Core\\Races\\*.RAC", list);
    EXPECT_EQ(list.mCount, expectedFiles.size() + 1);

    FCFileManager::DestroyFileInfolist(list);
    EXPECT_EQ(list.mCount, 0);
    EXPECT_FALSE(FCFileManager::IsFile(list, 0));

    FCFileManager::CreateFileInfoList("Core\\Spells\\*.rac", list);
    EXPECT_EQ(list.mCount, 0);
    FCFileManager::CreateFileInfoList("Core\\Races\\*.chr", list);
    EXPECT_EQ(list.mCount, 0);
}

TEST_F(FCFileManagerTest, UserPathsListAndChangeTheUserFolder) {
    touch(mUser.path(), "Races/Mine.rac");
    touch(mApp.path(), "Races/Theirs.rac");

    FCFileInfoList list;
    FCFileManager::CreateFileInfoList("User\\Races\\*.rac", list);
    ASSERT_EQ(list.mCount, 1);
    EXPECT_EQ(list.mNames[0], QString("Mine.rac"));

    EXPECT_TRUE(FCFileManager::FileExists("User\\Races\\Mine.rac"));
    EXPECT_FALSE(FCFileManager::FileExists("User\\Races\\Theirs.rac"));
    EXPECT_TRUE(FCFileManager::FileExists("Races\\Theirs.rac"));
    EXPECT_FALSE(FCFileManager::FileExists("User\\Races")); // a folder is not a file

    EXPECT_TRUE(FCFileManager::MakeDirectory("User\\Tables\\Old"));
    EXPECT_TRUE(QFileInfo(mUser.path() + "/Tables/Old").isDir());
    EXPECT_TRUE(FCFileManager::RemoveFile("User\\Races\\Mine.rac"));
    EXPECT_FALSE(QFileInfo::exists(mUser.path() + "/Races/Mine.rac"));
    EXPECT_FALSE(FCFileManager::RemoveFile("User\\Races\\Mine.rac"));
    EXPECT_TRUE(QFileInfo::exists(mApp.path() + "/Races/Theirs.rac"));
}

TEST_F(FCFileManagerTest, FindUniqueFileNameCountsUpPastTakenNames) {
    const QString folder = mUser.path() + "/Characters";
    ASSERT_TRUE(QDir().mkpath(folder));
    struct Step {
        const char* create; // file added before the call, or null
        const char* expected;
    };
    const Step steps[] = {
        {nullptr, "Hero.chr"},
        {"Hero.chr", "Hero 2.chr"},
        {"Hero 2.chr", "Hero 3.chr"},
        {"Hero 4.chr", "Hero 3.chr"}, // the first free number, not the one after the highest
    };
    for (const Step& step : steps) {
        SCOPED_TRACE(step.expected);
        if (step.create) {
            ASSERT_TRUE(hoardtest::writeFile(folder + "/" + step.create, "x"));
        }
        FCString result;
        ASSERT_TRUE(FCFileManager::FindUniqueFileName("User\\Characters", "Hero", "chr", result));
        EXPECT_EQ(result, QString(step.expected));
        EXPECT_FALSE(QFileInfo::exists(folder + "/" + result));
    }
}
