#include "CharacterCommand.h"

#include "CharacterAbility.h"
#include "CharacterCompanions.h"
#include "CharacterFeatures.h"
#include "CharacterGods.h"
#include "CharacterItems.h"
#include "CharacterSkills.h"
#include "CharacterSpells.h"
#include "CliContext.h"
#include "CliLookup.h"
#include "DCharHistory.h"
#include "DCharacter.h"
#include "DCharacterClass.h"
#include "DClassEntryRules.h"
#include "DClassInfo.h"
#include "DCompanionRules.h"
#include "DDatabase.h"
#include "DFileObject.h"
#include "DHandBook.h"
#include "DObjectManager.h"
#include "DRace.h"
#include "FCReleaser.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

// Levels a command line may ask for in one go.
constexpr int kMaxLevels = 100;

QString className(const QUuid& guid) {
    const DClassInfo* info = DDatabase::GetClassInfoA(guid);
    return info ? QString(info->mName) : guid.toString(QUuid::WithBraces).toUpper();
}

QStringList classNames() {
    QStringList names;
    for (const auto& [guid, info] : DDatabase::GetClassInfoMap())
        names << static_cast<const DClassInfo*>(info)->mName;
    return names;
}

QString levelText(float level) {
    return DHandBook::BuildFractionString(level);
}

} // namespace

DCharacter* CharacterCommand::LoadFileArgument(CliContext& context, const QString& file,
                                               QString& path) {
    path = QFileInfo(file).absoluteFilePath();
    if (!QFileInfo(path).isFile()) {
        CliContext::Fail(QStringLiteral("no such file: %1").arg(file));
        return nullptr;
    }
    if (!context.StartLibrary())
        return nullptr;
    QString error;
    DCharacter* character = LoadCharacter(path, error);
    if (!character)
        CliContext::Fail(error);
    return character;
}

int CharacterCommand::SaveAndShow(CliContext& context, DCharacter& character, const QString& path) {
    if (!character.SaveToFile(FCString(path)))
        return CliContext::Fail(QStringLiteral("cannot write %1").arg(path));
    DObjectManager::HandleCharacterSave(FCString(path));
    PrintCharacter(character, path, context.WantsJson());
    return 0;
}

DCharacter* CharacterCommand::LoadCharacter(const QString& path, QString& error) {
    DCharacter* character = DCharacter::CreateFromFile(FCString(path), false, nullptr);
    if (!character) {
        error = QStringLiteral("%1 is not a readable character file").arg(path);
        return nullptr;
    }
    if (character->GetLoadResult() == 1) {
        error = QStringLiteral("the race of %1 is missing: %2")
                    .arg(path, character->GetRaceFileObject()->GetAccessFilePath());
        character->Release();
        return nullptr;
    }
    DHandBook::UpdateWithRace(character);
    // Files saved before the unarmed strike was kept get it now; it is refreshed otherwise.
    DHandBook::SetupUnarmedAttack(character);
    // Companions are kept as their races: their creatures are built for the master as read.
    DCompanionRules::UpdateAnimals(character);
    return character;
}

