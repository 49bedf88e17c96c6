#!/usr/bin/env python3
"""Turns the open-rules monster stat blocks into race sources for hoard-coredata.

    python3 tools/coredata/monsters2races.py ../shared/srd/monsters/monster_statblocks.csv \
        data/rules/rows data/core/races

Reads the code tables (special attacks and qualities, subtypes) from the rules rows so that
only names the database holds are written as references; everything else that the stat block
names goes into free-text `feature:` lines. Writes one `<Name>.race` per creature, replacing
the files it wrote before (they carry a marker line) and leaving hand-written ones alone.
Prints what it had to fill with a default.
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
SKIP = re.compile(r"\d+(st|nd|rd|th)-Level|Human Form|Hybrid|Wolf Form|Bear Form|Boar Form|"
                  r"Tiger Form|Rat Form|Giant Form", re.I)


def read_names(rows_dir, table):
    path = os.path.join(rows_dir, table + ".tsv")
    names = []
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
            names.append(cells[header.index("Name")])
    return names


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
        self.gaps = collections.Counter()

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
        m = re.match(r"^\s*(\w+)\s+([A-Za-z ]+?)\s*(?:\(([^)]*)\))?\s*$", size_type)
        if not m or m.group(1) not in SIZES:
            return None, "size/type '%s'" % row["size_type"]
        size = m.group(1)
        ctype = m.group(2).strip().title().replace("Magical Beast", "Magical Beast")
        ctype = {t.lower(): t for t in TYPES}.get(m.group(2).strip().lower())
        if not ctype:
            return None, "type '%s'" % m.group(2)
        out.append("type: " + ctype)
        subs = []
        for s in (m.group(3) or "").split(","):
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
        for a in re.finditer(r"(\d+)\s*(?:[-\u2013]\s*(\d+)|(\+))\s*(?:HD)?\s*\(([^)]+)\)",
                             row["Advancement"]):
            low = int(a.group(1))
            high = int(a.group(2)) if a.group(2) else 2 * low
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

        if name in COMPANION_FLAGS:
            out.append("flags: " + ", ".join(COMPANION_FLAGS[name]))
        if name in FAMILIAR_BONUS:
            out.append("familiar_bonus: " + FAMILIAR_BONUS[name])
        for f in feats:
            out.append("feature: " + f)
        return out, None

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
        for row in csv.DictReader(f):
            name = file_name(row["name"])
            if SKIP.search(name):
                skipped.append((name, "class levels or a template form"))
                continue
            if name.lower() in hand_written or name.lower() in (w.lower() for w in written):
                skipped.append((name, "name already taken"))
                continue
            lines, why = conv.convert(row)
            if lines is None:
                skipped.append((name, why))
                continue
            with open(os.path.join(out_dir, name + ".race"), "w", encoding="utf-8") as fh:
                fh.write("\n".join(lines) + "\n")
            written.append(name)
    print("wrote %d races, skipped %d" % (len(written), len(skipped)))
    for name, why in skipped:
        print("  skipped %s: %s" % (name, why))
    print("defaults taken:")
    for what, count in sorted(conv.gaps.items()):
        print("  %4d  %s" % (count, what))


if __name__ == "__main__":
    main()
