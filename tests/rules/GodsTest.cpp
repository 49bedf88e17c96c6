// Gods, domains, specialist schools and languages worked by hand from the open rules: a cleric
// follows a god of its own alignment or one step from it and takes two of the god's domains,
// each domain level it can cast gains one slot; a specialist gives up other schools and gains
// one slot a level; bonus languages are the Intelligence modifier, never below zero.
#include "RulesTestSupport.h"

#include "DCharStatType.h"
#include "DCharacterClass.h"
#include "DChosenFeat.h"
#include "DChosenLanguage.h"
#include "DRuleGuids.h"
#include "DRulesQuery.h"
#include "DWeaponInfo.h"
#include "ResultSet.h"

#include <vector>

namespace {

using rulestest::Ref;
using Row = std::vector<int>;

// Alignment ids: the law-chaos bit (1, 2, 4) or'ed with the good-evil bit (8, 16, 32).
constexpr int kLawfulGood = 9;
constexpr int kNeutralGood = 10;
constexpr int kLawfulNeutral = 17;
constexpr int kLawfulEvil = 33;
constexpr int kChaoticEvil = 36;

// School ids of the rules database.
constexpr int kUniversal = 0;
constexpr int kConjuration = 2;
constexpr int kDivination = 3;
constexpr int kEvocation = 5;

class GodsTest : public rulestest::RulesFixture {
protected:
    Ref<DFileObject> Race(int ability, int score) {
        DRace race;
        race.SetClassGuid(ClassGuid("Humanoid"));
        for (int a = 0; a < kAbilityCount; ++a)
            race.SetAbility(a, 10);
        race.SetAbility(ability, score);
        return SaveRace(race, QStringLiteral("Devout"));
    }

    static Row Extra(const DSpellCaster& caster) {
        Row row;
        for (int n = 0; n < 10; ++n)
            row.push_back(caster.GetExtraClassSpellsPerDay(n));
        return row;
    }

    static Row Pad(Row row) {
        row.resize(10, 0);
        return row;
    }
};

TEST_F(GodsTest, AGodTakesItsOwnAlignmentOrOneStepOff) {
    // Valmora is lawful good; Draegor lawful evil; the "Any" entry is open to all.
    const struct {
        const char* god;
        int alignment;
        bool allowed;
    } cases[] = {
        {"Valmora", kLawfulGood, true},    {"Valmora", kNeutralGood, true},
        {"Valmora", kLawfulNeutral, true}, {"Valmora", kLawfulEvil, false},
        {"Valmora", kChaoticEvil, false},  {"Draegor", kLawfulEvil, true},
        {"Draegor", kLawfulGood, false},   {"Any (no patron)", kChaoticEvil, true},
    };
    Ref<DFileObject> race = Race(kAbilityWisdom, 10);
    Ref<DCharacter> character = NewCharacter(race.get(), {"Cleric"});
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.god) + " " + std::to_string(c.alignment));
        character->SetAlignmentId(c.alignment);
        EXPECT_EQ(DHandBook::CanWorshipGod(character.get(), hoardtest::rowGuid(kTableGod, c.god)),
                  c.allowed);
    }
    EXPECT_FALSE(DHandBook::CanWorshipGod(character.get(), QUuid::createUuid()));
}

TEST_F(GodsTest, DomainsComeFromTheGodAndFitTheAlignment) {
    Ref<DFileObject> race = Race(kAbilityWisdom, 10);
    Ref<DCharacter> character = NewCharacter(race.get(), {"Cleric"});
    character->SetAlignmentId(kLawfulNeutral);
    DHandBook::SetCharacterGod(character.get(), hoardtest::rowGuid(kTableGod, "Valmora"));
    // Law is Valmora's and the character lawful; Good needs a good character; Fire is not hers.
    EXPECT_TRUE(
        DHandBook::CanWorshipDomain(character.get(), hoardtest::rowGuid(kTableDomain, "Law")));
    EXPECT_FALSE(
        DHandBook::CanWorshipDomain(character.get(), hoardtest::rowGuid(kTableDomain, "Good")));
    EXPECT_FALSE(
        DHandBook::CanWorshipDomain(character.get(), hoardtest::rowGuid(kTableDomain, "Fire")));
    EXPECT_TRUE(
        DHandBook::IsValidGodDomain(DRuleGuids::kAnyGod, hoardtest::rowGuid(kTableDomain, "Fire")));
}

