#include "DCharacter.h"

#include "DAttackInfo.h"
#include "DChosenAnimal.h"
#include "DChosenFeat.h"
#include "DChosenFeature.h"
#include "DChosenItem.h"
#include "DChosenLanguage.h"
#include "DChosenSkill.h"
#include "DChosenSpeed.h"
#include "DChosenSpell.h"
#include "DFileObject.h"
#include "DMagicBonus.h"
#include "DOptions.h"
#include "DRace.h"
#include "DSpellCaster.h"
#include "TestSupport.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <random>

namespace {

QUuid key(const char* name) {
    return QUuid::createUuidV5(QUuid(), QString::fromLatin1(name));
}

// A core and a user tree, each with a race file, standing in for the installed data.
class CharacterFiles : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(mCore.isValid() && mUser.isValid());
        DOptions::mAppPath = FCString(mCore.path());
        DOptions::SetUserDataPath(FCString(mUser.path()));
        ASSERT_TRUE(writeRace(mCore.path() + "/Core/Races/Dwarf.rac"));
        ASSERT_TRUE(writeRace(mUser.path() + "/Races/Dwarf.rac"));
    }

    static bool writeRace(const QString& path) {
        QDir().mkpath(QFileInfo(path).absolutePath());
        DRace race;
        return race.SaveToFile(FCString(path));
    }

    QString path(const QString& name) const { return mUser.path() + "/" + name; }

    // A character that holds at least one record of every kind a character file stores.
    static void fill(DCharacter& c) {
        c.SetRaceFileObject(new DFileObject(kObjectRace, kFileUser, FCString("Dwarf.rac")));
        // A loaded character takes its race's class: a new race's is the default creature class.
        c.SetRaceClassGuid(QUuid("{22CAEBD6-5489-4909-9F0C-97B46DF0AEA6}"));
        c.SetCharacterName(FCString("Tordek"));
        c.SetPlayerName(FCString("Ann"));
        c.AddInfoFlag(0x4);
        c.AddHistory(key("fighter"), 1.0f);
        c.AddHistory(key("rogue"), 1.0f);
        c.AddClass(key("fighter"))->SetBaseSkillPoints(8);
        c.AddClass(key("rogue"));
        c.SetCharacterLevel(2.0f);
        c.SetPreviousCharacterLevel(1.0f);
        c.SetAlignmentId(18);
        c.SetGender(1);
        for (int a = 0; a < DCharacter::kAbilityCount; ++a) {
            c.SetAbilityStatBase(a, 10 + a);
            c.SetAbilityStatBonus(a, a - 2);
            c.SetAbilityStatEquipBonus(a, a % 2);
            c.SetAbilityStatUserMod(a, -a);
            c.SetSkillBonus(a, 3 * a);
        }
        c.SetEarnedAbilityStat(2, 4);
        c.SetInherentAbilityStat(0, 12);
        for (int stat = 0; stat < DCharacter::kStatCount; ++stat)
            c.SetCharacterStat(stat, stat * 7 - 100);
        c.SetCharacterRefereeStat(4, 99);
        auto* skill = new DChosenSkill();
        skill->SetSkillId(key("climb"));
        skill->SetRanks(key("fighter"), 1, 4.0f);
        c.AddSkill(skill);
        skill->Release();
        auto* feat = new DChosenFeat();
        feat->SetFeatGuid(key("power attack"));
        feat->SetTargetLong(3);
        c.AddFeat(feat);
        feat->Release();
        c.AddLanguage(new DChosenLanguage(key("dwarven")));
        c.GetLanguagePointer(key("dwarven"))->Release(); // the map holds its own reference
        auto* attack = new DAttackInfo();
        attack->SetAttackTotalBonus(5);
        c.AddAttack(attack);
        attack->Release();
        auto* speed = new DChosenSpeed();
        speed->SetSpeedId(1);
        speed->SetSpeedValue(20);
        c.AddSpeed(speed);
        speed->Release();
        c.SetPortraitName(FCString("tordek.jpg"));
        c.GetCurrency().SetAmount(2, 150);
        c.SetBaselineGold(300);
        auto* item = new DChosenItem();
        item->SetCount(2);
        c.AddChosenItem(item);
        item->Release();
        c.GetMagicBonusArray().Add(new DMagicBonus(3, 2, 1));
        c.GetMagicBonusArray().At(0)->Release();
        c.SetCarriedWeight(41.5f);
        c.SetAdvancedHitDie(2);
        auto* feature = new DChosenFeature();
        feature->SetFeatureGuid(key("darkvision"));
        c.GetFeatureArray(1).Add(feature);
        feature->Release();
        c.SetGod(key("god"));
        c.SetDomain(0, key("war"));
        c.SetDomain(1, key("earth"));
        c.SetSchool(3);
        c.SetNumProhibitedSchools(2);
        c.GetProhibitedSchoolArray().Add(5);
        auto* spell = new DChosenSpell();
        spell->SetSpellGuid(key("light"));
        spell->SetPreparedCount(2);
        c.GetKnownSpellSet().Add(spell);
        spell->Release();
        auto* caster = new DSpellCaster();
        caster->SetClassGuid(key("race caster"));
        c.AddRaceSpellCaster(caster);
        caster->Release();
        auto* animal = new DChosenAnimal();
        animal->SetAnimalType(2);
        c.SetAnimal(2, animal);
        c.GetClassSkillSet().Add(DClassSkillType(key("fighter"), key("climb")));
        c.AddProfFlag(DCharacter::kProfMartial);
        c.AddCharacterFlag(0x10);
    }

    static QByteArray bytesOf(const DCharacter& character, const QString& file) {
        EXPECT_TRUE(character.SaveToFile(FCString(file)));
        return hoardtest::readFile(file);
    }

    QTemporaryDir mCore;
    QTemporaryDir mUser;
};

} // namespace