QString CharacterCommand::Help() const {
    return QStringLiteral(
               "Usage:\n"
               "  hoard character new --name NAME [--player NAME] [--race RACE]\n"
               "                      [--class CLASS [--level N]]... [--hp average|roll] -o "
               "FILE.chr\n"
               "  hoard character show FILE.chr [--json]\n"
               "  hoard character level-up FILE.chr --class CLASS [--json]\n"
               "  hoard character level-down FILE.chr [--json]\n"
               "  hoard character set-ability FILE.chr ABILITY VALUE [--json]\n"
               "  hoard character add-skill FILE.chr SKILL RANKS [--json]\n"
               "  hoard character add-feat FILE.chr FEAT [--target T] [--json]\n"
               "  hoard character add-spell FILE.chr SPELL [--class C] [--json]\n"
               "  hoard character prepare FILE.chr SPELL [--class C] [--count N] [--json]\n"
               "  hoard character add-feature FILE.chr FEATURE [--class C] [--json]\n"
               "  hoard character fall FILE.chr --class C [--json]\n"
               "  hoard character atone FILE.chr --class C [--json]\n"
               "  hoard character add-item FILE.chr ITEM [--count N] [--masterwork] [--enhancement "
               "N]\n"
               "                      [--ability NAME]... [--buy] [--equip] [--two-hands] "
               "[--json]\n"
               "  hoard character equip FILE.chr ITEM [--two-hands] [--json]\n"
               "  hoard character unequip FILE.chr ITEM [--json]\n"
               "  hoard character remove-item FILE.chr ITEM [--sell] [--json]\n"
               "  hoard character set-alignment FILE.chr ALIGNMENT [--json]\n"
               "  hoard character set-god FILE.chr GOD [--json]\n"
               "  hoard character add-domain FILE.chr DOMAIN [--json]\n"
               "  hoard character set-school FILE.chr SCHOOL --prohibit A[,B] [--json]\n"
               "  hoard character add-language FILE.chr LANGUAGE [--json]\n"
               "  hoard character add-companion FILE.chr familiar|companion|mount RACE "
               "[--json]\n"
               "  hoard character remove-companion FILE.chr [RACE] [--json]\n\n"
               "new       makes a character of the named race (a race file's name, as `hoard race "
               "list`\n"
               "          shows; Human when none is given) with N levels of each CLASS in the "
               "order\n"
               "          given (N is 1 when left out), and saves it to FILE.chr. Without --class "
               "it\n"
               "          is the race alone: a monster of the race's hit dice. The first class "
               "level\n"
               "          has the full hit die; --hp average (the default) or roll picks the "
               "others.\n"
               "show      reads a character file and prints what it holds.\n"
               "level-up  adds one level of CLASS to the character and saves it back; the first\n"
               "          level of a prestige class needs its entry requirements met.\n"
               "level-down\n"
               "          takes back the last level taken and saves the character; the race "
               "and the\n"
               "          first class level stay, as they were made.\n"
               "set-ability\n"
               "          gives ABILITY (STR, DEX, CON, INT, WIS, CHA or the full name) the "
               "rolled\n"
               "          score VALUE (1 to 99, before race adjustments) and saves it back.\n"
               "add-skill buys RANKS (whole, or halves for a cross-class skill) of SKILL with the\n"
               "          points of the last class taken; a sub-skill is named \"Knowledge "
               "(Arcana)\".\n"
               "add-feat  takes FEAT, with --target naming the weapon, skill or school it is for,\n"
               "          from a class's bonus feats when it may, else from the feat points.\n"
               "add-spell learns SPELL for the caster C (the first that learns spells when left\n"
               "          out); a spellbook past its allowance buys it for 200 gp a spell level.\n"
               "prepare   prepares SPELL N times (1 when left out) in today's slots of C.\n"
               "add-feature\n"
               "          picks FEATURE for C (the first class that picks when left out): a "
               "rogue's\n"
               "          special ability, a ranger's favored enemy, a bard's weapon, a "
               "loremaster's\n"
               "          secret.\n"
               "fall      a paladin or druid loses its class features and casts nothing, a "
               "barbarian\n"
               "          its rage; the class takes no new level until it atones.\n"
               "atone     gives the fallen class back all its features and spells.\n"
               "set-alignment\n"
               "          gives the alignment by name or letters (LG, N, CE); a class that bars it "
               "refuses.\n"
               "set-god   takes GOD (see `hoard gods`) if the alignment is the god's or one step "
               "off.\n"
               "add-domain\n"
               "          gives a cleric one of the god's domains (two at most); each opens the "
               "extra\n"
               "          domain slot and brings the god's feats for it.\n"
               "set-school\n"
               "          makes a wizard a specialist of SCHOOL; two prohibited schools are named, "
               "one\n"
               "          for a diviner, and divination is never one of them; the wizard then\n"
               "          learns and prepares no spell of a prohibited school.\n"
               "add-language\n"
               "          learns a bonus language of the race, one per point of Intelligence "
               "modifier.\n"
               "Classes are named as in the rules database, in any case.\n") +
           CharacterItems::HelpText() + CharacterCompanions::HelpText();
}

