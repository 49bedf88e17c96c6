#include "DCharacterXml.h"

#include "DAdjChosenSpeed.h"
#include "DAlignmentInfo.h"
#include "DCharHistory.h"
#include "DCharStatType.h"
#include "DCharacter.h"
#include "DCharacterClass.h"
#include "DChosenAnimal.h"
#include "DChosenFeat.h"
#include "DChosenFeature.h"
#include "DChosenItem.h"
#include "DChosenLanguage.h"
#include "DChosenSkill.h"
#include "DChosenSpeed.h"
#include "DClassInfo.h"
#include "DCompanionRules.h"
#include "DCursedData.h"
#include "DDatabase.h"
#include "DHandBook.h"
#include "DIntelligentData.h"
#include "DIntelligentItemGenerator.h"
#include "DMagicItemInfo.h"
#include "DOptions.h"
#include "DRace.h"
#include "DRaceAdvance.h"
#include "DRuleNames.h"
#include "DSizeInfo.h"
#include "DSkillInfo.h"
#include "DSpecialAttack.h"
#include "DXmlStream.h"

#include <QBuffer>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>

#include <cmath>

namespace {

constexpr const char* kAbilityNames[kAbilityCount] = {"Strength",     "Dexterity", "Constitution",
                                                      "Intelligence", "Wisdom",    "Charisma"};
constexpr const char* kSkillAbilityNames[kAbilityCount] = {"Str", "Dex", "Con",
                                                           "Int", "Wis", "Cha"};
constexpr const char* kSaveNames[kSaveCount] = {"Fortitude", "Reflex", "Will"};
constexpr const char* kSaveAbbrs[kSaveCount] = {"Fort", "Ref", "Will"};
constexpr int kSaveAbility[kSaveCount] = {kAbilityConstitution, kAbilityDexterity, kAbilityWisdom};
constexpr const char* kCoinNames[DCurrency::kCoinTypeCount] = {"cp", "sp", "gp", "pp"};
constexpr const char* kTreasureTable = "[types Creature Treasure]";

QString FeetText(float feet) {
    return QString::number(double(feet), 'g', 6);
}

// Writes the body of one character; one member function per section, so that each section
// grows on its own as its rules land.
class CharacterWriter {
public:
    CharacterWriter(DXmlStream& xml, DCharacter* character, bool full)
        : mXml(xml), mCharacter(character), mRace(character->GetRace()), mFull(full),
          mMonster(character->IsMonsterClassOnly()) {}

    void WriteBody() {
        WriteIdentity();
        WriteDeity();
        if (mMonster && mRace)
            mXml.Text("challenge-rating",
                      DHandBook::BuildFractionString(mRace->GetChallengeRating()));
        WriteAlignment();
        WriteSize();
        if (mCharacter->GetCharacterStat(kStatAge) > 0)
            mXml.Number("age", mCharacter->GetCharacterStat(kStatAge));
        WriteHitDice();
        WriteClasses();
        WriteFeatures();
        WriteAbilities();
        mXml.Number("hit-points", mCharacter->GetCharacterStat(kStatHitPoints));
        WriteInitiative();
        WriteSavingThrows();
        WriteAttacks();
        WriteEquipment();
        WriteArmorClass();
        WriteSpeeds();
        WriteSkills();
        WriteItems();
        WriteSpells();
        WriteLanguages();
        WriteCurrency();
        WriteRaceDetails();
        WriteReferee();
    }

private:
    int Modifier(int ability) const {
        return DHandBook::GetAbilityModifier(mCharacter->GetAbilityStat(ability));
    }

    void WriteIdentity() {
        mXml.Text("name", mCharacter->GetCharacterName());
        mXml.Text("player", mCharacter->GetPlayerName());
        mXml.Text("gender", mNames.ById("[types Gender]", mCharacter->GetGender()));
        mXml.Text("race", mRace ? QString(mRace->GetRaceName()) : QString());
        mXml.Number("experience", mCharacter->GetCharacterStat(kStatExperience));
        WritePortrait();
    }

    // The document lies two folders below the program's: the path climbs back up to it.
    void WritePortrait() {
        const QString name = mCharacter->GetPortraitName();
        if (name.isEmpty())
            return;
        QString folder = QStringLiteral("VR/");
        for (const char* candidate : {"PC/", "User/"}) {
            if (QFileInfo::exists(DOptions::GetArtPath() + "/" + candidate + name + ".jpg")) {
                folder = QString::fromLatin1(candidate);
                break;
            }
        }
        mXml.Text("portrait", "../../Portraits/" + folder + name + ".jpg");
    }

