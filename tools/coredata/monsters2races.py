#!/usr/bin/env python3
"""Turns the open-rules monster stat blocks into race sources for hoard-coredata.

    python3 tools/coredata/monsters2races.py ../shared/srd/monsters/monster_statblocks.csv \
        data/rules/rows data/core/races

Reads the code tables (special attacks and qualities, subtypes, feats, weapons, skills,
schools) from the rules rows so that only names the database holds are written as
references; everything else that the stat block names goes into free-text `feature:` lines.
Each creature's good saves are worked back from its published saves, and the published
combat figures are quoted in a comment for the tests to measure the built monster against. Writes one `<Name>.race` per creature, replacing
the files it wrote before (they carry a marker line) and leaving hand-written ones alone.
Prints what it had to fill with a default and the published saves it could not reach.
"""

import collections
import csv
import os
import re
import sys

MARKER = "# Converted by monsters2races.py from the open 3.5 monster stat blocks."

SIZES = ["Fine", "Diminutive", "Tiny", "Small", "Medium", "Large", "Huge", "Gargantuan",
         "Colossal"]
TYPES = ["Aberration", "Animal", "Construct", "Dragon", "Elemental", "Fey", "Giant",
         "Humanoid", "Magical Beast", "Monstrous Humanoid", "Ooze", "Outsider", "Plant",
         "Undead", "Vermin"]
ABILITIES = ["Str", "Dex", "Con", "Int", "Wis", "Cha"]
MANEUVERS = ["clumsy", "poor", "average", "good", "perfect"]
CLIMATES = [("cold", "Cold"), ("temperate", "Temperate"), ("warm", "Warm"),
            ("underground", "Underground"), ("aquatic", "Aquatic"), ("plane", "Extraplanar"),
            ("any", "Any")]
# Stat-block words that name a code-table row by another name.
QUALITY_ALIASES = {"dr": "Damage reduction", "sr": "Spell resistance",
                   "resistance": "Resistance to energy", "immune": "Immunity",
                   "immunities": "Immunity"}
# What each creature may serve as, by the open rules' lists: a sorcerer's or wizard's familiar,
# a paladin's special mount, a druid's (or ranger's) animal companion of the first list,
# aquatic choices included.
COMPANION_FLAGS = {
    "Bat": ["familiar"], "Cat": ["familiar"], "Lizard": ["familiar"], "Rat": ["familiar"],
    "Raven": ["familiar"], "Snake, Tiny Viper": ["familiar"], "Toad": ["familiar"],
    "Weasel": ["familiar"],
    "Hawk": ["familiar", "animal companion"], "Owl": ["familiar", "animal companion"],
    "Warhorse, Heavy": ["mount"], "Pony, War": ["mount"],
    "Badger": ["animal companion"], "Camel": ["animal companion"],
    "Dire Rat": ["animal companion"], "Dog": ["animal companion"],
    "Dog, Riding": ["animal companion"], "Eagle": ["animal companion"],
    "Horse, Light": ["animal companion"], "Horse, Heavy": ["animal companion"],
    "Pony": ["animal companion"], "Snake, Small Viper": ["animal companion"],
    "Snake, Medium Viper": ["animal companion"], "Wolf": ["animal companion"],
    "Crocodile": ["animal companion"], "Porpoise": ["animal companion"],
    "Shark, Medium": ["animal companion"], "Squid": ["animal companion"],
}
# What a familiar gives its master, by the open rules' familiar table. The hawk's and the owl's
# Spot bonus holds only in bright light or in shadows, which a fixed bonus cannot say: left out.
FAMILIAR_BONUS = {
    "Bat": "Listen +3", "Cat": "Move Silently +3", "Lizard": "Climb +3", "Rat": "Fort +2",
    "Raven": "Appraise +3", "Snake, Tiny Viper": "Bluff +3", "Toad": "hit points +3",
    "Weasel": "Ref +2",
}
# Entries that are a class-levelled example or a template shown on a base creature: their hit
# dice are not the creature's own.
# Feat names of the older rules that the stat blocks still use, by the name the feat table has.
FEAT_ALIASES = {"expertise": "Combat Expertise", "sunder": "Improved Sunder",
                "improved natural weapon": "Improved Natural Attack",
                "quickened spell-like ability": "Quicken Spell-Like Ability",
                "epix toughness": "Epic Toughness"}
# Weapon targets in the stat blocks' words, by the weapon table's name.
WEAPON_ALIASES = {"spiked chain": "Chain, spiked"}
# Feat target kinds of the feat table's Target column.
TARGET_NONE, TARGET_WEAPON, TARGET_SKILL, TARGET_SCHOOL = 0, 1, 2, 3
SAVES = ["Fort", "Ref", "Will"]
# An elemental's good save follows its element.
ELEMENT_SAVES = {"Air": ["Ref"], "Fire": ["Ref"], "Earth": ["Fort"], "Water": ["Fort"]}
# The ability behind each save; a creature without it adds nothing.
SAVE_ABILITY = {"Fort": "Con", "Ref": "Dex", "Will": "Wis"}
# What a feat adds to a save (the rules' own figures; the engine's feat bonus rows).
SAVE_FEATS = {"Great Fortitude": ("Fort", 2), "Lightning Reflexes": ("Ref", 2),
              "Iron Will": ("Will", 2), "Epic Fortitude": ("Fort", 4),
              "Epic Reflexes": ("Ref", 4), "Epic Will": ("Will", 4)}
# Save bonuses the open rules give a creature in its description, where its published line
# needs them: (saves, amount or the ability whose modifier is added, the rule).
NIGHTSHADE = ({"Fort": 2, "Ref": 2, "Will": 2},
              "desecrating aura: a +2 profane bonus on saves within it, its own included")
RACIAL_SAVES = {
    "Nymph": ({"Fort": "Cha", "Ref": "Cha", "Will": "Cha"},
              "unearthly grace: Charisma modifier on every save"),
    "Derro": ({"Will": 6}, "madness: Charisma (+3) takes the place of Wisdom (-3) on Will saves"),
    "Nightcrawler": NIGHTSHADE, "Nightwalker": NIGHTSHADE, "Nightwing": NIGHTSHADE,
    "Svirfneblin": ({"Fort": 2, "Ref": 2, "Will": 2}, "+2 racial bonus on all saves"),
}
# The open rules give the races that have no racial hit dice of their own as a
# "1st-Level Warrior"; their scores are the warrior's 13, 11, 12, 10, 9, 8 with the racial
# adjustments applied, so the race can be taken back out of the stat block.
# A creature with a swim or climb speed has +8 racial bonus on Swim or Climb checks.
SPEED_SKILLS = {"swim": "Swim", "climb": "Climb"}
SPEED_SKILL_BONUS = 8
# Sub-skills as the stat blocks spell them where the skill table spells them otherwise.
SUB_SKILL_ALIASES = {"planes": "The Planes", "stringed instruments": "String Instruments"}

