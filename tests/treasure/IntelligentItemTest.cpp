// Intelligent and cursed items by the open 3.5 rules, worked by hand. Ego: 1 a lesser power,
// 2 a greater power, 4 a special purpose, 1 each for telepathy, reading languages and reading
// magic, the Int, Wis and Cha bonuses, and on a weapon or armor 1 a point of enhancement or
// special ability bonus. A cursed item has no market price; a specific cursed item that takes a
// found item's place has its listed one.
#include "DCursedData.h"
#include "DCursedItemGenerator.h"
#include "DCustomMagicItemInfo.h"
#include "DDatabase.h"
#include "DIntelligentData.h"
#include "DIntelligentItemGenerator.h"
#include "DIntelligentPower.h"
#include "DItem.h"
#include "DItemType.h"
#include "DRingInfo.h"
#include "DRulesQuery.h"
#include "DTreasure.h"
#include "DTreasureGenerator.h"
#include "FCRandom.h"
#include "FCReleaser.h"
#include "ResultSet.h"
#include "TestSupport.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <map>
#include <vector>

namespace {

class IntelligentItemTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        ASSERT_TRUE(DDatabase::StartUp(FCString(hoardtest::builtDataDir() + "/rules.db")));
    }
    static void TearDownTestSuite() { DDatabase::ShutDown(); }

    // A +`bonus` longsword with one special ability of bonus `abilityBonus`.
    static DItem* Longsword(int bonus, int abilityBonus) {
        const QUuid guid =
            hoardtest::rowGuid(DDatabase::GetItemTypeTableId(kItemWeapon), "Longsword");
        FCRef<DCustomMagicItemInfo> sword(new DCustomMagicItemInfo);
        sword->SetBaseItemInfo(static_cast<DItemInfo*>(DDatabase::GetWeaponInfo(guid)));
        sword->SetBonus(bonus);
        if (abilityBonus > 0)
            sword->AddSpecialAbility(3, 1, abilityBonus, abilityBonus);
        auto* item = new DItem;
        item->SetItemInfo(sword.get());
        return item;
    }
    QTemporaryDir mDir;
};

TEST_F(IntelligentItemTest, EgoAddsUpFromPowersScoresAndBonus) {
    struct Case {
        int intelligence, wisdom, charisma;
        int lesser;  // lesser powers
        int greater; // greater powers, each gained once
        int twice;   // greater powers gained twice
        int purpose; // purpose id (0 counts nothing)
        bool telepathy, readLanguages, readMagic;
        int bonus, abilityBonus;
        int ego;
    };
    const Case cases[] = {
        // Int 12 Wis 12 Cha 10, one lesser power: 1 + 1 + 1 + 0 = 3; on a +1 sword 4.
        {12, 12, 10, 1, 0, 0, -1, false, false, false, 1, 0, 4},
        // Scores 10 add nothing; no powers: 0 on a +2 flaming sword is 2 + 1 = 3.
        {10, 10, 10, 0, 0, 0, -1, false, false, false, 2, 1, 3},
        // Int 19 Wis 19 Cha 10: 4 + 4; four lesser 4, three greater 6, purpose 4, telepathy,
        // languages, magic 3: 25; a +5 sword with +3 of abilities: 33.
        {19, 19, 10, 4, 3, 0, 3, true, true, true, 5, 3, 33},
        // A greater power gained twice counts 2 x 2; a purpose of id 0 counts nothing; Int 14
        // Wis 8 Cha 14: 2 + 0 + 2; two lesser 2: 10 on a +1 sword 11.
        {14, 8, 14, 2, 0, 1, 0, false, false, false, 1, 0, 11},
    };
    for (const Case& c : cases) {
        FCRef<DIntelligentData> mind(new DIntelligentData);
        mind->SetAbilityStat(3, c.intelligence);
        mind->SetAbilityStat(4, c.wisdom);
        mind->SetAbilityStat(5, c.charisma);
        for (int i = 1; i <= c.lesser; ++i)
            mind->AddAbility(i);
        for (int i = 1; i <= c.greater; ++i)
            mind->AddPower(i, 0, 0);
        for (int i = 1; i <= c.twice; ++i) {
            mind->AddPower(10 + i, 1, 3);
            mind->GetPower(10 + i)->AdjustCount(1);
        }
        mind->SetPurposeId(c.purpose);
        if (c.telepathy)
            mind->AddCommunication(DIntelligentData::kCommunicationTelepathy);
        mind->SetCanReadLanguages(c.readLanguages);
        mind->SetCanReadMagic(c.readMagic);
        FCRef<DItem> item(Longsword(c.bonus, c.abilityBonus));
        static_cast<DMagicItemInfo*>(item->GetItemInfo())->SetIntelligentData(mind.get());
        EXPECT_EQ(DIntelligentItemGenerator::GetItemEgo(*item), c.ego) << c.intelligence;
    }
}