    void WriteDeity() {
        if (!mCharacter->HasPickedGod() && !mCharacter->HasPickedDomain())
            return;
        mXml.Open("deity");
        const QString god = mNames.ByGuid(kTableGod, mCharacter->GetGod());
        if (!god.isEmpty())
            mXml.Text("name", god);
        for (int slot = 0; slot < 2; ++slot) {
            const QString domain = mNames.ByGuid(kTableDomain, mCharacter->GetDomain(slot));
            if (domain.isEmpty())
                continue;
            mXml.Open("domain");
            mXml.Text("name", domain);
            mXml.Close("domain");
        }
        mXml.Close("deity");
    }

    void WriteAlignment() {
        const DAlignmentInfo* info = DDatabase::GetAlignmentInfo(mCharacter->GetAlignmentId());
        if (!info)
            return;
        mXml.Open("alignment");
        mXml.Text("name", info->GetAlignmentName());
        mXml.Text("abbr", info->GetAlignmentShortName());
        // How firmly a kind of creature holds it ("Usually"): a monster's line says it.
        if (mMonster && mRace && mRace->GetAlignmentModId() >= 0) {
            const QString modifier =
                mNames.ById("[types Alignment Modifiers]", mRace->GetAlignmentModId());
            if (!modifier.isEmpty())
                mXml.Text("modifier", modifier);
        }
        mXml.Close("alignment");
    }

    void WriteSize() {
        mXml.Open("size");
        if (const DSizeInfo* size = mCharacter->GetSizeInfo())
            mXml.Text("category", size->GetSizeName());
        if (mRace) {
            if (const DClassInfo* type = DDatabase::GetClassInfoA(mRace->GetClassGuid()))
                mXml.Text("type", type->mName);
            QStringList subtypes;
            for (int id : mRace->GetSubTypeArray())
                subtypes << mNames.ById("[info Race Subtypes]", id);
            subtypes.removeAll(QString());
            if (!subtypes.isEmpty())
                mXml.Text("subtype", subtypes.join(", "));
        }
        const int height = mCharacter->GetCharacterStat(kStatHeight);
        const int weight = mCharacter->GetCharacterStat(kStatWeight);
        if (height > 0)
            mXml.Text("height", QString::asprintf("%d' %d\"", height / 12, height % 12));
        if (weight > 0)
            mXml.Text("weight", QString::asprintf("%d %s", weight, weight == 1 ? "lb." : "lbs."));
        mXml.Close("size");
    }

    void WriteHitDice() {
        const int con =
            mCharacter->IsNullAbility(kAbilityConstitution) ? 0 : Modifier(kAbilityConstitution);
        // Hit points from feats (Toughness) join the first dice's bonus, as published lines
        // write them: an ogre's 4d8+11 is Con +8 and Toughness +3.
        int featHitPoints = mCharacter->GetCharacterStat(kStatFeatHitPoints);
        mXml.Open("hit-dice");
        for (const DCharacterClass* characterClass : mCharacter->GetClassList()) {
            const DClassInfo* info = DDatabase::GetClassInfoA(characterClass->GetClassGuid());
            const QString die =
                info ? DHandBook::BuildDieString(characterClass->GetLevel(), info->mDieId) : "";
            if (die.isEmpty())
                continue;
            mXml.Open("hit-die");
            mXml.Text("class", info->mName);
            mXml.Text("die", die);
            const int bonus = int(float(con) * characterClass->GetLevel()) + featHitPoints;
            if (con != 0 || featHitPoints != 0)
                mXml.Text("bonus", DXmlStream::Signed(bonus));
            featHitPoints = 0;
            mXml.Close("hit-die");
        }
        mXml.Close("hit-dice");
    }

    void WriteClasses() {
        mXml.Open("classes");
        if (!mMonster) {
            QStringList parts;
            for (const DCharacterClass* characterClass : mCharacter->GetClassList()) {
                const DClassInfo* info = DDatabase::GetClassInfoA(characterClass->GetClassGuid());
                if (info && characterClass->GetClassGuid() != mCharacter->GetRaceClassGuid())
                    parts << info->mShortName +
                                 QString::number(double(characterClass->GetLevel()), 'g', 6);
            }
            mXml.Text("string", parts.join('/'));
        }
        mXml.Number("total", int(mCharacter->GetCharacterLevel()));
        for (const DCharacterClass* characterClass : mCharacter->GetClassList()) {
            const DClassInfo* info = DDatabase::GetClassInfoA(characterClass->GetClassGuid());
            if (!info)
                continue;
            mXml.Open("class");
            mXml.Text("name", info->mName);
            mXml.Number("level", int(characterClass->GetLevel()));
            mXml.Number("exclass", characterClass->GetIsExClass() ? 1 : 0);
            mXml.Close("class");
        }
        mXml.Close("classes");
    }