TEST_F(GodsTest, AClericsDomainsOpenTheExtraSlotAndTheGodsFeats) {
    // Cleric 3 with Wisdom 14: spells of levels 0 to 2, so a domain slot at 1st and 2nd only.
    Ref<DFileObject> race = Race(kAbilityWisdom, 14);
    Ref<DCharacter> character = NewCharacter(race.get(), {"Cleric", "Cleric", "Cleric"});
    character->SetAlignmentId(kLawfulGood);
    const DCharacterClass* cleric = character->GetClassPointer(ClassGuid("Cleric"));
    ASSERT_NE(cleric, nullptr);
    EXPECT_EQ(Extra(*cleric), Pad({}));

    const QUuid war = hoardtest::rowGuid(kTableDomain, "War");
    const QUuid good = hoardtest::rowGuid(kTableDomain, "Good");
    const QUuid martial = FeatGuid("Martial Weapon Proficiency");
    const QUuid focus = FeatGuid("Weapon Focus");
    const QUuid longsword = hoardtest::rowGuid(kTableWeapons, "Longsword");
    const int spent = character->GetCharacterStat(kStatSpentFeatPoints);

    DHandBook::SetCharacterGod(character.get(), hoardtest::rowGuid(kTableGod, "Valmora"));
    DHandBook::AddCharacterDomain(character.get(), war);
    EXPECT_EQ(Extra(*cleric), Pad({0, 1, 1}));
    // War under Valmora: the longsword and Weapon Focus with it, for no feat point.
    EXPECT_TRUE(character->HasFeat(martial, longsword));
    EXPECT_TRUE(character->HasFeat(focus, longsword));
    EXPECT_EQ(character->GetCharacterStat(kStatSpentFeatPoints), spent);
    EXPECT_TRUE(DHandBook::IsCharacterProfWithWeapon(
        character.get(), static_cast<const DWeaponInfo*>(DDatabase::GetWeaponInfo(longsword))));

    DHandBook::AddCharacterDomain(character.get(), good);
    DHandBook::AddCharacterDomain(character.get(), hoardtest::rowGuid(kTableDomain, "Law"));
    EXPECT_EQ(character->GetDomain(0), war);
    EXPECT_EQ(character->GetDomain(1), good);

    // War leaves: Good moves up, the god's gifts go, the slot stays with one domain.
    DHandBook::RemoveCharacterDomain(character.get(), war);
    EXPECT_EQ(character->GetDomain(0), good);
    EXPECT_TRUE(character->GetDomain(1).isNull());
    EXPECT_FALSE(character->HasFeat(martial, longsword));
    EXPECT_EQ(Extra(*cleric), Pad({0, 1, 1}));
    DHandBook::RemoveCharacterDomain(character.get(), good);
    EXPECT_EQ(Extra(*cleric), Pad({}));
}

TEST_F(GodsTest, AFeatBoughtBeforeTheGodGrantsItIsRefundedAndChargedAgain) {
    Ref<DFileObject> race = Race(kAbilityWisdom, 12);
    Ref<DCharacter> character = NewCharacter(race.get(), {"Cleric"});
    character->SetAlignmentId(kLawfulGood);
    const QUuid focus = FeatGuid("Weapon Focus");
    const QUuid longsword = hoardtest::rowGuid(kTableWeapons, "Longsword");
    Ref<DChosenFeat> bought(new DChosenFeat());
    bought->SetFeatGuid(focus);
    bought->SetTargetGuid(longsword);
    DHandBook::AddFeat(character.get(), true, bought.get());
    const int spent = character->GetCharacterStat(kStatSpentFeatPoints);

    DHandBook::SetCharacterGod(character.get(), hoardtest::rowGuid(kTableGod, "Valmora"));
    DHandBook::AddCharacterDomain(character.get(), hoardtest::rowGuid(kTableDomain, "War"));
    EXPECT_EQ(character->GetCharacterStat(kStatSpentFeatPoints), spent - 1);
    EXPECT_TRUE(bought->HasFeatFlag(DChosenFeat::kFeatLocked));

    DHandBook::RemoveCharacterDomain(character.get(), hoardtest::rowGuid(kTableDomain, "War"));
    EXPECT_EQ(character->GetCharacterStat(kStatSpentFeatPoints), spent);
    EXPECT_TRUE(character->HasFeat(focus, longsword));
    EXPECT_FALSE(bought->HasFeatFlag(DChosenFeat::kFeatLocked));
}

