// Spells per day, spells known and caster levels, worked by hand from the SRD class tables:
// wizard 3 1 / 4 2 1 / 4 3 2 1 at levels 1, 3, 5; cleric 5 3 2 1 at 5; sorcerer 6 6 3 per day and
// 6 3 1 known at 4; bard 3 0 per day and 5 2 known at 2; paladin and ranger 0 at 4 and 1 at 6,
// casting at half their level. Bonus spells: (score / 2 - level - 1) / 4 for levels 1 and up.
#include "RulesTestSupport.h"

#include "DCharFlags.h"
#include "DCharStatType.h"
#include "DCharacterClass.h"
#include "DChosenSpell.h"
#include "DItemType.h"
#include "DSpecialAttackSpellCaster.h"

#include <vector>

namespace {

using rulestest::Ref;
using Row = std::vector<int>;

constexpr int kNone = -1;
const Row kClosed = Row(10, kNone);

class SpellsTest : public rulestest::RulesFixture {
protected:
    Ref<DFileObject> Race(const QString& name, int ability, int score,
                          const QUuid& raceCasterClass = QUuid(), int raceCasterLevel = 0) {
        DRace race;
        race.SetClassGuid(ClassGuid("Humanoid"));
        race.SetAlignmentId(kRaceAlignment);
        for (int a = 0; a < kAbilityCount; ++a)
            race.SetAbility(a, 10);
        race.SetAbility(ability, score);
        if (!raceCasterClass.isNull()) {
            auto* casting = new DSpecialAttackSpellCaster(1, raceCasterClass, raceCasterLevel);
            race.AddSpecialAttack(casting);
            casting->Release();
        }
        return SaveRace(race, name);
    }

    static QStringList Levels(const QString& className, int count) {
        QStringList classes;
        for (int i = 0; i < count; ++i)
            classes << className;
        return classes;
    }