    void WriteFeatures() {
        mXml.Open("features");
        if (mRace) {
            WriteList("special-attacks", "special-attack", SpecialAttackNames());
            QStringList qualities;
            for (int id : mRace->GetSpecialQualityArray())
                qualities << mNames.ById("[types Race Special Quality]", id);
            WriteList("special-qualities", "special-quality", qualities);
            QStringList features;
            for (const FCString& feature : mRace->GetRaceFeatureArray())
                features << feature;
            WriteList("race-features", "race-feature", features);
        }
        WriteFeats();
        WriteClassFeatures();
        mXml.Close("features");
    }

    QStringList SpecialAttackNames() {
        QStringList names;
        for (const DSpecialAttack* attack : mRace->GetSpecialAttackArray())
            names << mNames.ById(kTableRaceSpecialAttacks, attack->GetAttackId());
        return names;
    }

    void WriteList(const char* outer, const char* inner, QStringList items) {
        items.removeAll(QString());
        if (items.isEmpty())
            return;
        mXml.Open(outer);
        for (const QString& item : items)
            mXml.Text(inner, item);
        mXml.Close(outer);
    }

    void WriteFeats() {
        QList<const DChosenFeat*> feats;
        for (const auto& feat : mCharacter->GetFeatSet())
            feats << feat.Get();
        if (feats.isEmpty())
            return;
        mXml.Open("feats");
        for (const DChosenFeat* feat : feats) {
            mXml.Open("feat");
            mXml.Text("name", mNames.FeatDescription(*feat));
            mXml.Number("value", feat->GetCount());
            mXml.Close("feat");
        }
        mXml.Close("feats");
    }

    // The chosen features of the two class feature lists, by class.
    void WriteClassFeatures() {
        bool opened = false;
        for (const DCharacterClass* characterClass : mCharacter->GetClassList()) {
            QStringList names;
            for (int list = 0; list < 2; ++list) {
                for (const DChosenFeature* feature : mCharacter->GetFeatureArray(list)) {
                    if (feature->GetClassGuid() == characterClass->GetClassGuid())
                        names << mNames.ByGuid(kTableFeatures, feature->GetFeatureGuid());
                }
            }
            names.removeAll(QString());
            const DClassInfo* info = DDatabase::GetClassInfoA(characterClass->GetClassGuid());
            if (names.isEmpty() || !info)
                continue;
            if (!opened)
                mXml.Open("class-features");
            opened = true;
            mXml.Open("class-feature");
            mXml.Text("name", info->mName);
            for (const QString& name : names)
                mXml.Text("feature", name);
            mXml.Close("class-feature");
        }
        if (opened)
            mXml.Close("class-features");
    }

    void WriteAbilities() {
        mXml.Open("abilities");
        for (int a = 0; a < kAbilityCount; ++a) {
            mXml.Open("ability");
            mXml.Text("name", QString::fromLatin1(kAbilityNames[a]));
            mXml.Text("abbr", QString::fromLatin1(kAbilityShortNames[a]));
            if (mCharacter->IsNullAbility(a)) {
                mXml.Text("base", QStringLiteral("--"));
                mXml.Text("modifier", QStringLiteral("--"));
            } else {
                mXml.Number("base", mCharacter->GetAbilityStat(a));
                mXml.Text("modifier", DXmlStream::Signed(Modifier(a)));
            }
            mXml.Close("ability");
        }
        mXml.Close("abilities");
    }

    void WriteInitiative() {
        DInitiativeValues values;
        DHandBook::GetInitiativeValues(mCharacter, values);
        mXml.Open("initiative");
        mXml.Open("modifiers");
        mXml.NameValue("modifier", QStringLiteral("ability"), values.ability);
        mXml.NameValue("modifier", QStringLiteral("feat"), values.feat);
        mXml.NameValue("modifier", QStringLiteral("magic"), values.magic);
        mXml.NameValue("modifier", QStringLiteral("user"), values.user);
        mXml.Close("modifiers");
        mXml.Text("total", DXmlStream::Signed(mCharacter->GetCharacterStat(kStatInitiative)));
        mXml.Close("initiative");
    }