int CharacterCommand::Run(CliContext& context, QStringList args) {
    QString sub;
    int status = 0;
    if (!TakeSubcommand(args, sub, status))
        return status;
    if (sub == "new")
        return RunNew(context, args);
    if (sub == "show")
        return RunShow(context, args);
    if (sub == "level-up")
        return RunLevelUp(context, args);
    if (sub == "level-down")
        return RunLevelDown(context, args);
    using Handler = int (*)(CliContext&, QStringList&);
    static constexpr struct {
        const char* name;
        Handler run;
    } kCommands[] = {
        {"set-ability",
         [](CliContext& c, QStringList& a) { return CharacterAbility::RunSetAbility(c, a); }},
        {"add-skill",
         [](CliContext& c, QStringList& a) { return CharacterSkills::RunAddSkill(c, a); }},
        {"add-feat",
         [](CliContext& c, QStringList& a) { return CharacterSkills::RunAddFeat(c, a); }},
        {"add-spell",
         [](CliContext& c, QStringList& a) { return CharacterSpells::RunAddSpell(c, a); }},
        {"prepare",
         [](CliContext& c, QStringList& a) { return CharacterSpells::RunPrepare(c, a); }},
        {"add-feature",
         [](CliContext& c, QStringList& a) { return CharacterFeatures::RunAddFeature(c, a); }},
        {"fall",
         [](CliContext& c, QStringList& a) { return CharacterFeatures::RunFall(c, a, true); }},
        {"atone",
         [](CliContext& c, QStringList& a) { return CharacterFeatures::RunFall(c, a, false); }},
        {"add-item",
         [](CliContext& c, QStringList& a) { return CharacterItems::RunAddItem(c, a); }},
        {"remove-item",
         [](CliContext& c, QStringList& a) { return CharacterItems::RunRemoveItem(c, a); }},
        {"equip", [](CliContext& c, QStringList& a) { return CharacterItems::RunEquip(c, a); }},
        {"unequip", [](CliContext& c, QStringList& a) { return CharacterItems::RunUnequip(c, a); }},
        {"set-alignment",
         [](CliContext& c, QStringList& a) { return CharacterGods::RunSetAlignment(c, a); }},
        {"set-god", [](CliContext& c, QStringList& a) { return CharacterGods::RunSetGod(c, a); }},
        {"add-domain",
         [](CliContext& c, QStringList& a) { return CharacterGods::RunAddDomain(c, a); }},
        {"set-school",
         [](CliContext& c, QStringList& a) { return CharacterGods::RunSetSchool(c, a); }},
        {"add-language",
         [](CliContext& c, QStringList& a) { return CharacterGods::RunAddLanguage(c, a); }},
        {"add-companion",
         [](CliContext& c, QStringList& a) { return CharacterCompanions::RunAddCompanion(c, a); }},
        {"remove-companion",
         [](CliContext& c, QStringList& a) {
             return CharacterCompanions::RunRemoveCompanion(c, a);
         }},
    };
    QStringList names = {"new", "show", "level-up", "level-down"};
    for (const auto& command : kCommands) {
        if (sub == QLatin1String(command.name))
            return command.run(context, args);
        names << QString::fromLatin1(command.name);
    }
    return CliContext::Fail(CliLookup::UnknownName(QStringLiteral("character command"), sub,
                                                   CliLookup::ClosestNames(sub, names, 3)));
}

QUuid CharacterCommand::FindClass(const QString& name) {
    for (const auto& [guid, info] : DDatabase::GetClassInfoMap()) {
        if (static_cast<const DClassInfo*>(info)->mName.compare(name, Qt::CaseInsensitive) == 0)
            return guid;
    }
    return QUuid();
}