# Natural attacks as the stat blocks name them, by the "[types Race Attack]" row they are.
ATTACK_NAMES = {"bite": "Bite", "claw": "Claw", "gore": "Gore", "slam": "Slam", "sting": "Sting",
                "tail slap": "Tail slap", "tentacle": "Tentacle", "wing": "Wing",
                "hoof": "Hoof", "hooves": "Hoof", "talon": "Talon", "touch": "Touch",
                "incorporeal touch": "Touch", "rake": "Rake", "pincer": "Pincer",
                "tongue": "Tongue", "butt": "Butt", "arm": "Arm", "horn": "Gore",
                "wing buffet": "Wing", "foreclaw": "Claw", "hindclaw": "Claw", "tail": "Tail slap",
                "tail slam": "Tail slap", "skull butt": "Butt", "tendril": "Tentacle",
                "pseudopod slam": "Slam"}
ATTACK = re.compile(r"^(?:(\d+)\s+)?([A-Za-z ]+?)\s+([+-]\d+)(?:/[+-]\d+)*\*?\s*(melee|ranged)?"
                    r"\s*(touch)?\*?\s*\(([^)]*)\)\s*(melee|ranged)?\s*(touch)?\s*$")

# Armor as the Armor Class column names it, by the row of [info Armor] or [info Shield] it is,
# and the proficiency flag wearing it asks for.
ARMOR_NAMES = {"padded": ("Padded", "light armor"), "leather": ("Leather", "light armor"),
               "studded leather": ("Studded leather", "light armor"),
               "chain shirt": ("Chain shirt", "light armor"), "hide": ("Hide", "medium armor"),
               "scale mail": ("Scale mail", "medium armor"),
               "chainmail": ("Chainmail", "medium armor"),
               "breastplate": ("Breastplate", "medium armor"),
               "splint mail": ("Splint mail", "heavy armor"),
               "banded mail": ("Banded mail", "heavy armor"),
               "half-plate": ("Half-plate", "heavy armor"),
               "full plate": ("Full plate", "heavy armor"), "buckler": ("Buckler", "shields"),
               "light shield": ("Shield, light wooden", "shields"),
               "light wooden shield": ("Shield, light wooden", "shields"),
               "light steel shield": ("Shield, light steel", "shields"),
               "heavy shield": ("Shield, heavy wooden", "shields"),
               "heavy wooden shield": ("Shield, heavy wooden", "shields"),
               "heavy steel shield": ("Shield, heavy steel", "shields"),
               "tower shield": ("Shield, tower", "shields"),
               # The azer's column is cut after "+2 heavy"; its total (23) counts the shield.
               "heavy": ("Shield, heavy wooden", "shields")}
SIZE_WORDS = re.compile(r"^(?:fine|diminutive|tiny|small|medium|large|huge|gargantuan|colossal)\s+")

WARRIOR = re.compile(r"^(.*), 1st-Level Warrior$")
WARRIOR_SCORES = {"Str": 13, "Dex": 11, "Con": 12, "Int": 10, "Wis": 9, "Cha": 8}
# What a warrior's block holds that is not the race's: its class dice and its chosen feats. Its
# published line and racial save bonus stay: a race of no hit dice is shown as that warrior.
# Nor are its skill totals, which hold the warrior's ranks.
WARRIOR_DROPS = ("hit_dice:", "skill_points:", "good_saves:", "feats:", "skills:", "attacks:",
                 "# published attacks:",
                 "skill_ranks:", "# published skills:", "feature: Feat:", "advancement:")
# An astral construct's level is the power's level, not a class level: its hit dice are its own.
SKIP = re.compile(r"\d+(st|nd|rd|th)-Level(?! Astral Construct)|Human Form|Hybrid|Wolf Form|"
                  r"Bear Form|Boar Form|Tiger Form|Rat Form|Giant Form", re.I)
SCORE = re.compile(r"(Str|Dex|Con|Int|Wis|Cha)[\s_]*([-\u2014\u2013]|\d+)")
# The open rules' skeleton: Strength as the base creature, Dexterity +2, no Constitution or
# Intelligence, Wisdom 10, Charisma 1. A skeleton block that leaves its scores out has them
# worked from its base creature's block.
SKELETON = re.compile(r"^(.+) Skeleton$")
# The human warrior skeleton stands on a human 1st-level warrior, which has no block of its
# own; a human has no adjustments, so the warrior's scores are the human's.
SKELETON_BASES = {"Human Warrior": WARRIOR_SCORES}
# A block whose scores are cut off takes the missing ones from the blocks of the same creature
# at other sizes, where they all agree: the xorns share Int 10, Wis 11 and Cha 10, and the
# average xorn's Will (+5, good 5 + Wis 0) and skill totals (+10 on 10 ranks, 8 skills on
# (8 + Int 0) x 10 points) show modifiers of 0 for all three.
KIN = {"Average Xorn": ("Minor Xorn", "Elder Xorn")}