    void WriteSavingThrows() {
        mXml.Open("saving-throws");
        for (int save = 0; save < kSaveCount; ++save) {
            DSavingThrowValues values;
            DHandBook::GetSavingThrowValues(mCharacter, DSaveType(save), values);
            mXml.Open("saving-throw");
            mXml.Text("name", QString::fromLatin1(kSaveNames[save]));
            mXml.Text("abbr", QString::fromLatin1(kSaveAbbrs[save]));
            mXml.Text("ability", QString::fromLatin1(kAbilityShortNames[kSaveAbility[save]]));
            mXml.Open("modifiers");
            mXml.NameValue("modifier", QStringLiteral("base"), values.base);
            mXml.NameValue("modifier", QStringLiteral("ability"), values.ability);
            mXml.NameValue("modifier", QStringLiteral("magic"), values.magic);
            mXml.NameValue("modifier", QStringLiteral("feat"), values.feat);
            mXml.NameValue("modifier", QStringLiteral("race"), values.race);
            mXml.NameValue("modifier", QStringLiteral("familar"), values.familiar);
            mXml.NameValue("modifier", QStringLiteral("feature"), values.feature);
            mXml.NameValue("modifier", QStringLiteral("user"), values.user);
            mXml.Close("modifiers");
            mXml.Text("total", DXmlStream::Signed(
                                   mCharacter->GetCharacterStat(SaveStat(kStatFortitude, save))));
            mXml.Close("saving-throw");
        }
        mXml.Close("saving-throws");
    }

    // Base attack, grapple and the two attack rolls as far as they stand without weapons: the
    // weapons themselves and their bonuses come with the offense work.
    void WriteAttacks() {
        const int base = mCharacter->GetCharacterStat(kStatBaseAttack);
        const int size =
            mCharacter->GetSizeInfo() ? mCharacter->GetSizeInfo()->GetAttackArmorMod() : 0;
        mXml.Open("attacks");
        mXml.Text("base", DXmlStream::Signed(base));
        mXml.Text("grapple", DXmlStream::Signed(DHandBook::ComputeGrapple(mCharacter)));
        const struct {
            const char* name;
            int ability;
        } rolls[] = {{"melee", kAbilityStrength}, {"ranged", kAbilityDexterity}};
        for (const auto& roll : rolls) {
            const int ability =
                mCharacter->IsNullAbility(roll.ability) ? 0 : Modifier(roll.ability);
            mXml.Open(roll.name);
            mXml.Open("modifiers");
            mXml.NameValue("modifier", QStringLiteral("base"), base);
            mXml.NameValue("modifier", QStringLiteral("ability"), ability);
            mXml.NameValue("modifier", QStringLiteral("size"), size);
            mXml.Close("modifiers");
            mXml.Text("total", DXmlStream::Signed(base + ability + size));
            mXml.Close(roll.name);
        }
        mXml.Close("attacks");
    }

    // "Longsword +7/+2 melee (1d8+2/19-20)": with `full` every iterative attack, else the
    // first, made once.
    static QString StatBlockAttack(const DOffenseLine& line, bool full) {
        QStringList bonuses;
        for (const int bonus : full ? line.bonuses : line.bonuses.mid(0, 1))
            bonuses << DXmlStream::Signed(bonus);
        QString threat = line.critical;
        if (threat == QLatin1String("x2"))
            threat.clear();
        else if (threat.endsWith(QLatin1String("/x2")))
            threat.chop(3);
        // The single attack is one of a natural attack's several: "Claw", not "2 Claw".
        static const QRegularExpression count(QStringLiteral("^\\d+ "));
        QString name = line.name;
        if (!full)
            name.remove(count);
        return QStringLiteral("%1 %2 %3 (%4%5)")
            .arg(name, bonuses.join(QLatin1Char('/')),
                 line.range == QLatin1String("-") ? QStringLiteral("melee")
                                                  : QStringLiteral("ranged"),
                 line.damage, threat.isEmpty() ? QString() : QLatin1Char('/') + threat);
    }

