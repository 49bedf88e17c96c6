// Stat blocks of published monsters and of a hand-worked character, line by line. Expected
// lines are the published stat lines (for the fields the rules engine computes today) and,
// where the published figure rests on something the records do not hold yet (armor worn),
// the figure worked out by hand from the rules.
#include "DCharacterGenerator.h"
#include "DCharacterXml.h"
#include "DChosenItem.h"
#include "DCursedData.h"
#include "DCustomMagicItemInfo.h"
#include "DIntelligentData.h"
#include "DItemType.h"
#include "DObjectManager.h"
#include "DRingInfo.h"
#include "OutputTestSupport.h"

namespace {

using outputtest::OutputFixture;

struct Line {
    const char* label;
    const char* value;
};

struct Creature {
    const char* race;
    std::vector<Line> lines;
};

class StatBlockTest : public OutputFixture {};

TEST_F(StatBlockTest, PublishedMonstersLineByLine) {
    const Creature creatures[] = {
        {"Ogre",
         {{"Size/Type", "Large Giant"},
          // 4 x 4.5, Con 4 x 2 and the race's Toughness 3: 18 + 11.
          {"Hit Dice", "4d8+11 (29 hp)"},
          {"Initiative", "-1"},
          // Published 16 (... +3 hide armor), flat-footed 16: nothing is worn yet.
          {"Armor Class", "13 (-1 size, -1 Dex, +5 natural), touch 8, flat-footed 13"},
          {"Base Attack/Grapple", "+3/+12"},
          {"Space/Reach", "10 ft./10 ft."},
          {"Special Qualities", "Darkvision 60 ft., low-light vision"},
          {"Saves", "Fort +6, Ref +0, Will +1"},
          {"Abilities", "Str 21, Dex 8, Con 15, Int 6, Wis 10, Cha 7"},
          {"Challenge Rating", "3"},
          {"Treasure", "Standard"},
          {"Alignment", "Usually chaotic evil"}}},
        {"Owlbear",
         {{"Size/Type", "Large Magical Beast"},
          {"Hit Dice", "5d10+25 (52 hp)"},
          {"Initiative", "+1"},
          {"Speed", "30 ft. (6 squares)"},
          {"Armor Class", "15 (-1 size, +1 Dex, +5 natural), touch 10, flat-footed 14"},
          {"Base Attack/Grapple", "+5/+14"},
          // 5 + Str 5 - 1; the bite secondary at -5 with half the Strength bonus.
          {"Attack", "Claw +9 melee (1d6+5)"},
          {"Full Attack", "2 Claw +9 melee (1d6+5) and Bite +4 melee (1d8+2)"},
          {"Space/Reach", "10 ft./5 ft."},
          {"Special Attacks", "Improved grab"},
          {"Special Qualities", "Scent"},
          {"Saves", "Fort +9, Ref +5, Will +2"},
          {"Abilities", "Str 21, Dex 12, Con 21, Int 2, Wis 12, Cha 10"},
          {"Challenge Rating", "4"},
          {"Treasure", "None"},
          {"Alignment", "Always neutral"},
          {"Advancement", "6-8 HD (Large); 9-15 HD (Huge)"}}},
        {"Dretch",
         {{"Size/Type", "Small Outsider (Chaotic, Extraplanar, Evil)"},
          {"Hit Dice", "2d8+4 (13 hp)"},
          {"Initiative", "+0"},
          {"Speed", "20 ft. (4 squares)"},
          {"Armor Class", "16 (+1 size, +5 natural), touch 11, flat-footed 16"},
          {"Base Attack/Grapple", "+2/-1"},
          // 2 + Str 1 + Small 1; Multiattack puts the bite at -2, not -5.
          {"Attack", "Claw +4 melee (1d6+1)"},
          {"Full Attack", "2 Claw +4 melee (1d6+1) and Bite +2 melee (1d4)"},
          {"Space/Reach", "5 ft./5 ft."},
          {"Special Attacks", "Spell-like abilities, summon demon"},
          {"Saves", "Fort +5, Ref +3, Will +3"},
          {"Abilities", "Str 12, Dex 10, Con 14, Int 5, Wis 11, Cha 11"},
          {"Challenge Rating", "2"},
          {"Treasure", "None"},
          {"Alignment", "Always chaotic evil"},
          {"Advancement", "3-6 HD (Small)"}}},
        {"Hill Giant",
         {{"Size/Type", "Large Giant"},
          {"Hit Dice", "12d8+48 (102 hp)"},
          {"Initiative", "-1"},
          {"Base Attack/Grapple", "+9/+20"},
          // The greatclub and rocks are items; the slams are its own: 9 + Str 7 - 1, and
          // Strength once as it strikes twice.
          {"Full Attack", "2 Slam +15 melee (1d4+7)"},
          {"Special Attacks", "Rock throwing"},
          {"Special Qualities", "Low-light vision, rock catching"},
          {"Saves", "Fort +12, Ref +3, Will +4"},
          {"Abilities", "Str 25, Dex 8, Con 19, Int 6, Wis 10, Cha 7"},
          {"Challenge Rating", "7"},
          {"Alignment", "Often chaotic evil"}}},
    };
    for (const Creature& creature : creatures) {
        SCOPED_TRACE(creature.race);
        const auto monster = Monster(QString::fromLatin1(creature.race));
        const QMap<QString, QString> block = StatBlock(monster.get());
        EXPECT_EQ(block.value("title"), QString::fromLatin1(creature.race));
        for (const Line& line : creature.lines)
            EXPECT_EQ(block.value(QString::fromLatin1(line.label)).toStdString(), line.value)
                << line.label;
    }
    // A bare race holds no weapons: the ogre's attack lines are not made up.
    const QMap<QString, QString> bare = StatBlock(Monster(QStringLiteral("Ogre")).get());
    EXPECT_FALSE(bare.contains("Attack"));
    // Built as a monster it carries its gear: hide slows its 40 ft. to 30 and adds +3 armor;
    // the greatclub (Large, 2d8, two hands, Weapon Focus) or the javelin (thrown) are the two
    // routines of the published line.
    QString error;
    const FCRef<DCharacter> ogre(DCharacterGenerator::GenerateMonster(
        DObjectManager::FindRaceFile(QStringLiteral("Ogre")), 0, error));
    ASSERT_TRUE(ogre) << error.toStdString();
    const QMap<QString, QString> armed = StatBlock(ogre.get());
    EXPECT_EQ(armed.value("Speed"),
              QStringLiteral("30 ft. in armor (6 squares); base speed 40 ft."));
    EXPECT_EQ(
        armed.value("Armor Class"),
        QStringLiteral("16 (-1 size, -1 Dex, +5 natural, +3 armor), touch 8, flat-footed 16"));
    EXPECT_EQ(armed.value("Attack"),
              QStringLiteral("Greatclub +8 melee (2d8+7) or Javelin +1 ranged (1d8+5)"));
    EXPECT_EQ(armed.value("Full Attack"),
              QStringLiteral("Greatclub +8 melee (2d8+7) or Javelin +1 ranged (1d8+5)"));
}

TEST_F(StatBlockTest, HandWorkedDwarfFighter) {
    const auto tordek = Tordek();
    const QMap<QString, QString> block = StatBlock(tordek.get());
    const Line expected[] = {
        {"title", "Tordek"},
        {"subtitle", "Dwarf Fighter 4"},
        {"Size/Type", "Medium Humanoid (Dwarf)"},
        // 10 at first level, 5 for each later d10, Con 16 +3 at each of four levels.
        {"Hit Dice", "4d10+12 (37 hp)"},
        {"Initiative", "+1"},
        {"Speed", "20 ft. (4 squares)"},
        {"Armor Class", "11 (+1 Dex), touch 11, flat-footed 10"},
        // Base attack +4; grapple +4 Str +2, Medium size 0.
        {"Base Attack/Grapple", "+4/+6"},
        {"Space/Reach", "5 ft./5 ft."},
        // Fort 4 + Con 3; Ref 1 + Dex 1; Will 1 + Wis 1.
        {"Saves", "Fort +7, Ref +2, Will +2"},
        // Con 14 + 2 and Cha 8 - 2 for a dwarf.
        {"Abilities", "Str 15, Dex 13, Con 16, Int 10, Wis 12, Cha 6"},
        // 4 ranks + Str 2; skills on ability alone stay off the line.
        {"Skills", "Climb +6"},
        {"Feats", "Cleave, Power Attack"},
        {"Alignment", "Lawful Good"},
    };
    for (const Line& line : expected)
        EXPECT_EQ(block.value(QString::fromLatin1(line.label)).toStdString(), line.value)
            << line.label;
    // A character has no challenge rating or advancement line of its own.
    EXPECT_FALSE(block.contains("Challenge Rating"));
    EXPECT_FALSE(block.contains("Advancement"));
}

// The other layouts read the same lines.
TEST_F(StatBlockTest, LayoutsOfTheSameLines) {
    const auto ogre = Monster("Ogre");
    const struct {
        const char* style;
        const char* expected;
    } layouts[] = {
        {"Stat Block (Markdown).xsl", "### Ogre\n"},
        {"Stat Block (Markdown).xsl", "**Hit Dice:** 4d8+11 (29 hp)  \n"},
        {"Stat Block (HTML).xsl", "<td>4d8+11 (29 hp)</td>"},
        {"Character Sheet.xsl", "<td>Fortitude (CON)</td>\n<td align=\"center\"><b>+6</b></td>"},
    };
    for (const auto& layout : layouts) {
        SCOPED_TRACE(layout.style);
        QByteArray result;
        QString error;
        ASSERT_TRUE(DOutput::Render(ogre.get(), QString::fromLatin1(layout.style), result, error))
            << error.toStdString();
        EXPECT_TRUE(result.contains(layout.expected)) << result.toStdString();
    }
}

// A +1 longsword with a mind of Int 14 (+2), Wis 12 (+1), Cha 10 that reads magic has ego
// 2 + 1 + 1 + 1 (its enhancement) = 5; a ring carries a drawback. Each item's notes follow
// it: in the stat block a line of its own, on the sheet under its name in the equipment table.
TEST_F(StatBlockTest, MindsAndCursesFollowTheirItems) {
    const auto tordek = Tordek();
    const QUuid guid = hoardtest::rowGuid(DDatabase::GetItemTypeTableId(kItemWeapon), "Longsword");
    FCRef<DCustomMagicItemInfo> sword(new DCustomMagicItemInfo);
    sword->SetBaseItemInfo(static_cast<DItemInfo*>(DDatabase::GetWeaponInfo(guid)));
    sword->SetBonus(1);
    FCRef<DIntelligentData> mind(new DIntelligentData);
    mind->SetAlignmentId(34);
    mind->SetAbilityStat(3, 14);
    mind->SetAbilityStat(4, 12);
    mind->SetAbilityStat(5, 10);
    mind->AddCommunication(DIntelligentData::kCommunicationEmpathy);
    mind->AddLanguage(hoardtest::rowGuid(kTableLanguage, "Common"));
    mind->SetCanReadMagic(true);
    sword->SetIntelligentData(mind.get());
    FCRef<DRingInfo> ring(new DRingInfo);
    ring->SetItemGuid(
        hoardtest::rowGuid(DDatabase::GetItemTypeTableId(kItemRing), "Feather falling"));
    FCRef<DCursedData> curse(new DCursedData(DCursedData::kCurseDrawback));
    curse->SetCurseDescription(QStringLiteral("Hair grows"));
    ring->SetCursedData(curse.get());
    QStringList names;
    for (DItemInfo* info :
         {static_cast<DItemInfo*>(sword.get()), static_cast<DItemInfo*>(ring.get())}) {
        FCRef<DChosenItem> item(new DChosenItem);
        item->SetItemInfo(info);
        DHandBook::AddChosenItemToCharacter(tordek.get(), item.get(), true);
        names << item->GetItemPrintDescription(false);
    }

    const QByteArray document = DCharacterXml::ToBytes(tordek.get(), "Stat Block.xsl");
    EXPECT_TRUE(document.contains("<print-text>Neutral Evil&lt;br&gt;INT 14 WIS 12 CHA 10 EGO "
                                  "5&lt;br&gt;Empathy&lt;br&gt;Common&lt;br&gt;Read "
                                  "Magic</print-text>"))
        << document.toStdString();
    EXPECT_TRUE(document.contains("<cursed>\n\t\t\t\t<description>Drawback: Hair "
                                  "grows</description>"));

    const auto lines = StatBlock(tordek.get());
    EXPECT_EQ(
        lines.value(names[0]),
        QStringLiteral("Neutral Evil; INT 14 WIS 12 CHA 10 EGO 5; Empathy; Common; Read Magic"));
    EXPECT_EQ(lines.value(names[1]), QStringLiteral("Cursed: Drawback: Hair grows"));

    QByteArray sheet;
    QString error;
    ASSERT_TRUE(DOutput::Render(tordek.get(), QStringLiteral("Character Sheet.xsl"), sheet, error))
        << error.toStdString();
    EXPECT_TRUE(sheet.contains("<br><small>Neutral Evil<br>INT 14 WIS 12 CHA 10 EGO "
                               "5<br>Empathy<br>Common<br>Read Magic</small>"))
        << sheet.toStdString();
    EXPECT_TRUE(sheet.contains("<br><small>Cursed: Drawback: Hair grows</small>"));
}

TEST_F(StatBlockTest, WorkingFilesGoToTheUserFolder) {
    const auto ogre = Monster("Ogre");
    StatBlock(ogre.get());
    const QString working = UserPath("tmp/xml/Monster/");
    EXPECT_TRUE(hoardtest::readFile(working + "tmp.xml").contains("<monster>"));
    EXPECT_TRUE(hoardtest::readFile(working + "block.txt").startsWith("Ogre\n"));
    EXPECT_FALSE(QFileInfo::exists(hoardtest::builtDataDir() + "/xml/Monster/tmp.xml"));
}

} // namespace