    static Row PerDay(const DSpellCaster& caster) {
        Row row;
        for (int n = 0; n < 10; ++n)
            row.push_back(caster.GetSpellsPerDay(n));
        return row;
    }
    static Row Extra(const DSpellCaster& caster) {
        Row row;
        for (int n = 0; n < 10; ++n)
            row.push_back(caster.GetExtraClassSpellsPerDay(n));
        return row;
    }
    static Row CanKnow(const DSpellCaster& caster) {
        Row row;
        for (int n = 0; n < 10; ++n)
            row.push_back(caster.GetSpellsCanKnow(n));
        return row;
    }
};

// Pads a row of the first spell levels with `fill` up to level 9.
Row Pad(Row row, int fill) {
    row.resize(10, fill);
    return row;
}

TEST_F(SpellsTest, SpellsPerDayAndKnownOfEveryKindOfCaster) {
    struct Case {
        const char* what;
        const char* className;
        int level;
        int ability;
        int score;
        bool extraSlot; // a domain for a cleric, a school for a wizard
        Row perDay;
        Row extra;
        Row canKnow;
        int casterLevel;
        int maxLevel;
    };
    const Case cases[] = {
        // Prepared arcane with a spellbook: 3 + Int modifier at first, 2 a level after.
        {"wizard 5, Int 12 cannot cast 3rd", "Wizard", 5, kAbilityIntelligence, 12, false,
         Pad({4, 4, 2}, kNone), Pad({}, 0), Pad({0, 6, 4, 2}, 0), 5, 2},
        {"wizard 3, Int 16 with a school", "Wizard", 3, kAbilityIntelligence, 16, true,
         Pad({4, 3, 2}, kNone), Pad({1, 1, 1}, 0), Pad({0, 8, 2}, 0), 3, 2},
        {"wizard 1, Int 9 casts nothing", "Wizard", 1, kAbilityIntelligence, 9, false, kClosed,
         Pad({}, 0), Pad({0, 2}, 0), 1, -1},
        // Prepared divine: the domain slot from 1st level up, on each level the cleric casts.
        {"cleric 5, Wis 16 with a domain", "Cleric", 5, kAbilityWisdom, 16, true,
         Pad({5, 4, 3, 2}, kNone), Pad({0, 1, 1, 1}, 0), Pad({}, 0), 5, 3},
        {"cleric 5, Wis 12 cannot cast 3rd", "Cleric", 5, kAbilityWisdom, 12, false,
         Pad({5, 4, 2}, kNone), Pad({}, 0), Pad({}, 0), 5, 2},
        // Spontaneous arcane.
        {"sorcerer 4, Cha 14", "Sorcerer", 4, kAbilityCharisma, 14, false, Pad({6, 7, 4}, kNone),
         Pad({}, 0), Pad({6, 3, 1}, 0), 4, 2},
        {"sorcerer 4, Cha 11 cannot cast 2nd", "Sorcerer", 4, kAbilityCharisma, 11, false,
         Pad({6, 6}, kNone), Pad({}, 0), Pad({6, 3}, 0), 4, 1},
        {"bard 2, Cha 11: 1st needs a bonus spell", "Bard", 2, kAbilityCharisma, 11, false,
         Pad({3}, kNone), Pad({}, 0), Pad({5, 2}, 0), 2, 0},
        {"bard 2, Cha 12 has its bonus spell", "Bard", 2, kAbilityCharisma, 12, false,
         Pad({3, 1}, kNone), Pad({}, 0), Pad({5, 2}, 0), 2, 1},
        // Half-casters: nothing before 4th level, caster level half the class level.
        {"paladin 3, Wis 14", "Paladin", 3, kAbilityWisdom, 14, false, kClosed, Pad({}, 0),
         Pad({}, 0), 0, -1},
        {"paladin 4, Wis 11: no bonus, no spell", "Paladin", 4, kAbilityWisdom, 11, false, kClosed,
         Pad({}, 0), Pad({}, 0), 2, -1},
        {"paladin 4, Wis 12 opens 1st", "Paladin", 4, kAbilityWisdom, 12, false,
         Pad({kNone, 1}, kNone), Pad({}, 0), Pad({}, 0), 2, 1},
        {"ranger 6, Wis 14", "Ranger", 6, kAbilityWisdom, 14, false, Pad({kNone, 2}, kNone),
         Pad({}, 0), Pad({}, 0), 3, 1},
        {"fighter 5 does not cast", "Fighter", 5, kAbilityWisdom, 18, false, Pad({}, 0), Pad({}, 0),
         Pad({}, 0), -1, -1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Ref<DFileObject> race = Race(QStringLiteral("Caster"), c.ability, c.score);
        Ref<DCharacter> character(new DCharacter());
        DHandBook::SetupCharacterWithRace(character.get(), race.get());
        for (const QString& name : Levels(c.className, c.level))
            character->AddHistory(ClassGuid(name), 1.0f);
        if (c.extraSlot) {
            character->SetDomain(0, QUuid::createUuid());
            character->SetSchool(1);
        }
        DHandBook::CharacterSetup(character.get(), true);
        const DCharacterClass* caster = character->GetClassPointer(ClassGuid(c.className));
        ASSERT_NE(caster, nullptr);
        EXPECT_EQ(PerDay(*caster), c.perDay);
        EXPECT_EQ(Extra(*caster), c.extra);
        EXPECT_EQ(CanKnow(*caster), c.canKnow);
        EXPECT_EQ(character->GetCharacterStat(kStatCasterLevel), c.casterLevel);
        EXPECT_EQ(caster->GetMaxSpellLevel(), c.maxLevel);
        EXPECT_EQ(character->HasCharacterFlag(kCharFlagAbilityCaster), c.casterLevel >= 0);
    }
}

TEST_F(SpellsTest, ARaceCastsAsASorcererButAddsNoCasterLevel) {
    // Sorcerer 6 with Cha 14: 6 6 5 3 a day, 7 4 2 1 known, one bonus spell at levels 1 and 2.
    Ref<DFileObject> race =
        Race(QStringLiteral("Caster"), kAbilityCharisma, 14, ClassGuid("Sorcerer"), 6);
    Ref<DCharacter> character = NewCharacter(race.get(), {"Fighter"});
    const DSpellCaster* caster = character->GetRaceSpellCaster(ClassGuid("Sorcerer"));
    ASSERT_NE(caster, nullptr);
    EXPECT_EQ(PerDay(*caster), Pad({6, 7, 6, 3}, kNone));
    EXPECT_EQ(CanKnow(*caster), Pad({7, 4, 2, 1}, 0));
    EXPECT_TRUE(character->HasCharacterFlag(kCharFlagAbilityCaster));
    EXPECT_FALSE(character->HasCharacterFlag(kCharFlagPreparesSpells));
    EXPECT_EQ(character->GetCharacterStat(kStatCasterLevel), -1);
}

TEST_F(SpellsTest, ItemCreationFeatsOpenAtTheirCasterLevel) {
    // Scribe Scroll needs caster level 1, Craft Wand 5.
    const struct {
        QStringList classes;
        const char* feat;
        bool opens;
    } cases[] = {
        {{"Wizard"}, "Scribe Scroll", true},           {{"Fighter"}, "Scribe Scroll", false},
        {Levels("Wizard", 4), "Craft Wand", false},    {Levels("Wizard", 5), "Craft Wand", true},
        {Levels("Paladin", 8), "Scribe Scroll", true},
    };
    Ref<DFileObject> race = Race(QStringLiteral("Caster"), kAbilityIntelligence, 14);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.classes.join(',').toStdString() + " " + c.feat);
        Ref<DCharacter> character = NewCharacter(race.get(), c.classes);
        EXPECT_EQ(DHandBook::ComputeDoesFeatMeetPrereqs(character.get(), true, FeatGuid(c.feat)),
                  c.opens);
    }
}