def complete(row, blocks):
    """The row with what its block leaves out worked from other blocks of the file (`blocks`,
    by name): a skeleton's scores from its base creature, cut-off scores from the creature's
    kin, a bare "traits" as its type's traits; "lowlight" spelt as the quality table has it.
    Whatever cannot be worked out stays as the block gives it."""
    fixed = dict(row)
    name = row["name"].strip()
    have = dict(SCORE.findall(row["Abilities"]))
    skeleton = SKELETON.match(name)
    if not have and skeleton:
        base = SKELETON_BASES.get(skeleton.group(1))
        if base is None and skeleton.group(1) in blocks:
            base = dict(SCORE.findall(blocks[skeleton.group(1)]["Abilities"]))
        if base and str(base.get("Dex", "")).isdigit() and "Str" in base:
            fixed["Abilities"] = "Str %s, Dex %d, Con -, Int -, Wis 10, Cha 1" % (
                base["Str"], int(base["Dex"]) + 2)
    elif len(have) < 6 and name in KIN:
        kin = [dict(SCORE.findall(blocks[k]["Abilities"])) for k in KIN[name] if k in blocks]
        missing = [a for a in ABILITIES if a not in have]
        if len(kin) == len(KIN[name]) and all(
                k.get(a) is not None and k.get(a) == kin[0].get(a) for k in kin for a in missing):
            have.update({a: kin[0][a] for a in missing})
            fixed["Abilities"] = ", ".join("%s %s" % (a, have[a]) for a in ABILITIES)
    qualities = re.sub(r"\blowlight\b", "low-light", row["Special Qualities"])
    # "traits" alone (the 2nd-level astral construct's line is cut): its type's traits.
    ctype = next((t for t in TYPES if re.search(r"\b%s\b" % t, row["size_type"])), None)
    if ctype:
        qualities = re.sub(r"(^|,\s*)traits\b", r"\g<1>%s traits" % ctype, qualities)
    fixed["Special Qualities"] = qualities
    return fixed


def read_rows(rows_dir, table):
    """The rows of a rules table as dicts by column name."""
    path = os.path.join(rows_dir, table + ".tsv")
    rows, header = [], None
    with open(path, encoding="utf-8") as f:
        for line in f:
            line = line.rstrip("\n")
            if not line or line.startswith("#"):
                continue
            cells = line.split("\t")
            if header is None:
                header = cells
                continue
            rows.append(dict(zip(header, cells)))
    return rows


def read_names(rows_dir, table):
    return [row["Name"] for row in read_rows(rows_dir, table)]


def read_skill_points(rows_dir):
    """Skill points per hit die of each creature type class, by name."""
    path = os.path.join(rows_dir, "info Class.tsv")
    points = {}
    with open(path, encoding="utf-8") as f:
        header = None
        for line in f:
            line = line.rstrip("\n")
            if not line or line.startswith("#"):
                continue
            cells = line.split("\t")
            if header is None:
                header = cells
                continue
            row = dict(zip(header, cells))
            if row["ClassType"] == "2":
                points[row["Name"]] = int(row["SkillPPL"])
    return points


def split_top(text, seps=",;"):
    """Splits at separators outside parentheses."""
    parts, depth, cur = [], 0, ""
    for c in text:
        if c == "(":
            depth += 1
        elif c == ")":
            depth = max(0, depth - 1)
        if c in seps and depth == 0:
            parts.append(cur.strip())
            cur = ""
        else:
            cur += c
    if cur.strip():
        parts.append(cur.strip())
    return parts


def number(text):
    """'2-1/2' or '2 1/2' -> 2.5, '1/2' -> 0.5, '10' -> 10."""
    text = text.strip()
    m = re.match(r"^(\d+)[-\s](\d+)/(\d+)$", text)
    if m:
        return int(m.group(1)) + int(m.group(2)) / int(m.group(3))
    m = re.match(r"^(\d+)/(\d+)$", text)
    if m:
        return int(m.group(1)) / int(m.group(2))
    return float(text)


def fmt(value):
    return str(int(value)) if float(value).is_integer() else ("%g" % value)


def file_name(name):
    return re.sub(r'[/\\:*?"<>|]', "-", name).strip()