TEST_F(GodsTest, ASpecialistGainsASlotAndGivesUpOtherSchools) {
    // Wizard 1 with Intelligence 16: 3 cantrips and 1 + 1 bonus first-level spells a day.
    Ref<DFileObject> race = Race(kAbilityIntelligence, 16);
    Ref<DCharacter> character = NewCharacter(race.get(), {"Wizard"});
    const DCharacterClass* wizard = character->GetClassPointer(ClassGuid("Wizard"));
    ASSERT_NE(wizard, nullptr);
    // Universal is no specialty.
    EXPECT_FALSE(DHandBook::CanChooseSchool(character.get(), kUniversal));
    EXPECT_TRUE(DHandBook::CanChooseSchool(character.get(), kEvocation));
    DHandBook::SetCharacterSchool(character.get(), kEvocation);
    EXPECT_EQ(Extra(*wizard), Pad({1, 1}));
    EXPECT_EQ(DHandBook::BuildSpellsPerDayString(wizard, 1), "2+1");

    EXPECT_FALSE(DHandBook::CanChooseProhibitedSchool(character.get(), kEvocation));
    EXPECT_TRUE(DHandBook::CanChooseProhibitedSchool(character.get(), kConjuration));
    character->GetProhibitedSchoolArray().Add(kConjuration);
    EXPECT_FALSE(DHandBook::CanChooseProhibitedSchool(character.get(), kConjuration));
    EXPECT_FALSE(DHandBook::CanChooseSchool(character.get(), kConjuration));
    EXPECT_TRUE(DHandBook::CanChooseProhibitedSchool(character.get(), kDivination));

    DHandBook::SetCharacterSchool(character.get(), -1);
    EXPECT_EQ(Extra(*wizard), Pad({}));
}

TEST_F(GodsTest, BonusLanguagesFollowTheIntelligenceModifier) {
    const struct {
        int intelligence;
        int points;
    } cases[] = {{9, 0}, {12, 1}, {16, 3}, {18, 4}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.intelligence);
        Ref<DFileObject> race = Race(kAbilityIntelligence, c.intelligence);
        Ref<DCharacter> character = NewCharacter(race.get(), {"Fighter"});
        EXPECT_EQ(character->GetCharacterStat(kStatIntelligenceLanguagePoints), c.points);
        EXPECT_EQ(DHandBook::GetRemainingLanguagePoints(character.get()), c.points);
    }
    Ref<DFileObject> race = Race(kAbilityIntelligence, 14);
    Ref<DCharacter> character = NewCharacter(race.get(), {"Fighter"});
    const QUuid elven = hoardtest::rowGuid(kTableLanguage, "Elven");
    const QUuid orc = hoardtest::rowGuid(kTableLanguage, "Orc");
    Ref<DChosenLanguage> bonus(new DChosenLanguage(elven));
    DHandBook::AddLanguage(character.get(), bonus.get(), false);
    Ref<DChosenLanguage> spoken(new DChosenLanguage(orc));
    DHandBook::AddLanguage(character.get(), spoken.get(), true);
    // Int 14 gives 2; the Speak Language rank is paid apart.
    EXPECT_EQ(DHandBook::GetRemainingLanguagePoints(character.get()), 1);
    EXPECT_EQ(character->GetCharacterStat(kStatSpentSpeakLanguagePoints), 1);
    EXPECT_TRUE(DHandBook::RemoveLanguage(character.get(), orc));
    EXPECT_EQ(character->GetCharacterStat(kStatSpentSpeakLanguagePoints), 0);
    EXPECT_FALSE(DHandBook::RemoveLanguage(character.get(), elven));
    EXPECT_EQ(DHandBook::GetRemainingLanguagePoints(character.get()), 2);
}

} // namespace