TEST_F(SpellsTest, KnownAndPreparedSpellsKeepTheCountsAndTheGold) {
    // Wizard 1 with Int 14 and a school: 3 0th, 2 1st (+1 school slot each), 5 1st known.
    Ref<DFileObject> race = Race(QStringLiteral("Caster"), kAbilityIntelligence, 14);
    Ref<DCharacter> character(new DCharacter());
    DHandBook::SetupCharacterWithRace(character.get(), race.get());
    character->AddHistory(ClassGuid("Wizard"), 1.0f);
    character->SetSchool(1);
    DHandBook::CharacterSetup(character.get(), true);
    const QUuid wizardGuid = ClassGuid("Wizard");
    DCharacterClass* wizard = character->GetClassPointer(wizardGuid);
    ASSERT_NE(wizard, nullptr);
    EXPECT_EQ(DHandBook::BuildSpellsPerDayString(wizard, 1), "2+1");
    EXPECT_EQ(DHandBook::BuildSpellsCanKnowString(wizard, 1), "5");

    const QUuid sleep = QUuid::createUuid();
    Ref<DChosenSpell> known(new DChosenSpell());
    known->SetSpellGuid(sleep);
    known->SetSpellLevel(1);
    known->SetCasterClassGuid(wizardGuid);
    known->SetPurchaseType(1);
    DHandBook::AddSpellKnown(character.get(), known.get());
    Ref<DChosenSpell> bought(new DChosenSpell());
    bought->SetSpellGuid(QUuid::createUuid());
    bought->SetSpellLevel(3);
    bought->SetCasterClassGuid(wizardGuid);
    bought->SetPurchaseType(10);
    const int gold = character->GetCurrency().GetAmount(kCoinGold);
    DHandBook::AddSpellKnown(character.get(), bought.get());
    EXPECT_EQ(character->GetCurrency().GetAmount(kCoinGold), gold - 600);
    EXPECT_EQ(DHandBook::BuildRemainingSpellsCanKnowString(wizard, 1), "4");

    DHandBook::AddSpellPrepared(character.get(), sleep, wizardGuid, 1, 0);
    DChosenSpell* twice = DHandBook::AddSpellPrepared(character.get(), sleep, wizardGuid, 1, 0);
    DHandBook::AddSpellPrepared(character.get(), sleep, wizardGuid, 1, DChosenSpell::kSpellSchool);
    EXPECT_EQ(twice->GetPreparedCount(), 2);
    EXPECT_EQ(character->GetPreparedSpellSet().GetCount(), 2);
    EXPECT_EQ(DHandBook::BuildRemainingSpellsPerDayString(wizard, 1), "0+0");

    // Forgetting the spell takes its preparations with it; gold comes back in full.
    DHandBook::RemoveSpellKnown(character.get(), known.get());
    DHandBook::RemoveSpellKnown(character.get(), bought.get());
    EXPECT_EQ(character->GetPreparedSpellSet().GetCount(), 0);
    EXPECT_EQ(DHandBook::BuildRemainingSpellsPerDayString(wizard, 1), "2+1");
    EXPECT_EQ(wizard->GetSpellsKnown(1), 0);
    EXPECT_EQ(character->GetCurrency().GetAmount(kCoinGold), gold);
}

} // namespace
