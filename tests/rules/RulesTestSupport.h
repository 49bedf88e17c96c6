#pragma once

#include "DCharacter.h"
#include "DClassInfo.h"
#include "DDatabase.h"
#include "DFeatInfo.h"
#include "DFileObject.h"
#include "DHandBook.h"
#include "DObjectManager.h"
#include "DOptions.h"
#include "DRace.h"
#include "FCReleaser.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>

namespace rulestest {

template <typename T> using Ref = FCRef<T>;

// The built rules database for the whole suite, and a scratch user folder per test that race
// files are written to.
class RulesFixture : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        ASSERT_TRUE(DDatabase::StartUp(FCString(hoardtest::builtDataDir() + "/rules.db")));
    }
    static void TearDownTestSuite() { DDatabase::ShutDown(); }
    void SetUp() override {
        ASSERT_TRUE(mUserDir.isValid());
        DOptions::SetUserDataPath(FCString(mUserDir.path()));
        QDir().mkpath(mUserDir.path() + "/Races");
    }

    static QUuid ClassGuid(const QString& name) { return hoardtest::classGuid(name); }
    static QUuid FeatGuid(const QString& name) { return hoardtest::featGuid(name); }
    static QUuid SkillGuid(const QString& name) { return hoardtest::skillGuid(name); }

    // Saves `race` as a user race and returns the catalogue entry that names it.
    Ref<DFileObject> SaveRace(DRace& race, const QString& name) {
        race.SetRaceName(FCString(name));
        EXPECT_TRUE(race.SaveToFile(FCString(mUserDir.path() + "/Races/" + name + ".rac")));
        return Ref<DFileObject>(
            DObjectManager::CreateFileObject(kObjectRace, kFileUser, FCString(name + ".rac")));
    }

    // A race of the creature type `typeClass` with that many hit dice.
    Ref<DFileObject> SaveRace(const QString& name, const QString& typeClass, float hitDice) {
        DRace race;
        race.SetClassGuid(ClassGuid(typeClass));
        race.SetHitDieCount(hitDice);
        race.SetAlignmentId(kRaceAlignment);
        return SaveRace(race, name);
    }

    // A new character: the race, then `classes` one level each, set up in one pass.
    static Ref<DCharacter> NewCharacter(DFileObject* race, const QStringList& classes) {
        Ref<DCharacter> character(new DCharacter());
        DHandBook::SetupCharacterWithRace(character.get(), race);
        for (const QString& name : classes)
            character->AddHistory(ClassGuid(name), 1.0f);
        DHandBook::CharacterSetup(character.get(), true);
        return character;
    }

    // The same built as a player does: a new level-1 character, then one level-up per class
    // level after the first.
    static Ref<DCharacter> LevelledCharacter(DFileObject* race, const QStringList& classes) {
        Ref<DCharacter> character = NewCharacter(race, classes.mid(0, 1));
        for (const QString& name : classes.mid(1))
            EXPECT_TRUE(DHandBook::AddCharacterLevel(character.get(), ClassGuid(name), false));
        return character;
    }

    // "Fighter 2, Rogue 3": class names and levels in list order.
    static QString ClassLevels(const DCharacter& character) {
        QStringList parts;
        for (const DCharacterClass* characterClass : character.GetClassList()) {
            const DClassInfo* info = DDatabase::GetClassInfoA(characterClass->GetClassGuid());
            parts << QStringLiteral("%1 %2")
                         .arg(info ? QString(info->mName) : QStringLiteral("?"))
                         .arg(double(characterClass->GetLevel()));
        }
        return parts.join(", ");
    }

    static QByteArray SavedBytes(const DCharacter& character, const QString& path) {
        if (!character.SaveToFile(FCString(path)))
            return QByteArray();
        return hoardtest::readFile(path);
    }

    QString ScratchPath(const QString& file) const { return mUserDir.path() + "/" + file; }

    // Chaotic evil: any alignment but the default 9 shows whether the race's was taken.
    static constexpr int kRaceAlignment = 7;

private:
    QTemporaryDir mUserDir;
};

} // namespace rulestest
