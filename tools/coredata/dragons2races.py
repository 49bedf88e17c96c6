#!/usr/bin/env python3
"""Turns the open rules' true dragon tables (by color and age) into race sources.

    python3 tools/coredata/dragons2races.py ../shared/srd/tables data/core/races

The dragons are no stat blocks of their own but two tables per color ("Red Dragons by Age":
size, hit dice, scores, base attack and grapple, attack, saves, breath weapon, frightful
presence; "Red Dragon Abilities by Age": speed, armor class, special abilities, caster level,
spell resistance) and one of attacks by size. Each age of each color becomes a race
"Red Dragon, Adult" with its published combat line quoted for the tests. What the tables do
not give (subtype, alignment, challenge rating) comes from each color's entry in the rules
and stands in COLORS below. Writes only files that carry the marker line.
"""

import csv
import os
import re
import sys

MARKER = "# Converted by dragons2races.py from the open 3.5 dragon tables."

# Color: (subtype, alignment, climate, challenge rating by age from wyrmling to great wyrm).
COLORS = {
    "Black": ("Water", "Chaotic Evil", "Warm", [3, 4, 5, 7, 9, 11, 14, 16, 18, 19, 20, 22]),
    "Blue": ("Earth", "Lawful Evil", "Temperate", [3, 4, 6, 8, 11, 13, 15, 17, 19, 21, 23, 25]),
    "Green": ("Air", "Lawful Evil", "Temperate", [3, 4, 5, 8, 11, 13, 16, 18, 19, 21, 22, 24]),
    "Red": ("Fire", "Chaotic Evil", "Warm", [4, 5, 7, 10, 13, 15, 18, 20, 21, 23, 24, 26]),
    "White": ("Cold", "Chaotic Evil", "Cold", [2, 3, 4, 6, 8, 10, 12, 15, 17, 18, 19, 21]),
    "Brass": ("Fire", "Chaotic Good", "Warm", [3, 4, 6, 8, 10, 12, 15, 17, 19, 20, 21, 23]),
    "Bronze": ("Water", "Lawful Good", "Temperate",
               [3, 5, 7, 10, 12, 15, 17, 19, 20, 22, 23, 25]),
    "Copper": ("Earth", "Chaotic Good", "Warm", [3, 4, 6, 9, 11, 14, 16, 18, 19, 21, 22, 24]),
    "Gold": ("Fire", "Lawful Good", "Warm", [5, 7, 9, 11, 14, 16, 19, 21, 22, 24, 25, 27]),
    "Silver": ("Cold", "Lawful Good", "Temperate",
               [4, 5, 7, 9, 12, 15, 17, 19, 20, 22, 23, 25]),
}
AGES = ["Wyrmling", "Very young", "Young", "Juvenile", "Young adult", "Adult", "Mature adult",
        "Old", "Very old", "Ancient", "Wyrm", "Great wyrm"]
SIZES = {"T": "Tiny", "S": "Small", "M": "Medium", "L": "Large", "H": "Huge",
         "G": "Gargantuan", "C": "Colossal"}
# The attacks of the by-size table that are one routine: the bite leads, the rest follow.
ROUTINE = [("1 Bite", "Bite"), ("2 Claws", "2 Claw"), ("2 Wings", "2 Wing"),
           ("1 Tail Slap", "Tail slap")]


def rows_of(path):
    with open(path, encoding="utf-8", newline="") as f:
        rows = list(csv.reader(f))
    header = rows[1]
    return [dict(zip(header, r)) for r in rows[2:] if r and r[0] in AGES]


def table(tables_dir, color, suffix):
    """The color's table whose title ends in `suffix` ("Dragons by Age")."""
    for name in sorted(os.listdir(tables_dir)):
        if not name.startswith("monsters__monsters-dr-dw__"):
            continue
        with open(os.path.join(tables_dir, name), encoding="utf-8") as f:
            title = f.readline().split(",")[0].strip('"')
        if title == "%s %s" % (color, suffix):
            return rows_of(os.path.join(tables_dir, name))
    sys.exit("no table '%s %s' in %s" % (color, suffix, tables_dir))


def attacks_by_size(tables_dir):
    path = os.path.join(tables_dir, "monsters__monsters-dr-dw__03_combat.csv")
    with open(path, encoding="utf-8", newline="") as f:
        rows = list(csv.reader(f))
    header = rows[1]
    return {r[0]: dict(zip(header, r)) for r in rows[2:] if r and r[0] in SIZES.values()}


def speeds(text):
    out = []
    for part in text.split(","):
        m = re.match(r"^\s*(burrow|climb|fly|swim)?\s*(\d+)\s*ft\.?\s*(?:\((\w+)\))?", part)
        if m:
            item = "%s %s" % (m.group(1) or "land", m.group(2))
            if m.group(1) == "fly" and m.group(3):
                item += " " + m.group(3).lower()
            out.append(item)
    return ", ".join(out)