    // The attack and full attack lines and each weapon or natural attack with its parts.
    void WriteEquipment() {
        const QList<DOffenseLine> lines = DHandBook::BuildOffenseLines(mCharacter);
        if (lines.isEmpty())
            return;
        // Attacks of one routine are made together ("and"); routines are alternatives ("or").
        // The single attack is each routine's first.
        QStringList single, routines, together;
        for (qsizetype i = 0; i < lines.size(); ++i) {
            if (i == 0 || lines[i].group != lines[i - 1].group)
                single << StatBlockAttack(lines[i], false);
            together << StatBlockAttack(lines[i], true);
            if (i + 1 == lines.size() || lines[i + 1].group != lines[i].group) {
                routines << together.join(QStringLiteral(" and "));
                together.clear();
            }
        }
        mXml.Text("attack", single.join(QStringLiteral(" or ")));
        mXml.Text("full-attack", routines.join(QStringLiteral(" or ")));
        mXml.Open("weapons");
        for (const DOffenseLine& line : lines) {
            mXml.Open("weapon");
            mXml.Text("name", line.name);
            QStringList bonuses;
            for (const int bonus : line.bonuses)
                bonuses << DXmlStream::Signed(bonus);
            mXml.Text("bonus", bonuses.join(QLatin1Char('/')));
            mXml.Text("damage", line.damage);
            if (!line.critical.isEmpty())
                mXml.Text("critical", line.critical);
            mXml.Text("range", line.range);
            mXml.Close("weapon");
        }
        mXml.Close("weapons");
    }

    void WriteArmorClass() {
        DACValues ac;
        DHandBook::GetArmorClassValues(mCharacter, ac);
        mXml.Open("armor-class");
        mXml.Open("modifiers");
        mXml.NameValue("modifier", QStringLiteral("base"), ac.base);
        mXml.NameValue("modifier", QStringLiteral("natural"), ac.natural);
        mXml.NameValue("modifier", QStringLiteral("ability"), ac.dexterity);
        mXml.NameValue("modifier", QStringLiteral("armor"), ac.armor);
        mXml.NameValue("modifier", QStringLiteral("shield"), ac.shield);
        mXml.NameValue("modifier", QStringLiteral("size"), ac.size);
        mXml.NameValue("modifier", QStringLiteral("magic"), ac.magic);
        mXml.NameValue("modifier", QStringLiteral("feature"), ac.feature);
        mXml.NameValue("modifier", QStringLiteral("user"), ac.user);
        mXml.NameValue("modifier", QStringLiteral("misc"), ac.misc);
        mXml.Close("modifiers");
        mXml.Number("total", mCharacter->GetCharacterStat(kStatArmorClass));
        mXml.Number("touch", DHandBook::GetTouchArmorClass(mCharacter));
        mXml.Number("flat-footed", DHandBook::GetFlatFootedArmorClass(mCharacter));
        mXml.Close("armor-class");
    }

    void WriteSpeeds() {
        mXml.Open("speeds");
        for (const DChosenSpeed* speed : mCharacter->GetSpeedArray()) {
            mXml.Open("speed");
            mXml.Text("name", mNames.ById("[info Speed]", speed->GetSpeedId()));
            mXml.Number("value", speed->GetSpeedValue());
            // Armor or load that slows the creature: the pace it has now beside its own.
            if (const auto* adjusted = FCDynamicCast<DAdjChosenSpeed>(speed);
                adjusted && adjusted->GetAdjSpeedValue() != speed->GetSpeedValue())
                mXml.Number("adjusted", adjusted->GetAdjSpeedValue());
            if (speed->GetSpeedModId() > 0) {
                const QString maneuver = mNames.ById("[types Speed]", speed->GetSpeedModId());
                if (!maneuver.isEmpty())
                    mXml.Text("maneuverability", maneuver);
            }
            mXml.Close("speed");
        }
        mXml.Close("speeds");
    }

    void WriteSkills() {
        QList<const DChosenSkill*> skills;
        for (const auto& entry : mCharacter->GetSkillSet()) {
            const DChosenSkill* skill = entry.Get();
            const DSkillInfo* info = DDatabase::GetSkillInfo(skill->GetSkillId());
            if (info && (skill->DoesSkillHaveValues() || info->GetUseUntrained()))
                skills << skill;
        }
        if (skills.isEmpty())
            return;
        mXml.Open("skills");
        for (const DChosenSkill* skill : skills)
            WriteSkill(*skill, *DDatabase::GetSkillInfo(skill->GetSkillId()));
        mXml.Close("skills");
    }