int CharacterCommand::RunNew(CliContext& context, QStringList args) {
    // --class and --level come in order, so they are taken before the other options.
    struct ClassLevels {
        QString name;
        int levels = 1;
    };
    QList<ClassLevels> classes;
    for (int i = 0; i < args.size();) {
        const QString option = args[i];
        if (option != "--class" && option != "--level") {
            ++i;
            continue;
        }
        if (i + 1 >= args.size())
            return CliContext::Fail(QStringLiteral("%1 is missing its value").arg(option));
        const QString value = args[i + 1];
        args.remove(i, 2);
        if (option == "--class") {
            classes.append({value, 1});
            continue;
        }
        if (classes.isEmpty())
            return CliContext::Fail(QStringLiteral("--level %1 comes after a --class").arg(value));
        bool ok = false;
        classes.last().levels = value.toInt(&ok);
        if (!ok || classes.last().levels < 1 || classes.last().levels > kMaxLevels)
            return CliContext::Fail(
                QStringLiteral("--level takes a whole number from 1 to %1, not '%2'")
                    .arg(kMaxLevels)
                    .arg(value));
    }
    QString name, player, race, output, hitPoints;
    if (!TakeOption(args, "--name", name) || !TakeOption(args, "--player", player) ||
        !TakeOption(args, "--race", race) || !TakeOption(args, "-o", output) ||
        !TakeOption(args, "--output", output) || !TakeOption(args, "--hp", hitPoints))
        return CliContext::Fail(QStringLiteral("an option is missing its value (see --help)"));
    // The first class level always has the full die; the later ones are averaged or rolled.
    const bool rollHitPoints = hitPoints == "roll";
    if (!hitPoints.isEmpty() && hitPoints != "average" && !rollHitPoints)
        return CliContext::Fail(
            QStringLiteral("--hp takes average or roll, not '%1'").arg(hitPoints));
    QString error;
    if (!RejectUnknownOptions(args, error))
        return CliContext::Fail(error);
    if (!args.isEmpty())
        return CliContext::Fail(QStringLiteral("unexpected argument '%1'").arg(args.first()));
    if (name.trimmed().isEmpty())
        return CliContext::Fail(QStringLiteral("--name NAME is required"));
    if (output.isEmpty())
        return CliContext::Fail(QStringLiteral("-o FILE.chr is required"));
    if (!context.StartLibrary())
        return 1;
    const QString raceName = race.isEmpty() ? QStringLiteral("Human") : race;
    DFileObject* raceEntry = DObjectManager::FindRaceFile(raceName);
    if (!raceEntry) {
        const QStringList known = CliLookup::RaceNames();
        if (known.isEmpty())
            return CliContext::Fail(
                QStringLiteral("unknown race '%1' (no races are installed in %2/Core/Races)")
                    .arg(raceName, context.DataDir()));
        return CliContext::Fail(CliLookup::UnknownName(
            QStringLiteral("race"), raceName, CliLookup::ClosestNames(raceName, known, 3)));
    }
    QList<QUuid> history;
    for (const ClassLevels& wanted : classes) {
        const QUuid guid = FindClass(wanted.name);
        if (guid.isNull())
            return CliContext::Fail(
                CliLookup::UnknownName(QStringLiteral("class"), wanted.name,
                                       CliLookup::ClosestNames(wanted.name, classNames(), 3)));
        for (int level = 0; level < wanted.levels; ++level)
            history.append(guid);
    }
    if (history.size() > kMaxLevels)
        return CliContext::Fail(QStringLiteral("at most %1 levels in all").arg(kMaxLevels));
    // Each prestige class must be open to the character the classes before it make.
    for (qsizetype i = 0; i < history.size(); ++i) {
        if (history.indexOf(history[i]) != i)
            continue;
        DCharacter before;
        DHandBook::SetupCharacterWithRace(&before, raceEntry);
        for (qsizetype j = 0; j < i; ++j)
            before.AddHistory(history[j], 1.0f);
        if (i > 0)
            DHandBook::CharacterSetup(&before, true);
        const QString refused = DClassEntryRules::Refusal(before, history[i]);
        if (!refused.isEmpty())
            return CliContext::Fail(refused);
    }
    DCharacter character;
    character.SetCharacterName(FCString(name.trimmed()));
    if (!player.isEmpty())
        character.SetPlayerName(FCString(player));
    DHandBook::SetupCharacterWithRace(&character, raceEntry);
    if (!character.GetRace())
        return CliContext::Fail(
            QStringLiteral("the race file %1 cannot be read").arg(raceEntry->GetAccessFilePath()));
    for (const QUuid& guid : history)
        character.AddHistory(guid, 1.0f);
    DHandBook::CharacterSetup(&character, true);
    if (rollHitPoints) {
        // As the roll dialog does: every die but the first class level's is rolled anew.
        character.AdjustCharacterRefereeStat(1, 1);
        character.SetCharacterStat(kStatBaseHitPoints,
                                   DHandBook::RollForBaseHitPoints(&character, false, 0, 0));
        DHandBook::SetCharacterHitPoints(&character, DHandBook::ComputeTotalHitPoints(&character),
                                         false);
    }
    if (!character.SaveToFile(FCString(QFileInfo(output).absoluteFilePath())))
        return CliContext::Fail(QStringLiteral("cannot write %1").arg(output));
    DObjectManager::HandleCharacterSave(FCString(output));
    if (context.WantsJson())
        CliContext::PrintJson(QJsonObject{{"file", QFileInfo(output).absoluteFilePath()},
                                          {"name", character.GetCharacterName()}});
    else
        CliContext::PrintLine(QStringLiteral("Saved %1 to %2").arg(name.trimmed(), output));
    return 0;
}