TEST_F(IntelligentItemTest, GeneratedMindsFollowTheCapabilityTable) {
    // Two scores of 12 to 19 and one of 10; a lesser power each once; a power that works
    // continuously never twice; Common always spoken.
    const QUuid common = hoardtest::rowGuid(kTableLanguage, "Common");
    FC::SeedRandom(31);
    for (int i = 0; i < 400; ++i) {
        FCRef<DIntelligentData> mind(DIntelligentItemGenerator::GenerateIntelligentData());
        ASSERT_TRUE(mind);
        std::vector<int> scores = {mind->GetAbilityStat(3), mind->GetAbilityStat(4),
                                   mind->GetAbilityStat(5)};
        std::sort(scores.begin(), scores.end());
        EXPECT_EQ(scores[0], 10);
        EXPECT_EQ(scores[1], scores[2]);
        EXPECT_GE(scores[1], 12);
        EXPECT_LE(scores[1], 19);
        EXPECT_GE(mind->GetAbilityArray().GetCount(), 1);
        EXPECT_TRUE(mind->HasLanguage(common));
        for (const DIntelligentPower* power : mind->GetPowerArray()) {
            if (power->GetFrequencyType() == 2) {
                EXPECT_EQ(power->GetCount(), 1);
            }
        }
        // Speech and telepathy come with the higher scores only.
        if (mind->HasCommunication(DIntelligentData::kCommunicationTelepathy)) {
            EXPECT_GE(scores[1], 17);
        }
    }
}

TEST_F(IntelligentItemTest, CursedItemsCostNothingAndSubstitutesTheirListPrice) {
    // The specific cursed items and their list prices in gold (the bag of devouring and the
    // crystal hypnosis ball have none).
    const std::map<QString, int> prices = {{"Incense of obsession", 200},
                                           {"Ring: Clumsiness", 500},
                                           {"Amulet of inescapable location", 1000},
                                           {"Stone of weight", 1000},
                                           {"Bracers of defenselessness", 1200},
                                           {"Gauntlets of fumbling", 1300},
                                           {"-2 sword, cursed", 1500},
                                           {"Armor of rage", 1600},
                                           {"Medallion of thought projection", 1800},
                                           {"Flask of curses", 2100},
                                           {"Dust of sneezing and choking", 2400},
                                           {"Helm of opposite alignment", 4000},
                                           {"Poison (potion)", 5000},
                                           {"Broom of animated attack", 5200},
                                           {"Robe of powerlessness", 5500},
                                           {"Vacuous grimoire", 6000},
                                           {"Spear, cursed backbiter", 7500},
                                           {"Armor of arrow attraction", 9000},
                                           {"Net of snaring", 10000},
                                           {"Bag of devouring", 0},
                                           {"Mace of blood", 16000},
                                           {"Robe of vermin", 16500},
                                           {"Periapt of foul rotting", 17000},
                                           {"Sword, berserking", 17500},
                                           {"Boots of dancing", 30000},
                                           {"Crystal hypnosis ball", 0},
                                           {"Necklace of strangulation", 60000},
                                           {"Cloak of poisonousness", 62000},
                                           {"Scarab of death", 80000}};
    int substitutes = 0;
    for (std::uint64_t seed = 1; seed <= 600; ++seed) {
        FC::SeedRandom(seed);
        FCRef<DItem> item(new DItem);
        FCRef<DRingInfo> found(new DRingInfo);
        item->SetItemInfo(found.get());
        item->SetMarketCost(2000, 2);
        DCursedItemGenerator::GenerateCursedItem(item.get());
        if (item->GetItemInfo() == found.get()) {
            EXPECT_TRUE(item->GetIsCursedItem());
            continue;
        }
        ++substitutes;
        ASSERT_TRUE(item->GetItemInfo());
        EXPECT_TRUE(DCursedItemGenerator::IsSpecificCursedItem(*item));
        const DItemInfo* base = item->GetBaseItemInfo();
        QString name = base->GetItemName();
        if (item->GetItemType() == kItemRing)
            name = QStringLiteral("Ring: ") + name;
        const auto price = prices.find(name);
        ASSERT_NE(price, prices.end()) << name.toStdString();
        DCurrency value;
        item->GetMarketCost(value);
        EXPECT_EQ(value.GetCopperCost(), qint64(price->second) * 100) << name.toStdString();
    }
    // One roll in ten of the curse table substitutes an item.
    EXPECT_GT(substitutes, 30);
}