    void WriteSkill(const DChosenSkill& skill, const DSkillInfo& info) {
        mXml.Open("skill");
        mXml.Text("name", mNames.SkillDescription(skill));
        if (info.GetDoesACPenaltyApply())
            mXml.Number("armor-check", 1);
        else if (info.GetPenaltyPounds() != 0)
            mXml.Number("weight-check", 1);
        if (info.GetUseUntrained())
            mXml.Number("untrained", 1);
        const int ability = info.GetAbilityModId();
        if (ability >= 0 && ability < kAbilityCount)
            mXml.Text("ability", QString::fromLatin1(kSkillAbilityNames[ability]));
        mXml.Open("modifiers");
        mXml.NameValue("modifier", QStringLiteral("rank"),
                       QString::number(double(skill.GetTotalRanks()), 'g', 6));
        mXml.NameValue("modifier", QStringLiteral("ability"), skill.GetAbilityMod());
        mXml.NameValue("modifier", QStringLiteral("race"), skill.GetRaceMod());
        mXml.NameValue("modifier", QStringLiteral("magic"), skill.GetMagicMod());
        mXml.NameValue("modifier", QStringLiteral("feat"), skill.GetFeatMod());
        mXml.NameValue("modifier", QStringLiteral("other"), skill.GetSkillMod());
        mXml.NameValue("modifier", QStringLiteral("misc"),
                       skill.GetMiscMod() + skill.GetFamiliarMod() + skill.GetUserMod());
        mXml.Close("modifiers");
        // Half ranks count for nothing in a check.
        mXml.Text("total", DXmlStream::Signed(int(std::floor(skill.GetTotalBonus()))));
        mXml.Close("skill");
    }

    // The inventory, the possessions line of a stat block, and the load it makes.
    void WriteItems() {
        QStringList possessions;
        mXml.Open("items");
        for (const auto& [id, item] : mCharacter->GetItemMap()) {
            if (item->HasItemFlag(DItem::kItemFlagUnarmed))
                continue;
            const QString name = item->GetItemPrintDescription(false);
            possessions << name;
            mXml.Open("item");
            mXml.Text("name", name);
            mXml.Number("count", item->GetCount());
            mXml.Text("cost", item->GetCostDescription());
            mXml.Text("weight", item->GetWeightDescription());
            if (item->GetItemLocation() != DChosenItem::kLocationNone)
                mXml.Number("equipped", 1);
            WriteMindAndCurse(*item);
            mXml.Close("item");
        }
        mXml.Close("items");
        if (!possessions.isEmpty())
            mXml.Text("possessions", possessions.join(QStringLiteral(", ")));
        mXml.Open("load");
        mXml.Number("type", mCharacter->GetCharacterStat(kStatLoadType));
        mXml.Text("weight", QString::number(double(mCharacter->GetCarriedWeight()), 'g', 6));
        mXml.Number("armor-check", mCharacter->GetCharacterStat(kStatArmorCheckPenalty));
        mXml.Number("spell-failure", DHandBook::GetArcaneSpellFailure(mCharacter));
        mXml.Close("load");
    }

    // The mind of an intelligent magic item and the curse of a cursed one. `print-text` is the
    // mind as a sheet shows it, its lines joined by "<br>".
    void WriteMindAndCurse(const DItem& item) {
        const auto* magic = FCDynamicCast<DMagicItemInfo>(item.GetItemInfo());
        if (!magic || !item.GetIsMagicItem())
            return;
        if (const auto* mind = FCDynamicCast<DIntelligentData>(magic->GetIntelligentData()))
            WriteMind(*mind, DIntelligentItemGenerator::GetItemEgo(item));
        if (const auto* curse = FCDynamicCast<DCursedData>(magic->GetCursedData())) {
            mXml.Open("cursed");
            mXml.Text("description", curse->GetDescription(false, true));
            mXml.Close("cursed");
        }
    }

    void WriteMind(const DIntelligentData& mind, int ego) {
        const QString separator = QStringLiteral(", ");
        mXml.Open("intelligent");
        mXml.Text("alignment", mind.GetAlignmentName());
        mXml.Open("abilities");
        for (const int ability : {kAbilityIntelligence, kAbilityWisdom, kAbilityCharisma}) {
            const int score = mind.GetAbilityStat(ability);
            WriteMindAbility(QString::fromLatin1(kAbilityNames[ability]),
                             QString::fromLatin1(kSkillAbilityNames[ability]), score,
                             DHandBook::GetAbilityModifier(score));
        }
        WriteMindAbility(QStringLiteral("Ego"), QStringLiteral("Ego"), ego, 0);
        mXml.Close("abilities");
        const QStringList communication = mind.GetCommunicationNames();
        if (!communication.isEmpty())
            mXml.Text("communication", communication.join(separator));
        const QStringList languages = mind.GetLanguageNames();
        if (!languages.isEmpty())
            mXml.Text("languages", languages.join(separator));
        if (mind.GetCanReadLanguages())
            mXml.Text("read-languages", QStringLiteral("true"));
        if (mind.GetCanReadMagic())
            mXml.Text("read-magic", QStringLiteral("true"));
        const QString purpose = mind.GetPurposeName();
        if (!purpose.isEmpty()) {
            mXml.Text("special-purpose", purpose);
            mXml.Open("purpose-powers");
            for (const QString& power : mind.GetPurposePowerNames())
                mXml.Text("purpose-power", power);
            mXml.Close("purpose-powers");
        }
        mXml.Open("extraordinary-powers");
        for (const QString& power : mind.GetPowerDescriptions())
            mXml.Text("extraordinary-power", power);
        mXml.Close("extraordinary-powers");
        mXml.Open("primary-abilities");
        for (const QString& ability : mind.GetAbilityNames())
            mXml.Text("primary-ability", ability);
        mXml.Close("primary-abilities");
        FCString text;
        mind.GetPrintCoreText(ego, text);
        mXml.Text("print-text", text);
        mXml.Close("intelligent");
    }