int CharacterCommand::RunShow(CliContext& context, QStringList args) {
    QString error;
    if (!RejectUnknownOptions(args, error))
        return CliContext::Fail(error);
    if (args.size() != 1)
        return CliContext::Fail(QStringLiteral("give one character file (see --help)"));
    const QString path = QFileInfo(args.first()).absoluteFilePath();
    if (!QFileInfo(path).isFile())
        return CliContext::Fail(QStringLiteral("no such file: %1").arg(args.first()));
    if (!context.StartLibrary())
        return 1;
    DCharacter* character = LoadCharacter(path, error);
    if (!character)
        return CliContext::Fail(error);
    PrintCharacter(*character, path, context.WantsJson());
    character->Release();
    return 0;
}

int CharacterCommand::RunLevelUp(CliContext& context, QStringList args) {
    QString className;
    if (!TakeOption(args, "--class", className))
        return CliContext::Fail(QStringLiteral("--class is missing its value"));
    QString error;
    if (!RejectUnknownOptions(args, error))
        return CliContext::Fail(error);
    if (args.size() != 1)
        return CliContext::Fail(QStringLiteral("give one character file (see --help)"));
    if (className.isEmpty())
        return CliContext::Fail(QStringLiteral("--class CLASS is required"));
    const QString path = QFileInfo(args.first()).absoluteFilePath();
    if (!QFileInfo(path).isFile())
        return CliContext::Fail(QStringLiteral("no such file: %1").arg(args.first()));
    if (!context.StartLibrary())
        return 1;
    const QUuid guid = FindClass(className);
    if (guid.isNull())
        return CliContext::Fail(
            CliLookup::UnknownName(QStringLiteral("class"), className,
                                   CliLookup::ClosestNames(className, classNames(), 3)));
    DCharacter* character = LoadCharacter(path, error);
    if (!character)
        return CliContext::Fail(error);
    const QString refused = DClassEntryRules::Refusal(*character, guid);
    if (!refused.isEmpty()) {
        character->Release();
        return CliContext::Fail(refused);
    }
    const bool added = DHandBook::AddCharacterLevel(character, guid, false);
    const bool saved = added && character->SaveToFile(FCString(path));
    if (saved) {
        DObjectManager::HandleCharacterSave(FCString(path));
        PrintCharacter(*character, path, context.WantsJson());
    }
    character->Release();
    if (!added)
        return CliContext::Fail(QStringLiteral("%1 has no race entry to build on").arg(path));
    return saved ? 0 : CliContext::Fail(QStringLiteral("cannot write %1").arg(path));
}

int CharacterCommand::RunLevelDown(CliContext& context, QStringList args) {
    QString error;
    if (!RejectUnknownOptions(args, error))
        return CliContext::Fail(error);
    if (args.size() != 1)
        return CliContext::Fail(QStringLiteral("give one character file (see --help)"));
    QString path;
    FCRef<DCharacter> character(LoadFileArgument(context, args.first(), path));
    if (!character)
        return 1;
    if (!DHandBook::RemoveCharacterLevel(character.get(), false))
        return CliContext::Fail(
            QStringLiteral("%1 has no level to take back: the race and the first class level "
                           "are part of its making")
                .arg(character->GetCharacterName()));
    return SaveAndShow(context, *character, path);
}