class Converter:
    def __init__(self, rows_dir):
        self.attacks = read_names(rows_dir, "types Race Special Attacks")
        self.qualities = read_names(rows_dir, "types Race Special Quality")
        self.subtypes = read_names(rows_dir, "info Race Subtypes")
        self.type_skill_points = read_skill_points(rows_dir)
        self.feat_targets = {r["Name"].lower(): (r["Name"], int(r["Target"] or 0))
                             for r in read_rows(rows_dir, "info Feat")}
        self.feat_stacks = {r["Name"] for r in read_rows(rows_dir, "info Feat")
                            if r["StackType"] == "1"}
        self.weapons = {n.lower(): n for n in read_names(rows_dir, "info Weapons")}
        self.skills = {n.lower(): n for n in read_names(rows_dir, "info Skill")}
        for r in read_rows(rows_dir, "info Skill Sub"):
            name = "%s (%s)" % (r["Guid"], r["Name"])
            self.skills[name.lower()] = name
        self.schools = {n.lower(): n for n in read_names(rows_dir, "info Spell Schools")}
        skill_rows = read_rows(rows_dir, "info Skill")
        self.skill_ability = {r["Name"]: int(r["StatId"]) for r in skill_rows}
        self.armor_check_skills = {r["Name"] for r in skill_rows if r["ACPen"] == "1"}
        self.check_penalty = {r["Name"]: int(r["CheckPenalty"] or 0)
                              for table in ("info Armor", "info Shield")
                              for r in read_rows(rows_dir, table)}
        self.multi_skills = {r["Name"] for r in skill_rows if r["IsMulti"] == "1"}
        self.feat_skill_bonus = collections.defaultdict(list)
        for r in read_rows(rows_dir, "info Feat Bonuses"):
            if r["Type"] == "6" and r["SkillId"]:
                self.feat_skill_bonus[r["Id"]].append((r["SkillId"], int(r["Data"])))
        self.skill_focus = next(int(r["Data"]) for r in read_rows(rows_dir, "info Feat Bonuses")
                                if r["Id"] == "Skill Focus" and r["Type"] == "6")
        self.synergies = [(self.sub_skill_name(r["SourceSkill"], r["SourceSubSkill"]),
                           int(r["ReqRanks"]),
                           self.sub_skill_name(r["TargetSkill"], r["TargetSubSkill"]),
                           int(r["Bonus"]))
                          for r in read_rows(rows_dir, "info Skill Bonuses Synergy")]
        self.size_skill_bonus = collections.defaultdict(dict)
        for r in read_rows(rows_dir, "info Skill Bonuses Size"):
            self.size_skill_bonus[r["SizeId"]][r["SkillId"]] = int(r["Bonus"])
        self.type_good_saves = {
            r["Name"]: [save for save, column in zip(SAVES, ("HIFORT", "HIREF", "HIWILL"))
                        if r[column] == "1"]
            for r in read_rows(rows_dir, "info Class") if r["ClassType"] == "2"}
        self.gaps = collections.Counter()
        # Creatures whose published saves the converter cannot reach, with the gap.
        self.save_misses = []
        # Published skill totals below what the rest of the creature already gives.
        self.skill_misses = []

    def gap(self, what):
        self.gaps[what] += 1

    def match_code(self, entry, names, aliases=None):
        low = entry.lower().strip()
        first = re.split(r"[\s(]", low, 1)[0]
        if aliases and first in aliases:
            return aliases[first]
        # The longest table name the entry starts with, so "Blindsight" beats "Blind".
        best = None
        for name in names:
            n = name.lower()
            if low == n or low.startswith(n + " ") or low.startswith(n + "(") or \
                    low.startswith(n + ","):
                if best is None or len(name) > len(best):
                    best = name
        if best is None and low.startswith("immunity"):
            best = "Immunity"
        return best if best in names else None

    def convert(self, row):
        out = [MARKER]
        name = row["name"].strip()

        size_type = row["size_type"].replace("Medium-Size", "Medium").replace("Medium-size",
                                                                                "Medium")
        m = re.match(r"^\s*(\w+)\s+([A-Za-z ]+?)\s*((?:\([^)]*\)\s*)*)$", size_type)
        if not m or m.group(1) not in SIZES:
            return None, "size/type '%s'" % row["size_type"]
        size = m.group(1)
        ctype = m.group(2).strip().title().replace("Magical Beast", "Magical Beast")
        ctype = {t.lower(): t for t in TYPES}.get(m.group(2).strip().lower())
        if not ctype:
            return None, "type '%s'" % m.group(2)
        out.append("type: " + ctype)
        subs = []
        # "(Evil) (Chaotic or Lawful)": a choice is no subtype; the alignment line picks.
        groups = [g for g in re.findall(r"\(([^)]*)\)", m.group(3)) if " or " not in g]
        for s in ",".join(groups).split(","):
            s = s.strip()
            if not s:
                continue
            hit = next((t for t in self.subtypes if t.lower() == s.lower()), None)
            if hit:
                subs.append(hit)
            else:
                self.gap("subtype '%s' not in the subtype table" % s)
        if subs:
            out.append("subtypes: " + ", ".join(dict.fromkeys(subs)))
        category = "Animals" if ctype == "Animal" else "Monsters"
        out.append("category: " + category)
        out.append("roles: " + ("Animal" if ctype == "Animal" else "Monster"))
        out.append("size: " + size)

        hd = re.match(r"^\s*(?:HD\s*)?(\d+(?:/\d+)?)\s*d(\d+)", row["Hit Dice"])
        if not hd:
            return None, "hit dice '%s'" % row["Hit Dice"]
        out.append("hit_dice: " + fmt(number(hd.group(1))))

        adv_rows = []
        # "5-9 HD (Huge)", "36+ HD (Colossal)", and a single step: "4 HD (Large)".
        for a in re.finditer(r"(\d+)\s*(?:[-\u2013]\s*(\d+)|(\+))?\s*(?:HD)?\s*\(([^)]+)\)",
                             row["Advancement"]):
            low = int(a.group(1))
            high = int(a.group(2)) if a.group(2) else 2 * low if a.group(3) else low
            if a.group(3):
                self.gap("open-ended advancement row (upper bound set to twice the lower)")
            asize = a.group(4).replace("Medium-size", "Medium").replace("Medium-Size",
                                                                        "Medium").strip()
            asize = asize.split()[0].capitalize() if asize else ""
            if asize not in SIZES or low > high:
                self.gap("unreadable advancement row")
                continue
            adv_rows.append("%d-%d %s" % (low, high, asize))
        if adv_rows:
            out.append("advancement: " + "; ".join(adv_rows))
        else:
            self.gap("no advancement by hit dice (none, or by character class)")

        ab = dict(re.findall(r"(Str|Dex|Con|Int|Wis|Cha)[\s_]*([-\u2014\u2013]|\d+)",
                             row["Abilities"]))
        if len(ab) != 6:
            return None, "abilities '%s'" % row["Abilities"]
        out.append("abilities: " + ", ".join(
            "%s %s" % (k, "-" if not ab[k].isdigit() else ab[k]) for k in ABILITIES))
        points = self.skill_points(ctype, number(hd.group(1)), ab["Int"])
        if points:
            out.append("skill_points: %d" % points)

        out.insert(1, self.published_line(row))
        taken, feat_words = self.feats(row)
        published = {}
        for save in SAVES:
            sm = re.search(r"%s\s*([+-]\d+)" % save, row["Saves"])
            published[save] = int(sm.group(1)) if sm else None
        counts = {re.sub(r"\s*\(.*$", "", f).strip('"'): 1 for f in taken}
        usual = ELEMENT_SAVES.get(next((t for t in subs if t in ELEMENT_SAVES), None),
                                  self.type_good_saves[ctype]) if ctype == "Elemental" else \
            self.type_good_saves[ctype]
        good, bonus = self.saves(name, usual, number(hd.group(1)), ab, counts, published)
        if good != self.type_good_saves[ctype]:
            out.append("good_saves: " + (", ".join(good) if good else "none"))
        if bonus:
            out.append("save_bonus: " + ", ".join("%s %+d" % (k, v) for k, v in bonus.items()))

        nat = re.search(r"([+-]\d+)\s+natural", row["Armor Class"])
        if nat:
            out.append("natural_armor: %d" % int(nat.group(1)))

        speeds = []
        seen = set()
        for part in split_top(row["Speed"], ","):
            sm = re.match(r"^\s*(burrow|climb|fly|swim)?\s*(\d+)\s*ft", part, re.I)
            if not sm:
                continue
            kind = (sm.group(1) or "land").lower()
            if kind in seen:
                continue
            seen.add(kind)
            item = "%s %s" % (kind, sm.group(2))
            if kind == "fly":
                man = re.search(r"\((%s)\)" % "|".join(MANEUVERS), part, re.I)
                if man:
                    item += " " + man.group(1).lower()
                else:
                    self.gap("fly speed without maneuverability")
            speeds.append(item)
        # "30 ft. in hide armor; base speed 40 ft.": the race keeps the unarmored speed.
        base = re.search(r"base speed (\d+)\s*ft", row["Speed"], re.I)
        if base:
            speeds = ["land " + base.group(1)] + [s for s in speeds if not s.startswith("land ")]
        if not speeds:
            self.gap("no speed in feet (written as land 0)")
            speeds = ["land 0"]
        out.append("speed: " + ", ".join(speeds))

        groups = self.attack_groups(row)
        for group, _ in groups:
            out.append("attacks: " + group)
        if groups:
            out.insert(2, "# published attacks: " + " | ".join(shown for _, shown in groups))

        gear, armor_flags = self.gear(row)
        totals = self.published_skills(row)
        if totals:
            ranks, racial, unreachable = self.skill_split(
                totals, size, number(hd.group(1)), ab, taken, seen, points, gear)
            for skill in unreachable:
                self.skill_misses.append((name, "%s %+d" % (skill, totals[skill])))
            out.insert(2, "# published skills: " + ", ".join(
                "%s %+d" % (k, v) for k, v in totals.items()))
            out.append("skill_ranks: " + ", ".join("%s %d" % (k, v) for k, v in ranks.items()))
            bonus = ["%s %+d" % (k, v) for k, v in racial.items() if v > 0]
            if bonus:
                out.append("skills: " + ", ".join(bonus))

        sr = re.match(r"^\s*(\d+(?:[-\s]\d+/\d+|/\d+)?)\s*ft\.?\s*/\s*(\d+(?:[-\s]\d+/\d+|/\d+)?)",
                      row["Space/Reach"])
        if sr:
            out.append("space: " + fmt(number(sr.group(1))))
            out.append("reach: " + fmt(number(sr.group(2))))
        else:
            self.gap("space/reach missing")

        feats = []
        for key, column, names, aliases, label in (
                ("special_attacks", "Special Attacks", self.attacks, None, "Special attack"),
                ("special_qualities", "Special Qualities", self.qualities, QUALITY_ALIASES,
                 "Special quality")):
            found = []
            for entry in split_top(row[column], ","):
                entry = entry.strip().rstrip(".")
                if not entry or entry in ("-", "\u2014"):
                    continue
                hit = self.match_code(entry, names, aliases)
                if hit:
                    if hit not in found:
                        found.append(hit)
                else:
                    self.gap("%s with no code-table row (kept as a feature)" % label.lower())
                # Words beyond the row's name (a range, a DC, an energy) survive as a feature.
                if not hit or entry.lower() != hit.lower():
                    feats.append("%s: %s" % (label, entry))
            if found:
                out.append("%s: %s" % (key, ", ".join(found)))

        cr = re.match(r"^\s*(\d+(?:/\d+)?)", row["Challenge Rating"])
        if cr:
            out.append("challenge_rating: " + cr.group(1))
        else:
            self.gap("challenge rating missing (default 1)")

        align, mod = self.alignment(row["Alignment"])
        out.append("alignment: " + align)
        if mod:
            out.append("alignment_mod: " + mod)

        out.append("treasure: " + self.treasure(row["Treasure"]))

        env = row["Environment"].lower()
        climates = [c for w, c in CLIMATES if w in env]
        if climates:
            out.append("climates: " + ", ".join(dict.fromkeys(climates)))
        else:
            self.gap("environment with no climate")

        if gear:
            out.append("gear: " + "; ".join(gear))
        flags = COMPANION_FLAGS.get(name, []) + armor_flags
        if flags:
            out.append("flags: " + ", ".join(flags))
        if name in FAMILIAR_BONUS:
            out.append("familiar_bonus: " + FAMILIAR_BONUS[name])
        if taken:
            out.append("feats: " + ", ".join(self.feat_text(f, n) for f, n in taken.items()))
        # The record has no field for it; a player who takes the race as a character needs it.
        adjustment = row["Level Adjustment"].strip()
        if re.match(r"^[+-]\d", adjustment):
            out.append("feature: Level adjustment: " + adjustment)
        for f in feats:
            out.append("feature: " + f)
        for f in feat_words:
            out.append("feature: Feat: " + f)
        return out, None

    def convert_warrior(self, row, race):
        """The race of a "1st-Level Warrior" block: no hit dice of its own, like the player
        races, and its scores as adjustments. A race of another type (an aasimar, an elan)
        keeps its type: with no hit dice the type adds nothing but its traits."""
        lines, why = self.convert(row)
        if lines is None:
            return None, why
        out = []
        for line in lines:
            if line.startswith(WARRIOR_DROPS):
                continue
            if line == "type: Humanoid":
                line = "type: Humanoid (player race)"
            elif line.startswith("abilities: "):
                scores = dict(re.findall(r"(\w+) (\d+)", line))
                changes = ["%s %+d" % (k, int(scores[k]) - WARRIOR_SCORES[k])
                           for k in ABILITIES if int(scores[k]) != WARRIOR_SCORES[k]]
                line = "ability_adjustments: " + (", ".join(changes) or "Str +0")
                out.append("hit_dice: 0")
            out.append(line)
        out.insert(1, "# %s: the race behind the open rules' 1st-level warrior." % race)
        return out, None

    @staticmethod
    def published_line(row):
        """The stat block's combat figures as a comment, so that the built monsters can be
        measured against them: '-' where the block gives none (no Strength, no Dexterity)."""
        def first(pattern, text):
            m = re.search(pattern, text.replace("\u2212", "-").replace("\u2013", "-"))
            return "%+d" % int(m.group(1)) if m else "-"
        ba = re.match(r"^\s*([+-]\d+)\s*/\s*([+-]\d+)?", row["Base Attack/Grapple"])
        hp = re.search(r"\(([\d,]+)\s*hp", row["Hit Dice"])
        ac = re.match(r"^\s*(\d+)", row["Armor Class"])
        return "# published: base attack %s, grapple %s, Fort %s, Ref %s, Will %s, hp %s, AC %s" % (
            "%+d" % int(ba.group(1)) if ba else "-",
            "%+d" % int(ba.group(2)) if ba and ba.group(2) else "-",
            first(r"Fort\s*([+-]\d+)", row["Saves"]), first(r"Ref\s*([+-]\d+)", row["Saves"]),
            first(r"Will\s*([+-]\d+)", row["Saves"]),
            hp.group(1).replace(",", "") if hp else "-", ac.group(1) if ac else "-")

    def feats(self, row):
        """The Feats and Epic Feats columns as feat-set entries, with how often each is taken.
        Returns (entries, kept as features): a feat whose target the record cannot name (a
        natural weapon, a special attack, a spell) or that the feat table lacks is kept in
        words."""
        entries, words = collections.OrderedDict(), []
        text = row["Feats"] + "," + row["Epic Feats"]
        for raw in split_top(text, ","):
            item = raw.strip().rstrip(".").strip()
            item = re.sub(r"^and\s+", "", item)
            if not item or item in ("-", "\u2014") or item.startswith("(x"):
                continue
            # "TrackB", "Weapon Finesse B": a bonus feat of the type; taken all the same.
            item = re.sub(r"(?<=[a-z)])\s*B$", "", item)
            count = 1
            times = re.search(r"\s*\((?:x\s*)?(\d+)\)$", item)
            if times:
                count = int(times.group(1))
                item = item[:times.start()]
            m = re.match(r"^(.+?)\s*(?:\((.*)\))?$", item)
            name, target = m.group(1).strip(), (m.group(2) or "").strip()
            name = FEAT_ALIASES.get(name.lower(), name)
            entry = self.feat_entry(name, target)
            if entry is None:
                self.gap("feat the feat set cannot hold (kept as a feature)")
                words.append(item + (" (x%d)" % count if count > 1 else ""))
                continue
            entries[entry] = entries.get(entry, 0) + count
        return entries, words

    def feat_text(self, entry, times):
        """'Toughness x2' for a feat that may be taken again; any other feat once."""
        if times > 1 and re.sub(r"\s*\(.*$", "", entry.strip('"')) in self.feat_stacks:
            return "%s x%d" % (entry, times)
        if times > 1:
            self.gap("feat taken more than once that may not be (written once)")
        return entry

    def feat_entry(self, name, target):
        """'Weapon Focus (Longsword)' as a source names it, or None."""
        hit = self.feat_targets.get(name.lower())
        if not hit:
            return None
        name, kind = hit
        if kind == TARGET_NONE:
            return None if target else name
        if not target:
            return None
        if kind == TARGET_WEAPON:
            low = target.lower()
            # A natural weapon (Weapon Focus (bite)) names every attack of its kind.
            found = self.weapons.get(WEAPON_ALIASES.get(low, low).lower()) or \
                self.attack_kind(low)
        elif kind == TARGET_SKILL:
            found = self.skills.get(target.replace("[", "(").replace("]", ")").lower())
        elif kind == TARGET_SCHOOL:
            found = self.schools.get(target.lower())
        else:
            found = None
        if not found:
            return None
        entry = "%s (%s)" % (name, found)
        return '"%s"' % entry if "," in entry else entry

    def saves(self, name, usual, hit_dice, ab, feats, published):
        """Good saves and racial save bonuses worked back from the published saves: each save
        less its ability modifier and feats must be the good (HD/2 + 2) or the poor (HD/3)
        figure of the creature's hit dice, a fraction of a die counting as none. Where it is
        neither, the creature keeps the `usual` good saves of its kind."""
        level = int(hit_dice)
        good, bonus, misses = [], {}, []
        racial = RACIAL_SAVES.get(WARRIOR.sub(r"\1", name), ({}, ""))[0]
        for save in SAVES:
            score = ab[SAVE_ABILITY[save]]
            base = (int(score) - 10) // 2 if score.isdigit() else 0
            base += sum(amount * feats.get(feat, 0)
                        for feat, (which, amount) in SAVE_FEATS.items() if which == save)
            extra = racial.get(save, 0)
            if isinstance(extra, str):
                extra = (int(ab[extra]) - 10) // 2
            if extra:
                bonus[save] = extra
            if published.get(save) is None:
                # No published figure (no Dexterity): the type's progression stays.
                if save in usual:
                    good.append(save)
                continue
            rest = published[save] - base - extra
            hi, lo = level // 2 + 2, level // 3
            if rest == hi:
                good.append(save)
            elif rest != lo:
                # Neither: a slip of the source or a rule the record cannot hold; the type's
                # progression stays and the miss is reported.
                if save in usual:
                    good.append(save)
                misses.append("%s %+d (good %+d, poor %+d)" % (
                    save, published[save], hi + base + extra, lo + base + extra))
        if misses:
            self.save_misses.append((name, ", ".join(misses)))
        return good, bonus

    def skill_points(self, ctype, hit_dice, intelligence):
        """(per hit die + Int modifier, at least 1) x (HD + 3), a fraction of a hit die counting
        as one. The type's class row multiplies by HD alone and has no floor, so the figure is
        written per creature. Mindless creatures (no Int) have no skill points, which the record
        cannot say: 0 there means "use the type's formula"."""
        if not intelligence.isdigit():
            self.gap("no Intelligence: no skill points written")
            return 0
        per_die = max(1, self.type_skill_points[ctype] + (int(intelligence) - 10) // 2)
        return per_die * (max(1, int(hit_dice)) + 3)

    @staticmethod
    def attack_kind(name):
        """The "[types Race Attack]" row a natural attack's name stands for ("claws": Claw)."""
        return next((ATTACK_NAMES[n] for n in (name, re.sub(r"s$", "", name),
                                               re.sub(r"es$", "", name)) if n in ATTACK_NAMES),
                    None)

    def first_weapon(self, row):
        """The first weapon of the creature's gear, or None."""
        gear, _ = self.gear(row)
        return next((g for g in gear if g in self.weapons.values()), None)

    def weapon_name(self, text):
        """The [info Weapons] row a stat block's weapon stands for, or None: a size word,
        "masterwork", plurals and a mighty bow's Strength rating are dropped; a magic weapon
        is none of the table's rows."""
        low = re.sub(r"\s*\([^)]*\)", "", text.strip().lower())
        if low.startswith("+"):
            return None
        low = SIZE_WORDS.sub("", re.sub(r"^masterwork\s+", "", low))
        for name in (low, re.sub(r"s$", "", low)):
            name = WEAPON_ALIASES.get(name, name).lower()
            words = name.split()
            # "light crossbow" is the table's "Crossbow, light".
            flipped = "%s, %s" % (words[-1], " ".join(words[:-1])) if len(words) > 1 else name
            for candidate in (name, flipped):
                if candidate in self.weapons:
                    return self.weapons[candidate]
        return None

    def gear(self, row):
        """The weapons of the Full Attack column and the armor and shields of the Armor Class
        column, as the rows of the item tables they are, with the proficiency flags wearing the
        armor asks for."""
        names, flags = [], []
        text = row["Full Attack"].replace("\u2212", "-").replace("\u2013", "-")
        for routine in re.split(r";?\s+or\s+", text):
            for part in split_top(routine, ","):
                for item in re.split(r"\s+and\s+", part):
                    m = re.match(r"^(?:and\s+)?(?:\d+\s+)?(.+?)\s+[+-]\d+", item.strip())
                    weapon = self.weapon_name(m.group(1)) if m else None
                    if weapon and weapon not in names:
                        names.append(weapon)
        for m in re.finditer(r"\+\d+\s+([a-z][a-z -]*?)(?:\s+armor)?\s*(?=,|\)|$)",
                             row["Armor Class"].lower()):
            armor = ARMOR_NAMES.get(m.group(1).strip())
            if armor and armor[0] not in names:
                names.append(armor[0])
                if armor[1] not in flags:
                    flags.append(armor[1])
        return names, flags

    def attack_groups(self, row):
        """The Full Attack column's routines of natural attacks, each as an `attacks` value:
        "2 Claw 1d6, Bite 1d8", the primary attack first, as the block lists it, with the
        block's own figures ("Claw +9 1d6+5, Bite +4 1d8+2"). A routine led by the creature's
        first weapon is written "weapon, Gore 1d8"; any other routine with a weapon in it is
        left out (weapons are items, not the race's: they come with its gear); so is an attack
        the table has no row for."""
        groups = []
        text = row["Full Attack"].replace("\u2212", "-").replace("\u2013", "-")
        for routine in re.split(r";?\s+or\s+", text):
            items = [i for part in split_top(routine, ",") for i in
                     re.split(r"\s+and\s+", part) if i.strip()]
            out, shown, ok = [], [], bool(items)
            for index, item in enumerate(items):
                item = re.sub(r"^and\s+", "", item.strip())
                m = ATTACK.match(item)
                if not m:
                    ok = False
                    break
                name = m.group(2).strip().lower()
                kind = self.attack_kind(name)
                # A routine led by one plain weapon ("greataxe and gore") is fought beside the
                # first weapon of the creature's gear, which is that one.
                if not kind and index == 0 and len(items) > 1 and not m.group(1) and \
                        self.weapon_name(m.group(2)) == self.first_weapon(row):
                    damage = re.match(r"^\s*(\d+d\d+(?:[+-]\d+)?)", m.group(6))
                    out.append("weapon")
                    shown.append("%s %+d %s" % (self.weapon_name(m.group(2)), int(m.group(3)),
                                                damage.group(1) if damage else "-"))
                    continue
                if not kind:
                    ok = False
                    break
                # Hit point damage only: "1d8 Str" is ability damage, which a die cannot say.
                damage = re.match(r"^\s*((\d+)d(\d+)(?:[+-]\d+)?)(?=$|\s+plus|/|\s*\*)",
                                  m.group(6))
                words = []
                if m.group(5) or m.group(8) or "touch" in name:
                    words.append("touch")
                if "ranged" in (m.group(4), m.group(7)):
                    words.append("ranged")
                out.append(" ".join(
                    ([m.group(1)] if m.group(1) and m.group(1) != "1" else []) + [kind] +
                    (["%sd%s" % damage.group(2, 3)] if damage else []) + words))
                shown.append("%s %+d %s" % (kind, int(m.group(3)),
                                            damage.group(1) if damage else "-"))
            if ok and out != ["weapon"]:
                groups.append((", ".join(out), ", ".join(shown)))
            else:
                self.gap("attack routine with a weapon or an unknown attack (left out)")
        return groups

    def sub_skill_name(self, skill, sub):
        """'Knowledge', 'Knowledge/Arcana' (a synergy row) -> 'Knowledge (Arcana)'."""
        if not sub:
            return skill
        sub = sub.split("/")[-1]
        name = "%s (%s)" % (skill, sub)
        return self.skills.get(name.lower(), name)

    def skill_names(self, text):
        """The skills a stat block's name stands for: 'Knowledge (arcana, the planes)' is two;
        a choice ('Knowledge (any one)', 'Craft or Knowledge') is none."""
        m = re.match(r"^([A-Za-z ]+?)\s*(?:\((.*)\))?$", text.strip())
        if not m or m.group(1).lower() not in self.skills:
            return []
        skill = self.skills[m.group(1).lower()]
        if skill not in self.multi_skills:
            return [] if m.group(2) else [skill]
        names = []
        for sub in (m.group(2) or "").split(","):
            sub = sub.strip().lower()
            sub = SUB_SKILL_ALIASES.get(sub, sub)
            found = self.skills.get(("%s (%s)" % (skill, sub)).lower())
            if not found:
                return []
            names.append(found)
        return names

    def published_skills(self, row):
        """The skill totals of the Skills column that name skills of the table, in order."""
        totals = collections.OrderedDict()
        for item in split_top(row["Skills"].replace("\u2212", "-"), ","):
            m = re.match(r"^(.+?)\s*([+-]\d+)", item)
            names = self.skill_names(m.group(1)) if m else []
            if not names:
                if item.strip() not in ("", "-", "\u2014"):
                    self.gap("skill that names a choice or no skill of the table (left out)")
                continue
            for name in names:
                totals.setdefault(name, int(m.group(2)))
        return totals

    def skill_split(self, totals, size, hit_dice, ab, feats, speed_kinds, points, gear):
        """Ranks and racial bonuses that give the published skill totals, as the engine adds
        them up: the key ability's modifier, the size's Hide modifier, the feats' bonuses, the
        check penalty of the armor and shield in `gear` and a +2 synergy from 5 ranks. A swim or climb speed gives +8 on Swim or Climb. Of the rest,
        ranks go up to HD + 3 per skill and as far as the creature's skill points reach,
        taken off the highest first; what is left is racial. A creature of one hit die or
        less earns no points on its racial die in the engine (a class level takes it over),
        so all of its rest is racial. Returns (ranks, racial, unreachable)."""
        feat_bonus = collections.Counter()
        for entry, times in feats.items():
            entry = entry.strip('"')
            focus = re.match(r"^Skill Focus \((.+)\)$", entry)
            if focus:
                feat_bonus[focus.group(1)] += self.skill_focus * times
            for skill, amount in self.feat_skill_bonus.get(entry, []):
                feat_bonus[skill] += amount * times
        # Armor and shield worn take their check penalties off the skills they hamper.
        penalty = sum(self.check_penalty.get(item, 0) for item in gear)
        fixed, speed_bonus = {}, {}
        for name in totals:
            base = name.split(" (")[0]
            ability = self.skill_ability.get(base, -1)
            mod = 0
            if 0 <= ability < len(ABILITIES):
                # A nonability counts as no modifier, as a missing Constitution does by the
                # rules and as the engine reads one.
                score = ab[ABILITIES[ability]]
                mod = int(score) // 2 - 5 if score.isdigit() else 0
            fixed[name] = mod + self.size_skill_bonus.get(size, {}).get(base, 0) + \
                feat_bonus[name] + (penalty if base in self.armor_check_skills else 0)
            speed_bonus[name] = next((SPEED_SKILL_BONUS for kind, skill in SPEED_SKILLS.items()
                                      if skill == name and kind in speed_kinds), 0)
        cap = max(1, int(hit_dice)) + 3
        budget = points if hit_dice > 1 else 0
        ranks = {name: 0 for name in totals}
        for _ in range(6):
            synergy = collections.Counter()
            for source, required, target, bonus in self.synergies:
                if ranks.get(source, 0) >= required:
                    synergy[target] = bonus
            rest = {name: totals[name] - fixed[name] - synergy[name] - speed_bonus[name]
                    for name in totals}
            wanted = {name: max(0, min(cap, rest[name])) for name in totals}
            while sum(wanted.values()) > budget:
                top = max(wanted, key=lambda n: (wanted[n], n))
                wanted[top] -= 1
            if wanted == ranks:
                break
            ranks = wanted
        racial = {name: rest[name] - ranks[name] + speed_bonus[name] for name in totals}
        unreachable = [name for name in totals if racial[name] < 0]
        return ranks, racial, unreachable

    def alignment(self, text):
        t = text.strip().lower()
        if not t:
            self.gap("alignment missing (Always neutral taken)")
            return "Neutral", "Always"
        mod = None
        for word in ("always", "usually", "often"):
            if t.startswith(word):
                mod = word.capitalize()
                t = t[len(word):].strip()
        t = re.split(r",| or |\(deep|\(wood", t)[0].strip()
        anymap = {"evil (any)": "Neutral Evil", "good (any)": "Neutral Good",
                  "chaotic (any)": "Chaotic Neutral", "lawful (any)": "Lawful Neutral",
                  "any evil": "Neutral Evil", "any good": "Neutral Good",
                  "any lawful": "Lawful Neutral", "any chaotic": "Chaotic Neutral",
                  "any": "Neutral", "any (same as creator)": "Neutral", "as master": "Neutral"}
        if t in anymap:
            self.gap("alignment of a choice ('any ...'): the middle alignment taken")
            return anymap[t], mod
        words = t.split()
        if t in ("neutral", "true neutral"):
            return "Neutral", mod
        if len(words) == 2 and words[0] in ("lawful", "neutral", "chaotic") and \
                words[1] in ("good", "neutral", "evil"):
            return "%s %s" % (words[0].capitalize(), words[1].capitalize()), mod
        self.gap("unreadable alignment (Neutral taken)")
        return "Neutral", mod

    def treasure(self, text):
        t = text.strip().lower()
        whole = {"none": "None", "standard": "Standard", "double standard": "Double standard",
                 "triple standard": "Triple standard"}
        if t in whole:
            return whole[t]
        if not t:
            self.gap("treasure missing (None taken)")
            return "None"
        slots = {}
        for part in re.split(r"[;,]", t):
            pm = re.match(r"^\s*(no|standard|double|triple|[\d/]+%?(?:th)?|half)\s+(coins|goods|items)",
                          part.strip())
            if not pm:
                continue
            word = pm.group(1)
            value = {"no": "None", "standard": "Standard", "double": "Double standard",
                     "triple": "Triple standard"}.get(word)
            if value is None:
                # A fraction of standard: the record keeps the amount apart, which the stat
                # block does not give in a form it takes.
                self.gap("fraction of standard treasure (Standard taken)")
                value = "Standard"
            slots[pm.group(2)] = value
        if len(slots) == 3:
            return ", ".join(slots[k] for k in ("coins", "goods", "items"))
        self.gap("treasure not in the coins/goods/items form (Standard taken)")
        return "None" if t.startswith("no") else "Standard"


def main():
    if len(sys.argv) != 4:
        sys.exit("usage: monsters2races.py monster_statblocks.csv RULES_ROWS_DIR OUTPUT_DIR")
    source, rows_dir, out_dir = sys.argv[1:]
    conv = Converter(rows_dir)
    hand_written = set()
    for f in os.listdir(out_dir):
        if not f.endswith(".race"):
            continue
        path = os.path.join(out_dir, f)
        with open(path, encoding="utf-8") as fh:
            first = fh.readline().rstrip("\n")
        if first == MARKER:
            os.remove(path)
        else:
            hand_written.add(f[:-5].lower())
    written, skipped = [], []
    with open(source, encoding="utf-8", newline="") as f:
        rows = list(csv.DictReader(f))
    blocks = {row["name"].strip(): row for row in rows}
    for row in (complete(r, blocks) for r in rows):
        name = file_name(row["name"])
        warrior = WARRIOR.match(name)
        if warrior:
            name = warrior.group(1)
        if SKIP.search(name):
            skipped.append((name, "class levels or a template form"))
            continue
        if name.lower() in hand_written or name.lower() in (w.lower() for w in written):
            skipped.append((name, "name already taken"))
            continue
        lines, why = conv.convert_warrior(row, name) if warrior else conv.convert(row)
        if lines is None:
            skipped.append((name, why))
            continue
        with open(os.path.join(out_dir, name + ".race"), "w", encoding="utf-8") as fh:
            fh.write("\n".join(lines) + "\n")
        written.append(name)
    print("wrote %d races, skipped %d" % (len(written), len(skipped)))
    for name, why in skipped:
        print("  skipped %s: %s" % (name, why))
    print("published saves not reached (%d):" % len(conv.save_misses))
    for name, what in conv.save_misses:
        print("  %s: %s" % (name, what))
    print("published skill totals not reached (%d):" % len(conv.skill_misses))
    for name, what in conv.skill_misses:
        print("  %s: %s" % (name, what))
    print("defaults taken:")
    for what, count in sorted(conv.gaps.items()):
        print("  %4d  %s" % (count, what))


if __name__ == "__main__":
    main()