    void WriteMindAbility(const QString& name, const QString& abbr, int base, int mod) {
        mXml.Open("ability");
        mXml.Text("name", name);
        mXml.Text("abbr", abbr);
        mXml.Number("base", base);
        mXml.Number("mod", mod);
        mXml.Close("ability");
    }

    // Spells known, prepared and per day come with the spell work; until a class casts
    // nothing is written.
    void WriteSpells() {}

    void WriteLanguages() {
        QStringList languages;
        for (const auto& [guid, language] : mCharacter->GetLanguageMap())
            languages << mNames.ByGuid(kTableLanguage, guid);
        languages.removeAll(QString());
        languages.sort(Qt::CaseInsensitive);
        mXml.Open("languages");
        for (const QString& language : languages)
            mXml.Text("language", language);
        mXml.Close("languages");
    }

    void WriteCurrency() {
        const DCurrency& currency = mCharacter->GetCurrency();
        bool any = false;
        for (int coin = 0; coin < DCurrency::kCoinTypeCount; ++coin)
            any = any || currency.GetAmount(coin) != 0;
        if (!any)
            return;
        mXml.Open("currency");
        for (int coin = DCurrency::kCoinTypeCount - 1; coin >= 0; --coin) {
            if (currency.GetAmount(coin) != 0)
                mXml.Number(kCoinNames[coin], currency.GetAmount(coin));
        }
        mXml.Close("currency");
    }

    // What the race says of the creature as a whole: the lines a monster's stat block closes
    // with. Left out field by field where the race gives nothing.
    void WriteRaceDetails() {
        if (!mRace)
            return;
        mXml.Open("race-details");
        mXml.Text("space", FeetText(mRace->GetRaceSizeStat(0)));
        mXml.Text("reach", FeetText(mRace->GetRaceSizeStat(2)));
        QStringList climates;
        for (int id : mRace->GetClimateArray())
            climates << mNames.ById("[types Climate]", id);
        climates.removeAll(QString());
        if (!climates.isEmpty())
            mXml.Text("environment", climates.join(", "));
        mXml.Text("treasure", TreasureText());
        QStringList rows;
        for (const DRaceAdvance* row : mRace->GetAdvanceArray()) {
            const DSizeInfo* size = DDatabase::GetSizeInfo(row->GetSizeId());
            rows << QStringLiteral("%1-%2 HD (%3)")
                        .arg(row->GetMinHitDie())
                        .arg(row->GetMaxHitDie())
                        .arg(size ? QString(size->GetSizeName()) : QString());
        }
        if (!rows.isEmpty())
            mXml.Text("advancement", rows.join("; "));
        mXml.Close("race-details");
    }

    // One name when coins, goods and items agree ("Standard"), else each slot by name.
    QString TreasureText() {
        QStringList kinds;
        for (int slot = 0; slot < DRace::kTreasureSlotCount; ++slot)
            kinds << mNames.ById(kTreasureTable, mRace->GetTreasureType(slot));
        if (kinds.count(kinds.first()) == kinds.size())
            return kinds.first();
        return QStringLiteral("coins %1, goods %2, items %3").arg(kinds[0], kinds[1], kinds[2]);
    }