TEST(DCharacterRecord, AbilitiesAndPackedIncreases) {
    DCharacter c;
    // base, bonus, equip, user -> total; at least 1, and -1 for a nonability.
    const struct {
        int base, bonus, equip, user, total, noEquip;
    } cases[] = {{14, 2, 1, 0, 17, 16},
                 {3, -4, 0, 0, 1, 1},
                 {0, 0, 0, 0, 1, 1},
                 {10, 0, 0, -12, 1, 10},
                 {-1, 4, 0, 0, -1, -1}};
    for (const auto& k : cases) {
        c.SetAbilityStatBase(0, k.base);
        c.SetAbilityStatBonus(0, k.bonus);
        c.SetAbilityStatEquipBonus(0, k.equip);
        c.SetAbilityStatUserMod(0, k.user);
        EXPECT_EQ(c.GetAbilityStat(0), k.total) << k.base << " " << k.bonus;
        EXPECT_EQ(c.GetAbilityStatNoEquipBonus(0), k.noEquip) << k.base;
    }
    // Increases taken at levels 4, 8 and 12: three entries, 5 bits each, first entry lowest.
    c.SetEarnedAbilityStat(1, 4);
    c.SetEarnedAbilityStat(1, 8);
    c.SetEarnedAbilityStat(1, 12);
    EXPECT_EQ(c.GetEarnedAbilityStat(1), 3);
    EXPECT_EQ(c.GetEarnedAbilityStatRaw(1), 4 | (8 << 5) | (12 << 10));
    c.SetInherentAbilityStat(5, 20);
    EXPECT_EQ(c.GetTotalEarnedAbilityStats(), 3);
    EXPECT_EQ(c.GetTotalInherentAbilityStats(), 1);
    // A sixth increase has no room and is dropped.
    for (int i = 0; i < 3; ++i)
        c.SetEarnedAbilityStat(1, 16);
    EXPECT_EQ(c.GetEarnedAbilityStat(1), 5);
}

TEST_F(CharacterFiles, SaveAndLoadKeepsEveryStoredField) {
    DCharacter original;
    fill(original);
    original.SetActiveClassId(key("fighter"));
    const QByteArray saved = bytesOf(original, path("Tordek.chr"));
    ASSERT_FALSE(saved.isEmpty());

    DCharacter* loaded = DCharacter::CreateFromFile(FCString(path("Tordek.chr")), false, nullptr);
    ASSERT_NE(loaded, nullptr);
    EXPECT_EQ(loaded->GetLoadResult(), 0);
    EXPECT_TRUE(loaded->GetIsComplete());
    // Every stored field comes back: saving the loaded record gives the same bytes.
    EXPECT_EQ(bytesOf(*loaded, path("again.chr")), saved);
    EXPECT_EQ(loaded->GetFileCharacterName(), "Tordek") << "named after the file";
    EXPECT_TRUE(loaded->GetActiveClassId().isNull()) << "the active class is not stored";
    EXPECT_EQ(loaded->GetHistoryCount(), 2);
    EXPECT_EQ(loaded->GetClassPointer(key("fighter"))->GetBaseSkillPoints(), 8);
    EXPECT_EQ(loaded->GetCharacterStat(60), 60 * 7 - 100);
    EXPECT_EQ(loaded->GetAbilityStatBase(5), 15);
    EXPECT_EQ(loaded->GetSkillPointer(key("climb"), QUuid())->GetRanks(key("fighter")), 4.0f);
    EXPECT_TRUE(loaded->HasFeat(key("power attack"), 3));
    EXPECT_NE(loaded->GetAnimal(2), nullptr);
    EXPECT_EQ(loaded->GetItem(0)->GetCount(), 2);
    EXPECT_NE(loaded->GetRace(), nullptr);
    loaded->Release();

    // A copy is deep: changing it leaves the original's file bytes as they were.
    DCharacter copy(original);
    copy.GetClassPointer(key("fighter"))->SetBaseSkillPoints(1);
    copy.GetSkillPointer(key("climb"), QUuid())->SetRanks(key("fighter"), 1, 1.0f);
    EXPECT_EQ(bytesOf(original, path("third.chr")), saved);
}