namespace {

constexpr int kGoldCoin = 2;

struct CombatBlock {
    DACValues ac;
    int touch = 0;
    int flatFooted = 0;
    int grapple = 0;
};

CombatBlock combatBlock(const DCharacter& character) {
    // The engine's read operations take a character they do not change.
    auto* engineCharacter = const_cast<DCharacter*>(&character);
    CombatBlock block;
    DHandBook::GetArmorClassValues(engineCharacter, block.ac);
    block.touch = DHandBook::GetTouchArmorClass(engineCharacter);
    block.flatFooted = DHandBook::GetFlatFootedArmorClass(engineCharacter);
    block.grapple = DHandBook::ComputeGrapple(engineCharacter);
    return block;
}

// Classes of the history without a rule row: they were set up as counting 0.
QStringList missingClassRows(const DCharacter& character) {
    QStringList missing;
    for (const DCharHistory* entry : character.GetHistoryArray()) {
        const QString row = QStringLiteral("[info Class] %1")
                                .arg(entry->GetClassGuid().toString(QUuid::WithBraces).toUpper());
        if (!DDatabase::GetClassInfoA(entry->GetClassGuid()) && !missing.contains(row))
            missing << row;
    }
    return missing;
}

QJsonValue abilityValue(const DCharacter& character, DAbilityStatType ability) {
    return character.IsNullAbility(ability) ? QJsonValue() : character.GetAbilityStat(ability);
}

void addCombatBlock(const DCharacter& character, QJsonObject& description) {
    const CombatBlock block = combatBlock(character);
    description.insert("abilities",
                       QJsonObject{{"str", abilityValue(character, kAbilityStrength)},
                                   {"dex", abilityValue(character, kAbilityDexterity)},
                                   {"con", abilityValue(character, kAbilityConstitution)},
                                   {"int", abilityValue(character, kAbilityIntelligence)},
                                   {"wis", abilityValue(character, kAbilityWisdom)},
                                   {"cha", abilityValue(character, kAbilityCharisma)}});
    description.insert("hp", character.GetCharacterStat(kStatHitPoints));
    description.insert("ac", block.ac.Total());
    description.insert("ac_touch", block.touch);
    description.insert("ac_flat_footed", block.flatFooted);
    description.insert("initiative", character.GetCharacterStat(kStatInitiative));
    description.insert("base_attack", character.GetCharacterStat(kStatBaseAttack));
    description.insert("grapple", block.grapple);
    description.insert("fortitude", character.GetCharacterStat(kStatFortitude));
    description.insert("reflex", character.GetCharacterStat(kStatReflex));
    description.insert("will", character.GetCharacterStat(kStatWill));
    description.insert("age", character.GetCharacterStat(kStatAge));
    description.insert("height", character.GetCharacterStat(kStatHeight));
    description.insert("weight", character.GetCharacterStat(kStatWeight));
    description.insert("xp", character.GetCharacterStat(kStatExperience));
    description.insert("gold", character.GetCurrency().GetAmount(kGoldCoin));
    description.insert("missing_rows", QJsonArray::fromStringList(missingClassRows(character)));
}

void printCombatBlock(const QJsonObject& description) {
    const QJsonObject abilities = description["abilities"].toObject();
    QStringList scores;
    for (const char* key : {"str", "dex", "con", "int", "wis", "cha"})
        scores << QStringLiteral("%1 %2").arg(QString::fromLatin1(key).toUpper(),
                                              CharacterCommand::AbilityText(abilities[key]));
    CliContext::PrintLine(QStringLiteral("Abilities:  %1").arg(scores.join(", ")));
    CliContext::PrintLine(QStringLiteral("HP:         %1").arg(description["hp"].toInt()));
    CliContext::PrintLine(QStringLiteral("AC:         %1, touch %2, flat-footed %3")
                              .arg(description["ac"].toInt())
                              .arg(description["ac_touch"].toInt())
                              .arg(description["ac_flat_footed"].toInt()));
    CliContext::PrintLine(
        QStringLiteral("Initiative: %1")
            .arg(CharacterCommand::SignedNumber(description["initiative"].toInt())));
    CliContext::PrintLine(
        QStringLiteral("Base attack: %1, grapple %2")
            .arg(CharacterCommand::SignedNumber(description["base_attack"].toInt()),
                 CharacterCommand::SignedNumber(description["grapple"].toInt())));
    CliContext::PrintLine(QStringLiteral("Saves:      Fort %1, Ref %2, Will %3")
                              .arg(CharacterCommand::SignedNumber(description["fortitude"].toInt()),
                                   CharacterCommand::SignedNumber(description["reflex"].toInt()),
                                   CharacterCommand::SignedNumber(description["will"].toInt())));
    // Races keep height in inches and weight in pounds. Most monsters' races give none.
    const int height = description["height"].toInt();
    if (description["age"].toInt() == 0 && height == 0 && description["weight"].toInt() == 0)
        CliContext::PrintLine(QStringLiteral("Age:        not given by the race"));
    else
        CliContext::PrintLine(QStringLiteral("Age:        %1 years, height %2' %3\", weight %4 lb.")
                                  .arg(description["age"].toInt())
                                  .arg(height / 12)
                                  .arg(height % 12)
                                  .arg(description["weight"].toInt()));
    CliContext::PrintLine(QStringLiteral("XP:         %1, gold %2")
                              .arg(description["xp"].toInt())
                              .arg(description["gold"].toInt()));
}

} // namespace

