// The object manager's catalogues are process-wide; ctest runs each test in its own process.
#include "DObjectManager.h"

#include "DCharacter.h"
#include "DFileObject.h"
#include "DOptions.h"
#include "DRace.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

class Catalogues : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(mCore.isValid() && mUser.isValid());
        DOptions::mAppPath = FCString(mCore.path());
        DOptions::SetUserDataPath(FCString(mUser.path()));
        writeRace(core("Core/Races/Dwarf.rac"));
        writeRace(core("Core/Races/Orc.rac"));
        writeRace(user("Races/Dwarf.rac"));
        QDir().mkpath(core("Core/Races/not a race.rac")); // a folder is no entry
    }

    static void writeRace(const QString& path) {
        QDir().mkpath(QFileInfo(path).absolutePath());
        DRace race;
        ASSERT_TRUE(race.SaveToFile(FCString(path)));
    }
    QString core(const QString& relative) const { return mCore.path() + "/" + relative; }
    QString user(const QString& relative) const { return mUser.path() + "/" + relative; }

    static QStringList raceEntries() {
        QStringList names;
        for (const auto& entry : DObjectManager::GetRaceFileSet())
            names << QStringLiteral("%1:%2").arg(entry->GetFileObjectType() == kFileUser ? "user"
                                                                                         : "core",
                                                 entry->GetRelativeFilePath());
        return names;
    }

    QTemporaryDir mCore;
    QTemporaryDir mUser;
};

} // namespace

TEST_F(Catalogues, ScanSaveRenameAndDeleteKeepTheRaceCatalogueTrue) {
    DObjectManager::StartUp();
    // The same name in both trees is two entries, core first.
    EXPECT_EQ(raceEntries(), QStringList({"core:Dwarf.rac", "core:Orc.rac", "user:Dwarf.rac"}));

    // A later start-up is a no-op, even with new files on disk.
    writeRace(user("Races/Kobold.rac"));
    DObjectManager::StartUp();
    EXPECT_EQ(DObjectManager::GetRaceFileSet().GetCount(), 3);

    // Saving into the user tree adds the file once, however often it is saved.
    DObjectManager::HandleRaceSave(FCString(user("Races/Kobold.rac")));
    DObjectManager::HandleRaceSave(FCString(user("Races/Kobold.rac")));
    EXPECT_EQ(raceEntries(),
              QStringList({"core:Dwarf.rac", "core:Orc.rac", "user:Dwarf.rac", "user:Kobold.rac"}));

    // A name differing only in case is the same entry.
    writeRace(user("Races/KOBOLD.rac"));
    DObjectManager::HandleRaceSave(FCString(user("Races/KOBOLD.rac")));
    EXPECT_EQ(DObjectManager::GetRaceFileSet().GetCount(), 4);

    // A rename is a save under the new name: the new entry appears, the old one stays until
    // the next start.
    ASSERT_TRUE(QFile::rename(user("Races/Kobold.rac"), user("Races/Goblin.rac")));
    DObjectManager::HandleRaceSave(FCString(user("Races/Goblin.rac")));
    EXPECT_TRUE(raceEntries().contains("user:Goblin.rac"));
    EXPECT_EQ(DObjectManager::GetRaceFileSet().GetCount(), 5);

    // Deleting removes the file from disk and leaves the entry.
    DFileObject goblin(kObjectRace, kFileUser, FCString("Goblin.rac"));
    DObjectManager::DestroyFileObject(&goblin);
    EXPECT_FALSE(QFile::exists(user("Races/Goblin.rac")));
    EXPECT_TRUE(DObjectManager::GetRaceFileSet().Contains(goblin));
    DObjectManager::DestroyFileObject(nullptr); // nothing to do, nothing breaks
}

TEST_F(Catalogues, CharactersAreListedWithTheirHeaderOnly) {
    DCharacter character;
    character.SetCharacterName(FCString("Tordek"));
    character.SetRaceFileObject(new DFileObject(kObjectRace, kFileCore, FCString("Dwarf.rac")));
    ASSERT_TRUE(character.SaveToFile(FCString(user("Characters/Tordek.chr"))));
    ASSERT_TRUE(character.SaveToFile(FCString(user("Monsters/Brute.mon"))));
    DObjectManager::StartUp();
    ASSERT_EQ(DObjectManager::GetCharacterSet().GetCount(), 1);
    ASSERT_EQ(DObjectManager::GetMonsterSet().GetCount(), 1);

    DFileObject* entry = DObjectManager::GetCharacterSet().begin()->Get();
    auto* header = FCDynamicCast<DCharacter>(entry->GetCoreObjectRaw());
    ASSERT_NE(header, nullptr) << "the list keeps the header in memory";
    EXPECT_FALSE(header->GetIsComplete());
    EXPECT_NE(header->GetRace(), nullptr);

    // Asking for the whole object reads the rest of the file into the same record.
    auto* full = FCDynamicCast<DCharacter>(entry->GetCoreObject(DFileObject::kFlagEdit));
    ASSERT_EQ(full, header);
    EXPECT_TRUE(full->GetIsComplete());
    EXPECT_EQ(full->GetCharacterName(), "Tordek");

    // Saving the same file again adds nothing.
    DObjectManager::HandleCharacterSave(FCString(user("Characters/Tordek.chr")));
    EXPECT_EQ(DObjectManager::GetCharacterSet().GetCount(), 1);
}