def space_reach(text):
    m = re.match(r"^\s*(\d+(?:-\d/\d)?)\s*ft\.?/(\d+)\s*ft", text)
    space = m.group(1).replace("-", " ") if m else "5"
    return space, m.group(2) if m else "5"


def race(color, age_index, by_age, abilities, by_size):
    subtype, alignment, climate, ratings = COLORS[color]
    row, more = by_age[age_index], abilities[age_index]
    size = SIZES[row["Size"]]
    hd = re.match(r"^(\d+)d12", row["Hit Dice (hp)"]).group(1)
    hp = re.search(r"\((\d+)\)", row["Hit Dice (hp)"]).group(1)
    base, grapple = re.match(r"^([+-]\d+)/([+-]\d+)", row["Base Attack/ Grapple"]).groups()
    ac = re.match(r"^(\d+)", more["AC"]).group(1)
    natural = re.search(r"\+(\d+) natural", more["AC"]).group(1)
    out = [MARKER,
           "# published: base attack %s, grapple %s, Fort %s, Ref %s, Will %s, hp %s, AC %s" % (
               base, grapple, row["Fort Save"], row["Ref Save"], row["Will Save"], hp, ac)]
    sized = by_size[size]
    routine = []
    shown = []
    for column, name in ROUTINE:
        die = sized.get(column, "").strip()
        if re.match(r"^\d+d\d+$", die):
            routine.append("%s %s" % (name, die))
    space, reach = space_reach(sized["Space/Reach*"])
    out += ["type: Dragon", "subtypes: " + subtype, "category: Monsters", "roles: Monster",
            "size: " + size, "hit_dice: " + hd,
            "abilities: Str %s, Dex %s, Con %s, Int %s, Wis %s, Cha %s" % tuple(
                row[a] for a in ("Str", "Dex", "Con", "Int", "Wis", "Cha")),
            # A dragon's 6 points a die and its Intelligence, at least 1, for HD + 3 dice.
            "skill_points: %d" % (max(1, 6 + (int(row["Int"]) - 10) // 2) * (int(hd) + 3)),
            "natural_armor: " + natural, "speed: " + speeds(more["Speed"]),
            "space: " + space, "reach: " + reach,
            "attacks: " + ", ".join(routine)]
    attacks = ["Breath weapon"]
    if row["Frightful Presence DC"].strip() not in ("", "\u2014", "-"):
        attacks.append("Frightful presence")
    if more["Caster Level"].strip() not in ("", "\u2014", "-"):
        attacks.append("Spell-like abilities")
    out.append("special_attacks: " + ", ".join(attacks))
    out.append("special_qualities: Blindsense, Darkvision, Immunity")
    out.append("challenge_rating: %d" % ratings[age_index])
    out.append("alignment: " + alignment)
    out.append("alignment_mod: Always")
    out.append("treasure: Triple standard")
    out.append("climates: " + climate)
    out.append("feature: Breath weapon: %s" % row["Breath Weapon (DC)"].replace("(", "(DC "))
    if "Frightful presence" in attacks:
        out.append("feature: Frightful presence: DC %s" % row["Frightful Presence DC"])
    if more["Caster Level"].strip() not in ("", "\u2014", "-"):
        out.append("feature: Casts spells as a sorcerer of level %s" % re.match(
            r"^(\d+)", more["Caster Level"]).group(1))
    if more["SR"].strip() not in ("", "\u2014", "-"):
        out.append("feature: Spell resistance %s" % more["SR"])
    # Each age keeps what the younger ones gained.
    gained = []
    for earlier in abilities[:age_index + 1]:
        for ability in re.split(r",\s*", earlier["Special Abilities"]):
            ability = ability.strip()
            if not ability:
                continue
            if ability.startswith("DR "):
                gained = [g for g in gained if not g.startswith("DR ")]
            gained.append(ability)
    for ability in gained:
        out.append("feature: Special ability: " + ability)
    if size in ("Huge", "Gargantuan", "Colossal"):
        out.append("feature: Special attack: Crush %s" % sized["1Crush"])
    if size in ("Gargantuan", "Colossal"):
        out.append("feature: Special attack: Tail sweep %s" % sized["1 Tail Sweep"])
    return out


def main():
    if len(sys.argv) != 3:
        sys.exit("usage: dragons2races.py SRD_TABLES_DIR OUTPUT_DIR")
    tables_dir, out_dir = sys.argv[1:]
    by_size = attacks_by_size(tables_dir)
    written = 0
    for color in COLORS:
        by_age = table(tables_dir, color, "Dragons by Age")
        abilities = table(tables_dir, color, "Dragon Abilities by Age")
        for i, age in enumerate(AGES):
            name = "%s Dragon, %s" % (color, age)
            path = os.path.join(out_dir, name + ".race")
            if os.path.exists(path):
                with open(path, encoding="utf-8") as f:
                    if f.readline().rstrip("\n") != MARKER:
                        continue
            with open(path, "w", encoding="utf-8") as f:
                f.write("\n".join(race(color, i, by_age, abilities, by_size)) + "\n")
            written += 1
    print("wrote %d dragons" % written)


if __name__ == "__main__":
    main()