QJsonObject CharacterCommand::Describe(const DCharacter& character) {
    const DRace* race = character.GetRace();
    QJsonArray classes;
    for (const DCharacterClass* characterClass : character.GetClassList())
        classes.append(QJsonObject{{"name", className(characterClass->GetClassGuid())},
                                   {"level", double(characterClass->GetLevel())}});
    QJsonObject description{
        {"classes", classes},
        {"name", character.GetCharacterName()},
        {"player", character.GetPlayerName()},
        {"file_name", character.GetFileCharacterName()},
        {"race", race ? QJsonValue(race->GetRaceName()) : QJsonValue()},
        {"race_file", character.GetRaceFileObject()->GetAccessFilePath()},
        {"level", int(character.GetCharacterLevel())},
        {"alignment_id", character.GetAlignmentId()},
        {"monster", character.HasInfoFlag(DCharacter::kInfoMonster)},
    };
    addCombatBlock(character, description);
    CharacterSkills::Describe(character, description);
    CharacterSpells::Describe(character, description);
    CharacterFeatures::Describe(character, description);
    CharacterItems::Describe(character, description);
    CharacterGods::Describe(character, description);
    CharacterCompanions::Describe(character, description);
    return description;
}

void CharacterCommand::PrintCharacter(const DCharacter& character, const QString& file, bool json) {
    QJsonObject description = Describe(character);
    description.insert("file", file);
    // Set up with what exists; the user learns which rows its numbers lack.
    for (const QJsonValue row : description["missing_rows"].toArray())
        std::fprintf(stderr, "hoard: no rule row %s: its levels count 0\n",
                     qUtf8Printable(row.toString()));
    if (json) {
        CliContext::PrintJson(description);
        return;
    }
    CliContext::PrintLine(QStringLiteral("%1: %2").arg(
        character.HasInfoFlag(DCharacter::kInfoMonster) ? QStringLiteral("Monster")
                                                        : QStringLiteral("Character"),
        character.GetCharacterName()));
    CliContext::PrintLine(QStringLiteral("Player:     %1").arg(character.GetPlayerName()));
    CliContext::PrintLine(
        QStringLiteral("Race:       %1 (%2)")
            .arg(description["race"].toString(), description["race_file"].toString()));
    CliContext::PrintLine(QStringLiteral("Level:      %1").arg(int(character.GetCharacterLevel())));
    QStringList classes;
    for (const DCharacterClass* characterClass : character.GetClassList())
        classes << QStringLiteral("%1 %2").arg(className(characterClass->GetClassGuid()),
                                               levelText(characterClass->GetLevel()));
    CliContext::PrintLine(QStringLiteral("Classes:    %1").arg(classes.join(", ")));
    QStringList history;
    for (const DCharHistory* entry : character.GetHistoryArray()) {
        QString step = className(entry->GetClassGuid());
        if (entry->HasHistoryFlag(DCharHistory::kHistoryRaceClass))
            step += QStringLiteral(" (race, %1 HD)").arg(levelText(entry->GetLevel()));
        else if (entry->GetLevel() != 1.0f)
            step += QStringLiteral(" x%1").arg(levelText(entry->GetLevel()));
        if (entry->GetIsExClass())
            step += QStringLiteral(" (ex)");
        history << step;
    }
    CliContext::PrintLine(QStringLiteral("History:    %1").arg(history.join(", ")));
    printCombatBlock(description);
    CharacterSkills::Print(character);
    CharacterFeatures::Print(description);
    CharacterGods::Print(description);
    CharacterSpells::Print(description);
    CharacterItems::Print(description);
    CharacterCompanions::Print(description);
    CliContext::PrintLine(QStringLiteral("File:       %1").arg(file));
}

QString CharacterCommand::SignedNumber(int value) {
    return value < 0 ? QString::number(value) : QStringLiteral("+%1").arg(value);
}

QString CharacterCommand::AbilityText(const QJsonValue& score) {
    if (score.isNull())
        return QStringLiteral("-");
    return QStringLiteral("%1 (%2)")
        .arg(score.toInt())
        .arg(SignedNumber(DHandBook::GetAbilityModifier(score.toInt())));
}