TEST_F(IntelligentItemTest, ATreasureFileKeepsMindsAndCurses) {
    FCRef<DTreasure> treasure(new DTreasure);
    FCRef<DItem> sword(Longsword(2, 1));
    FCRef<DIntelligentData> mind(new DIntelligentData);
    mind->SetAbilityStat(3, 17);
    mind->SetAlignmentId(1);
    mind->AddAbility(4);
    mind->AddPower(8, 2, 0);
    mind->SetPurposeId(2);
    mind->AddPurposePower(5);
    mind->AddCommunication(DIntelligentData::kCommunicationSpeech);
    mind->AddLanguage(hoardtest::rowGuid(kTableLanguage, "Common"));
    static_cast<DMagicItemInfo*>(sword->GetItemInfo())->SetIntelligentData(mind.get());
    treasure->AddItem(sword.get());
    FCRef<DRingInfo> ring(new DRingInfo);
    FCRef<DItem> cursed(new DItem);
    cursed->SetItemInfo(ring.get());
    FCRef<DCursedData> curse(new DCursedData(3));
    curse->SetCurseSubType(2);
    curse->SetCurseDescription(QStringLiteral("Underwater"));
    ring->SetCursedData(curse.get());
    treasure->AddItem(cursed.get());

    const QString path = mDir.path() + "/minds.trs";
    ASSERT_TRUE(treasure->SaveToFile(path));
    FCRef<DTreasure> back(DTreasure::CreateFromFile(path));
    ASSERT_TRUE(back);
    ASSERT_EQ(back->GetItemCount(), 2);
    const DItem* readSword = back->GetItemArray().At(0);
    const auto* readMind = FCDynamicCast<DIntelligentData>(
        static_cast<DMagicItemInfo*>(readSword->GetItemInfo())->GetIntelligentData());
    ASSERT_TRUE(readMind);
    // Int 17 (+3), Wis and Cha 8; one lesser, one greater, a purpose: 3 + 1 + 2 + 4 = 10, and
    // +2 with +1 of abilities: 13.
    EXPECT_EQ(DIntelligentItemGenerator::GetItemEgo(*readSword), 13);
    EXPECT_EQ(readMind->GetPurposePowerArray().GetCount(), 1);
    EXPECT_TRUE(readMind->HasCommunication(DIntelligentData::kCommunicationSpeech));
    EXPECT_EQ(readMind->GetLanguageMap().GetCount(), 1);
    EXPECT_EQ(DCursedItemGenerator::GetCurseDescription(*back->GetItemArray().At(1)),
              QStringLiteral("Intermittent functioning, Dependent: Underwater"));
}