TEST_F(CharacterFiles, HeaderOnlyLoadStopsAfterTheRace) {
    DCharacter original;
    fill(original);
    ASSERT_TRUE(original.SaveToFile(FCString(path("Tordek.chr"))));
    DCharacter* header = DCharacter::CreateFromFile(FCString(path("Tordek.chr")), true, nullptr);
    ASSERT_NE(header, nullptr);
    EXPECT_FALSE(header->GetIsComplete());
    EXPECT_TRUE(header->HasInfoFlag(0x4));
    EXPECT_EQ(header->GetHistoryCount(), 0);
    EXPECT_EQ(header->GetCharacterName(), "New Character");
    // Reading the whole file into the same record completes it.
    EXPECT_EQ(DCharacter::CreateFromFile(FCString(path("Tordek.chr")), false, header), header);
    EXPECT_TRUE(header->GetIsComplete());
    EXPECT_EQ(header->GetCharacterName(), "Tordek");
    header->Release();
}

TEST_F(CharacterFiles, MissingRaceFallsBackToCoreOrLeavesAStub) {
    DCharacter original;
    fill(original);
    ASSERT_TRUE(original.SaveToFile(FCString(path("Tordek.chr"))));

    // The user deleted his copy: the core race of that name is used and the entry moves.
    ASSERT_TRUE(QFile::remove(mUser.path() + "/Races/Dwarf.rac"));
    DCharacter* fallback = DCharacter::CreateFromFile(FCString(path("Tordek.chr")), false, nullptr);
    ASSERT_NE(fallback, nullptr);
    EXPECT_EQ(fallback->GetLoadResult(), 0);
    EXPECT_EQ(fallback->GetRaceFileObject()->GetFileObjectType(), kFileCore);
    fallback->Release();

    // With no race at all the record is a stub whose load result says so.
    ASSERT_TRUE(QFile::remove(mCore.path() + "/Core/Races/Dwarf.rac"));
    DCharacter* stub = DCharacter::CreateFromFile(FCString(path("Tordek.chr")), false, nullptr);
    ASSERT_NE(stub, nullptr);
    EXPECT_EQ(stub->GetLoadResult(), 1);
    EXPECT_EQ(stub->GetRace(), nullptr);
    EXPECT_EQ(stub->GetHistoryCount(), 0) << "nothing after the race is read";
    stub->Release();
}

TEST_F(CharacterFiles, BadFilesGiveNull) {
    DCharacter original;
    fill(original);
    const QByteArray good = bytesOf(original, path("good.chr"));
    ASSERT_GT(good.size(), 100);

    QByteArray wrongSignature = good;
    wrongSignature[7] = char(0x01); // the signature's last byte: 0x08080801
    const QByteArray race = hoardtest::readFile(mUser.path() + "/Races/Dwarf.rac");
    std::vector<QByteArray> bad = {QByteArray(), wrongSignature, race, good.left(11)};
    // Every cut of the file, in steps that land inside headers, counts and strings alike.
    for (qsizetype cut = 12; cut < good.size(); cut += 7)
        bad.push_back(good.left(cut));
    std::mt19937 random(1234);
    for (int round = 0; round < 200; ++round) {
        QByteArray noise = good;
        for (int flips = 0; flips < 8; ++flips)
            noise[qsizetype(random() % quint32(noise.size() - 12)) + 12] = char(random());
        bad.push_back(noise);
    }
    int nulls = 0;
    for (size_t i = 0; i < bad.size(); ++i) {
        ASSERT_TRUE(hoardtest::writeFile(path("bad.chr"), bad[i]));
        DCharacter* loaded = DCharacter::CreateFromFile(FCString(path("bad.chr")), false, nullptr);
        if (i < 4 + size_t((good.size() - 12 + 6) / 7)) {
            EXPECT_EQ(loaded, nullptr) << "case " << i;
        }
        nulls += loaded ? 0 : 1;
        if (loaded)
            loaded->Release(); // random damage may leave a readable file; it must not crash
    }
    EXPECT_GT(nulls, 100);
    EXPECT_EQ(DCharacter::CreateFromFile(FCString(path("absent.chr")), false, nullptr), nullptr);
}