    void WriteReferee() {
        mXml.Open("referee");
        mXml.Open("remaining-points");
        mXml.Number("skill", mCharacter->GetRemainingSkillPoints());
        mXml.Number("feat", mCharacter->GetCharacterStat(kStatFeatPoints) -
                                mCharacter->GetCharacterStat(kStatSpentFeatPoints));
        mXml.Close("remaining-points");
        mXml.Open("rolls");
        mXml.Number("ability", mCharacter->GetCharacterRefereeStat(0));
        mXml.Number("hit-points", mCharacter->GetCharacterRefereeStat(1));
        mXml.Close("rolls");
        mXml.Open("adjustments");
        constexpr const char* kAbilityWords[kAbilityCount] = {
            "strength", "dexterity", "constitution", "intelligence", "wisdom", "charisma"};
        for (int a = 0; a < kAbilityCount; ++a)
            mXml.Number(kAbilityWords[a], mCharacter->GetAbilityStatUserMod(a));
        mXml.Number("initiative", mCharacter->GetCharacterStat(kStatUserInitiative));
        mXml.Number("fortitude", mCharacter->GetCharacterStat(kStatUserFortitude));
        mXml.Number("reflex", mCharacter->GetCharacterStat(kStatUserReflex));
        mXml.Number("will", mCharacter->GetCharacterStat(kStatUserWill));
        mXml.Number("armor-class", mCharacter->GetCharacterStat(kStatUserArmor));
        mXml.Number("hit-points", mCharacter->GetCharacterStat(kStatUserHitPoints));
        mXml.Close("adjustments");
        int abilityPoints = 0;
        for (int a = 0; a < kAbilityCount; ++a)
            abilityPoints += mCharacter->IsNullAbility(a) ? 0 : mCharacter->GetAbilityStat(a);
        mXml.Open("totals");
        mXml.Number("ability-points", abilityPoints);
        mXml.Close("totals");
        mXml.Close("referee");
    }

    DXmlStream& mXml;
    DCharacter* mCharacter;
    DRace* mRace;
    DRuleNames mNames;
    [[maybe_unused]] bool mFull; // sorts spells once spells are written
    bool mMonster;
};

// Each companion that has its creature, in slot order, as a short character body.
void WriteCompanions(DXmlStream& xml, DCharacter* character) {
    bool opened = false;
    for (int type = 0; type < DCharacter::kAnimalCount; ++type) {
        DCharacter* creature = DCompanionRules::GetAnimal(character->GetAnimal(type));
        if (!creature)
            continue;
        if (!opened)
            xml.Open("animals");
        opened = true;
        xml.Open("animal");
        CharacterWriter(xml, creature, false).WriteBody();
        xml.Close("animal");
    }
    if (opened)
        xml.Close("animals");
}

void WriteRoot(DCharacter* character, QTextStream& out, const QString& styleSheet, int number,
               bool omitDeclaration, bool monster) {
    DXmlStream xml(out);
    xml.WriteHead(styleSheet, omitDeclaration);
    const char* root = monster ? "monster" : "character";
    const bool full = styleSheet == QLatin1String("Character Sheet.xsl") ||
                      (!monster && styleSheet == QLatin1String("Portrait Sheet.xsl"));
    xml.Open(root);
    if (number != 0)
        xml.Number("number", number);
    CharacterWriter(xml, character, full).WriteBody();
    if (!monster)
        WriteCompanions(xml, character);
    xml.Close(root);
    out.flush();
}

} // namespace

void DCharacterXml::Write(DCharacter* character, QTextStream& out, const QString& styleSheet,
                          int number, bool omitDeclaration) {
    if (character->IsMonsterClassOnly())
        WriteMonster(character, out, styleSheet, number, omitDeclaration);
    else
        WriteCharacter(character, out, styleSheet, number, omitDeclaration);
}

void DCharacterXml::WriteCharacter(DCharacter* character, QTextStream& out,
                                   const QString& styleSheet, int number, bool omitDeclaration) {
    WriteRoot(character, out, styleSheet, number, omitDeclaration, false);
}

void DCharacterXml::WriteMonster(DCharacter* character, QTextStream& out, const QString& styleSheet,
                                 int number, bool omitDeclaration) {
    WriteRoot(character, out, styleSheet, number, omitDeclaration, true);
}

QByteArray DCharacterXml::ToBytes(DCharacter* character, const QString& styleSheet) {
    QByteArray bytes;
    QTextStream out(&bytes, QIODevice::WriteOnly);
    out.setEncoding(QStringConverter::Utf8);
    Write(character, out, styleSheet);
    return bytes;
}

bool DCharacterXml::SaveToXML(DCharacter* character, const QString& path) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    file.write(ToBytes(character, QString()));
    return file.commit();
}

QString DCharacterXml::KindWord(const DCharacter* character) {
    return character->IsMonsterClassOnly() ? QStringLiteral("Monster")
                                           : QStringLiteral("Character");
}