TEST_F(IntelligentItemTest, PrintTextListsTheMindLineByLine) {
    const QUuid common = hoardtest::rowGuid(kTableLanguage, "Common");
    const QUuid elven = hoardtest::rowGuid(kTableLanguage, "Elven");
    ASSERT_FALSE(elven.isNull());
    // Languages are held by GUID and listed in that order.
    const QString bothLanguages =
        common < elven ? QStringLiteral("Common, Elven") : QStringLiteral("Elven, Common");
    struct Case {
        const char* name;
        int alignment;
        int intelligence, wisdom, charisma, ego;
        std::vector<int> communication; // in the order added
        std::vector<QUuid> languages;
        bool readLanguages, readMagic;
        QString expected;
    };
    const Case cases[] = {
        // Alignment 4 has no row: no line for it.
        {"bare mind",
         4,
         8,
         8,
         8,
         0,
         {},
         {},
         false,
         false,
         QStringLiteral("INT 8 WIS 8 CHA 8 EGO 0")},
        {"speaks and reads languages",
         9,
         17,
         10,
         12,
         5,
         {DIntelligentData::kCommunicationTelepathy, DIntelligentData::kCommunicationSpeech},
         {common},
         true,
         false,
         QStringLiteral("Lawful Good<br>INT 17 WIS 10 CHA 12 EGO 5<br>Telepathy, Speech<br>Common"
                        "<br>Read Languages")},
        {"empathy and magic",
         18,
         10,
         10,
         10,
         2,
         {DIntelligentData::kCommunicationEmpathy},
         {},
         false,
         true,
         QStringLiteral("Neutral<br>INT 10 WIS 10 CHA 10 EGO 2<br>Empathy<br>Read Magic")},
        // A communication type without a row names nothing and leaves no line.
        {"both reads, unknown talk",
         36,
         12,
         14,
         15,
         7,
         {3},
         {common, elven},
         true,
         true,
         QStringLiteral("Chaotic Evil<br>INT 12 WIS 14 CHA 15 EGO 7<br>") + bothLanguages +
             QStringLiteral("<br>Read Languages, Read Magic")},
    };
    for (const Case& c : cases) {
        DIntelligentData mind;
        mind.SetAlignmentId(c.alignment);
        mind.SetAbilityStat(3, c.intelligence);
        mind.SetAbilityStat(4, c.wisdom);
        mind.SetAbilityStat(5, c.charisma);
        for (const int type : c.communication)
            mind.AddCommunication(type);
        for (const QUuid& language : c.languages)
            mind.AddLanguage(language);
        mind.SetCanReadLanguages(c.readLanguages);
        mind.SetCanReadMagic(c.readMagic);
        FCString text(QStringLiteral("left over"));
        mind.GetPrintCoreText(c.ego, text);
        EXPECT_EQ(text, c.expected) << c.name;
    }
}

TEST_F(IntelligentItemTest, PowersAndCursesDescribeThemselves) {
    const DIntelligentPower perDay(4, 1, 1);
    EXPECT_EQ(perDay.GetDescription(),
              QStringLiteral("Item can use dimensional anchor on a foe 1/day (1 Per day)"));
    const DIntelligentPower atWill(1, 0, 0);
    EXPECT_EQ(atWill.GetDescription(),
              QStringLiteral("Item can detect opposing alignment at will (At will)"));
    EXPECT_EQ(DIntelligentPower(999, 0, 0).GetDescription(), QString());

    struct Case {
        int type, subType;
        const char* detail;
        bool prefix, withDetail;
        const char* expected;
    };
    const Case cases[] = {
        {3, 2, "Underwater", true, false, "Cursed: Intermittent functioning, Dependent"},
        {3, 2, "Underwater", true, true, "Cursed: Intermittent functioning, Dependent: Underwater"},
        {5, -1, "Wielder's hair grows", false, true, "Drawback: Wielder's hair grows"},
        {3, -1, "", true, true, "Cursed: Intermittent functioning"},
        {1, -1, "", false, false, "Delusion"},
    };
    for (const Case& c : cases) {
        DCursedData curse(c.type);
        curse.SetCurseSubType(c.subType);
        curse.SetCurseDescription(QString::fromUtf8(c.detail));
        EXPECT_EQ(curse.GetDescription(c.prefix, c.withDetail), QString::fromUtf8(c.expected))
            << c.expected;
    }
}

} // namespace
